#pragma once

#include <memory>

#include "ui/win32/ControlView.h"

namespace kestrel::ui::win32 {

/// The view for a control of any kind. Raises std::logic_error for a kind that has none.
std::unique_ptr<ControlView> MakeView(ViewContext& context, Control& control);

}  // namespace kestrel::ui::win32
