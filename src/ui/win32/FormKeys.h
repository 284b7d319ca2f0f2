#pragma once

#include <windows.h>
#include "ui/controls/Events.h"
#include "ui/win32/ControlView.h"

/// Who gets a key: the window that has the keyboard, or the form.
namespace kestrel::ui::win32 {

/// A letter or digit as an access key.
KeyEvent AccessKey(char32_t letter);

/// Works a message of the form's window or of one of its children, before it is translated and
/// dispatched; true when nothing is left to do.
///
/// A window that answers DLGC_WANTALLKEYS to WM_GETDLGCODE gets its keys, and what it has no use
/// for it hands to Form::KeyDown itself. All other keys go to the form, where focus, default and
/// cancel button are known; what the form has no use for goes on to the window. Access keys come
/// as characters, which they are on every keyboard layout: with Alt always, alone where nothing can
/// be typed.
bool TranslateFormKey(ViewContext& context, const MSG& message);

}  // namespace kestrel::ui::win32
