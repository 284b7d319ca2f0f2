#pragma once

#include <string>

#include "platform/posix/PosixDesktop.h"

namespace refhost {

/// The desktop of a command-line run: messages go to standard error.
class CliDesktop : public kestrel::PosixDesktop {};

/// The folder that the program stands in.
std::string InstallationFolder();

}  // namespace refhost
