#pragma once

#ifdef _WIN32
#include "platform/win32/ComApartment.h"
#include "platform/win32/Win32Desktop.h"
#else
#include "platform/posix/PosixDesktop.h"
#endif

namespace kestrel {

/// The desktop of the system that this is built for, to derive from.
#ifdef _WIN32
using SystemDesktop = win32::Win32Desktop;
/// What a thread of its own needs for its desktop, for as long as it lives.
using SystemThread = win32::ComApartment;
#else
using SystemDesktop = PosixDesktop;
struct SystemThread {};
#endif

}  // namespace kestrel
