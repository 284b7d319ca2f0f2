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

bool WorkProgress::Show(const char* what, std::int32_t done, std::int32_t of) {
    const auto now = std::chrono::steady_clock::now();
    if (stage_ != what) {
        stage_ = what;
        form_.SetProgressRange(of, what);
    } else if (now >= nextUpdate_ || done == of) {
        form_.SetPos(done);
    } else {
        return !form_.CancelRequested();
    }
    nextUpdate_ = now + kBetweenUpdates;
    return !form_.CancelRequested();
}

}  // namespace refhost
