#pragma once

#include <string>

#ifdef _WIN32
#include "platform/win32/Win32Desktop.h"
#else
#include "platform/posix/PosixDesktop.h"
#endif

/// What the command line needs of the operating system; each system has a System.cpp.
namespace refhost {

#ifdef _WIN32
using SystemDesktop = kestrel::win32::Win32Desktop;
#else
using SystemDesktop = kestrel::PosixDesktop;
#endif

enum class Stream { Input, Output, Error };
/// Whether a person sits at that end.
bool IsTerminal(Stream stream);

/// The folder that the program stands in.
std::string InstallationFolder();

/// Where the user's settings are kept: $XDG_CONFIG_HOME/kestrel/settings or
/// ~/.config/kestrel/settings; on Windows %APPDATA%\Kestrel\settings.
std::string SettingsPath();

}  // namespace refhost
