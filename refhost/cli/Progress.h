#pragma once

#include <chrono>
#include <cstdint>

namespace refhost {

/// A progress line on standard error while long work runs; nothing when that is no terminal.
class Progress {
 public:
    explicit Progress(std::int64_t total);
    ~Progress() { Clear(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Show(std::int64_t done);
    void Clear();

 private:
    std::int64_t total_;
    bool onTerminal_;
    bool shown_ = false;
    std::chrono::steady_clock::time_point started_;
    std::chrono::steady_clock::time_point nextUpdate_;
};

}  // namespace refhost
