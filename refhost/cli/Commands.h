#pragma once

#include <string>
#include <vector>

#include "refhost/cli/Arguments.h"
#include "refhost/cli/Outputs.h"

namespace refhost {

/// One command of the program.
struct Command {
    const char* name;
    const char* summary;  ///< one line
    const char* details;  ///< what --help tells beside the options
    ArgumentRules rules;
    /// Writes only through the outputs, which are committed afterwards.
    void (*run)(const Arguments& arguments, Outputs& outputs);
};

/// All commands, in the order in which --help lists them.
const std::vector<Command>& Commands();

/// Runs a command line (without the program's name) and answers the exit code: 0 done, 1 could
/// not (one sentence on standard error, nothing changed), 2 wrong usage.
int RunCommandLine(const std::vector<std::string>& words);

void Analyse(const Arguments& arguments, Outputs& outputs);
void PrioritiseFactors(const Arguments& arguments, Outputs& outputs);
void WriteReport(const Arguments& arguments, Outputs& outputs);
void Import(const Arguments& arguments, Outputs& outputs);
void Show(const Arguments& arguments, Outputs& outputs);
void Factors(const Arguments& arguments, Outputs& outputs);
void Assign(const Arguments& arguments, Outputs& outputs);
void Save(const Arguments& arguments, Outputs& outputs);
void Load(const Arguments& arguments, Outputs& outputs);
void Check(const Arguments& arguments, Outputs& outputs);

}  // namespace refhost
