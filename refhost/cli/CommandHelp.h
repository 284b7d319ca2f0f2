#pragma once

#include <string>

#include "refhost/cli/Commands.h"

namespace refhost {

/// "usage: kestrel show PLAN [--cost] [--top N]", with a line break.
std::string UsageLine(const Command& command);
/// What 'kestrel COMMAND --help' prints.
std::string CommandHelp(const Command& command);
/// What 'kestrel --help' prints.
std::string ProgramHelp();

}  // namespace refhost
