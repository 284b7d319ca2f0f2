#include "refhost/workbench/AnalysisProgress.h"

#include <string>

namespace refhost {
namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kBetweenUpdates = std::chrono::milliseconds(50);

}  // namespace

AnalysisProgress::AnalysisProgress(WorkbenchWindow& window, std::int32_t iterations)
    : window_(window),
      iterations_(iterations),
      form_([this] { window_.RefreshProgress(); }),
      nextUpdate_(Clock::now()) {
    form_.SetCaption("Risk Analysis");
    window_.ShowProgress(form_);
    form_.SetProgressRange(iterations, "Preparing");
}

bool AnalysisProgress::AfterIteration(std::int32_t number, std::span<const std::int32_t>,
                                      const AnalysisResults&) {
    const auto now = Clock::now();
    if (now >= nextUpdate_ || number == iterations_) {
        nextUpdate_ = now + kBetweenUpdates;
        form_.SetMessage(
            "Iteration " + std::to_string(number) + " of " + std::to_string(iterations_), number);
    }
    return !form_.CancelRequested();
}

}  // namespace refhost
