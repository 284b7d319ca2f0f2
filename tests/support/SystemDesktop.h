#pragma once

#ifdef _WIN32
#include "platform/win32/Win32Desktop.h"
#else
#include "platform/posix/PosixDesktop.h"
#endif

namespace kestrel::test {

/// The desktop of the system that the tests run on, so that one table guards every one.
#ifdef _WIN32
using SystemDesktop = win32::Win32Desktop;
#else
using SystemDesktop = PosixDesktop;
#endif

}  // namespace kestrel::test
