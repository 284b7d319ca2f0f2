#pragma once

#include <chrono>

#include "refhost/engine/Analysis.h"
#include "refhost/workbench/Workbench.h"
#include "ui/progress/frmProgress.h"

namespace refhost {

/// Shows how far an analysis has come, several times a second, and cancels it when the user closes
/// the form.
class AnalysisProgress : public AnalysisWatcher {
 public:
    AnalysisProgress(WorkbenchWindow& window, std::int32_t iterations);
    ~AnalysisProgress() override { window_.HideProgress(); }
    AnalysisProgress(const AnalysisProgress&) = delete;
    AnalysisProgress& operator=(const AnalysisProgress&) = delete;

    bool AfterIteration(std::int32_t number, std::span<const std::int32_t> drawn,
                        const AnalysisResults& soFar) override;

 private:
    WorkbenchWindow& window_;
    std::int32_t iterations_;
    kestrel::ui::frmProgress form_;
    std::chrono::steady_clock::time_point nextUpdate_;
};

}  // namespace refhost
