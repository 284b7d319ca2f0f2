#pragma once

#include <string>
#include <vector>

#include "refhost/cli/Arguments.h"

namespace refhost {

/// One command of the program.
struct Command {
    const char* name;
    const char* usage;    ///< the words after the name
    const char* summary;  ///< one line
    const char* details;  ///< what --help adds
    ArgumentRules rules;
    void (*run)(const Arguments& arguments);
};

/// All commands, in the order in which --help lists them.
const std::vector<Command>& Commands();

/// Runs a command line (without the program's name) and answers the exit code: 0 done, 1 could
/// not (one sentence on standard error, nothing changed), 2 wrong usage.
int RunCommandLine(const std::vector<std::string>& words);

void Analyse(const Arguments& arguments);
void PrioritiseFactors(const Arguments& arguments);
void WriteReport(const Arguments& arguments);
void Import(const Arguments& arguments);
void Show(const Arguments& arguments);
void Factors(const Arguments& arguments);
void Assign(const Arguments& arguments);
void Save(const Arguments& arguments);
void Load(const Arguments& arguments);
void Check(const Arguments& arguments);

}  // namespace refhost
