#pragma once

#include <chrono>
#include <cstdint>

#include "ui/progress/frmProgress.h"

namespace refhost {

/// The progress form in a terminal: a bar with rate and time left on standard error while long
/// work runs; nothing where that is no terminal. Ctrl+C asks the work to stop.
class Progress {
 public:
    /// `total` pieces of work, of which every so-manieth asks the clock.
    explicit Progress(std::int32_t total, std::int32_t every = 64);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Show(std::int32_t done);
    bool CancelRequested();

 private:
    void Paint(double elapsed);

    kestrel::ui::frmProgress form_;
    std::int32_t every_;
    bool onTerminal_;
    bool shown_ = false;
    void (*before_)(int);  ///< what an interrupt did
    std::chrono::steady_clock::time_point started_;
    std::chrono::steady_clock::time_point nextUpdate_;
};

}  // namespace refhost
