#include "refhost/cli/Progress.h"

#include <csignal>
#include <cstdio>
#include <string>

#include "refhost/system/System.h"

namespace refhost {
namespace {

using std::chrono::steady_clock;

volatile std::sig_atomic_t interrupted = 0;  // the only state that a signal handler may set

void OnInterrupt(int) { interrupted = 1; }

}  // namespace

Progress::Progress(std::int32_t total, std::int32_t every)
    : every_(every),
      onTerminal_(IsTerminal(Stream::Error)),
      started_(steady_clock::now()),
      nextUpdate_(started_ + std::chrono::milliseconds(300)) {
    form_.Open();
    form_.SetProgressRange(total, "Analysing");
    interrupted = 0;
    before_ = std::signal(SIGINT, OnInterrupt);
    if (before_ == SIG_IGN) std::signal(SIGINT, SIG_IGN);  // as a program in the background
}

Progress::~Progress() {
    std::signal(SIGINT, before_);
    if (shown_) std::fputs("\r\033[K", stderr);
}

bool Progress::CancelRequested() {
    if (interrupted) form_.RequestCancel();
    return form_.CancelRequested();
}

void Progress::Show(std::int32_t done) {
    if (!onTerminal_ || done % every_ != 0) return;  // the clock costs more than an iteration
    const auto now = steady_clock::now();
    if (now < nextUpdate_) return;
    nextUpdate_ = now + std::chrono::milliseconds(100);
    form_.SetPos(done);
    Paint(std::chrono::duration<double>(now - started_).count());
}

void Progress::Paint(double elapsed) {
    constexpr int kWidth = 30;
    const kestrel::ui::ProgressBar& bar = form_.ProgressBar1;
    const double rate = bar.Value() / elapsed;
    const auto filled =
        static_cast<std::size_t>(std::int64_t{kWidth} * bar.Value() / std::max(bar.Max(), 1));
    const std::string drawn = std::string(filled, '#') + std::string(kWidth - filled, '.');
    std::fprintf(stderr, "\r%s [%s] %d of %d, %.0f a second, %.0f s left\033[K",
                 form_.txtMessage.Text().c_str(), drawn.c_str(), bar.Value(), bar.Max(), rate,
                 (bar.Max() - bar.Value()) / rate);
    shown_ = true;
}

}  // namespace refhost
