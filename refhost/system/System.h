#pragma once

#include <cstdint>
#include <string>

/// What the programs need of the operating system; each system has a System.cpp.
namespace refhost {

enum class Stream { Input, Output, Error };
/// Whether a person sits at that end.
bool IsTerminal(Stream stream);

/// Bytes that this program may use on this machine.
std::uint64_t MemoryOfProgram();

/// Where samples and help lie: the folder that the program stands in, or share/kestrel beside "bin"
/// where it is installed on a system that parts the two.
std::string InstallationFolder();

/// Where the user's settings are kept: $XDG_CONFIG_HOME/kestrel/settings or
/// ~/.config/kestrel/settings; on Windows %APPDATA%\Kestrel\settings.
std::string SettingsPath();

}  // namespace refhost
