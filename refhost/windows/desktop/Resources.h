#pragma once

/// Numbers of the program's resources, for the resource script and the code.
#define KESTREL_DESKTOP_ICON 1

#ifndef RC_INVOKED
namespace refhost::win32 {
inline constexpr int kIconResource = KESTREL_DESKTOP_ICON;
}
#endif
