#include "platform/posix/Signals.h"

#include <signal.h>
#include <unistd.h>

#include <array>
#include <atomic>

#include "platform/FileTarget.h"

namespace kestrel {

struct SignalPause::State {
    sigset_t before;
};

namespace posix {
namespace {

constexpr std::array kEnding = {SIGINT, SIGHUP, SIGTERM};

/// More than a command ever writes; one beyond it merely outlives a signal.
std::array<std::atomic<const char*>, 64> names;

void Replace(const char* from, const char* to) {
    for (auto& name : names)
        if (const char* expected = from; name.compare_exchange_strong(expected, to)) return;
}

/// Calls nothing but what a signal handler may.
extern "C" void OnEndingSignal(int number) {
    for (const auto& name : names)
        if (const char* path = name.load()) ::unlink(path);
    static_cast<void>(::signal(number, SIG_DFL));
    static_cast<void>(::raise(number));
}

}  // namespace

void RemoveOnSignal(const std::string& name) { Replace(nullptr, name.c_str()); }

void ForgetOnSignal(const std::string& name) { Replace(name.c_str(), nullptr); }

void CatchEndingSignals() {
    for (const int number : kEnding) {
        struct sigaction action {};
        if (::sigaction(number, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) continue;
        action = {};
        action.sa_handler = OnEndingSignal;
        static_cast<void>(::sigaction(number, &action, nullptr));  // fails for no such signal only
    }
}

}  // namespace posix

SignalPause::SignalPause() : state_(std::make_unique<State>()) {
    sigset_t ending;
    sigemptyset(&ending);
    for (const int number : posix::kEnding) sigaddset(&ending, number);
    static_cast<void>(::pthread_sigmask(SIG_BLOCK, &ending, &state_->before));
}

SignalPause::~SignalPause() {
    static_cast<void>(::pthread_sigmask(SIG_SETMASK, &state_->before, nullptr));
}

}  // namespace kestrel
