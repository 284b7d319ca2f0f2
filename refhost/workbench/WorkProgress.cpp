#include "refhost/workbench/WorkProgress.h"

namespace refhost {
namespace {

constexpr auto kBetweenUpdates = std::chrono::milliseconds(50);

}  // namespace

WorkProgress::WorkProgress(WorkbenchWindow& window, const std::string& caption)
    : window_(window), form_([this] { window_.RefreshProgress(); }) {
    form_.SetCaption(caption);
    window_.ShowProgress(form_);
}

bool WorkProgress::IsDue(bool last) {
    const auto now = std::chrono::steady_clock::now();
    if (now < nextUpdate_ && !last) return false;
    nextUpdate_ = now + kBetweenUpdates;
    return true;
}

bool WorkProgress::Show(const char* what, std::int32_t done, std::int32_t of) {
    const bool begins = stage_ != what;
    stage_ = what;
    if (IsDue(begins || done == of)) begins ? form_.SetProgressRange(of, what) : form_.SetPos(done);
    return !form_.CancelRequested();
}

bool WorkProgress::ShowIteration(std::int32_t number, std::int32_t of) {
    if (IsDue(number == of))
        form_.SetMessage("Iteration " + std::to_string(number) + " of " + std::to_string(of),
                         number);
    return !form_.CancelRequested();
}

}  // namespace refhost
