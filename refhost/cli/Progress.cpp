#include "refhost/cli/Progress.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <string>

namespace refhost {

using std::chrono::steady_clock;

Progress::Progress(std::int64_t total)
    : total_(std::max<std::int64_t>(total, 1)),
      onTerminal_(isatty(STDERR_FILENO) != 0),
      started_(steady_clock::now()),
      nextUpdate_(started_ + std::chrono::milliseconds(300)) {}

void Progress::Show(std::int64_t done) {
    if (!onTerminal_ || (done & 63) != 0) return;  // the clock costs more than an iteration
    const auto now = steady_clock::now();
    if (now < nextUpdate_) return;
    nextUpdate_ = now + std::chrono::milliseconds(100);
    const double elapsed = std::chrono::duration<double>(now - started_).count();
    const double rate = static_cast<double>(done) / elapsed;
    const int filled = static_cast<int>(30 * done / total_);
    const std::string bar = std::string(static_cast<std::size_t>(filled), '#') +
                            std::string(static_cast<std::size_t>(30 - filled), '.');
    std::fprintf(stderr, "\r[%s] %lld of %lld, %.0f a second, %.0f s left \033[K", bar.c_str(),
                 static_cast<long long>(done), static_cast<long long>(total_), rate,
                 static_cast<double>(total_ - done) / rate);
    shown_ = true;
}

void Progress::Clear() {
    if (shown_) std::fputs("\r\033[K", stderr);
    shown_ = false;
}

}  // namespace refhost
