#pragma once

#include <windows.h>

#include <string>

namespace kestrel::test {

struct ProgramRun {
    DWORD exitCode = 0;
    std::string output;  ///< standard output
    int closedDialogs = 0;
};

/// Runs a program to its end, at most a minute; then it is ended, which is a failed exit code.
/// Its message boxes are closed.
ProgramRun RunProgram(std::wstring commandLine);

}  // namespace kestrel::test
