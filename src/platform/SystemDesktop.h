#pragma once

#ifdef _WIN32
#include "platform/win32/Win32Desktop.h"
#else
#include "platform/posix/PosixDesktop.h"
#endif

namespace kestrel {

/// The desktop of the system that this is built for, to derive from.
#ifdef _WIN32
using SystemDesktop = win32::Win32Desktop;
#else
using SystemDesktop = PosixDesktop;
#endif

}  // namespace kestrel
