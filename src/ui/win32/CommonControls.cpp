#include "ui/win32/CommonControls.h"

#include <commctrl.h>

namespace kestrel::ui::win32 {
namespace {

HANDLE ContextOf(HINSTANCE module) {
    ACTCTXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    wanted.hModule = module;
    wanted.lpResourceName = MAKEINTRESOURCEW(2);
    return CreateActCtxW(&wanted);
}

}  // namespace

CommonControlsScope::CommonControlsScope(HINSTANCE module) : context_(ContextOf(module)) {
    active_ = context_ != INVALID_HANDLE_VALUE && ActivateActCtx(context_, &cookie_);
    INITCOMMONCONTROLSEX classes{};
    classes.dwSize = sizeof classes;
    classes.dwICC =
        ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES | ICC_PROGRESS_CLASS | ICC_UPDOWN_CLASS;
    // A class that is missing shows when its first window is made.
    static_cast<void>(InitCommonControlsEx(&classes));
}

CommonControlsScope::~CommonControlsScope() {
    if (active_) DeactivateActCtx(0, cookie_);
    if (context_ != INVALID_HANDLE_VALUE) ReleaseActCtx(context_);
}

}  // namespace kestrel::ui::win32
