#pragma once

#include <chrono>
#include <string>

#include "refhost/workbench/Workbench.h"
#include "ui/progress/frmProgress.h"

namespace refhost {

/// Shows how far work has come, several times a second. The user cancels it by closing the form.
class WorkProgress {
 public:
    WorkProgress(WorkbenchWindow& window, const std::string& caption);
    ~WorkProgress() { window_.HideProgress(); }
    WorkProgress(const WorkProgress&) = delete;
    WorkProgress& operator=(const WorkProgress&) = delete;

    /// `what` names the stage and lives as long as it. False when the user has cancelled.
    bool Show(const char* what, std::int32_t done, std::int32_t of);
    /// The same, with the count in words.
    bool ShowIteration(std::int32_t number, std::int32_t of);

 private:
    bool IsDue(bool last);

    WorkbenchWindow& window_;
    kestrel::ui::frmProgress form_;
    const char* stage_ = nullptr;
    std::chrono::steady_clock::time_point nextUpdate_;
};

}  // namespace refhost
