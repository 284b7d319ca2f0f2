#include "refhost/windows/console/ConsoleScope.h"

#include <windows.h>
#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <iostream>

namespace refhost {

ConsoleScope::ConsoleScope() : outputCodePage_(GetConsoleOutputCP()) {
    for (FILE* stream : {stdout, stderr})
        static_cast<void>(_setmode(_fileno(stream), _O_BINARY));  // fails only when it is closed
    if (outputCodePage_ != 0) static_cast<void>(SetConsoleOutputCP(CP_UTF8));  // else "?" shows
    const HANDLE errors = GetStdHandle(STD_ERROR_HANDLE);
    changedErrorMode_ = GetConsoleMode(errors, &errorMode_) &&
                        SetConsoleMode(errors, errorMode_ | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

ConsoleScope::~ConsoleScope() {
    std::cout.flush();
    std::cerr.flush();
    if (changedErrorMode_)
        static_cast<void>(SetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), errorMode_));
    if (outputCodePage_ != 0) static_cast<void>(SetConsoleOutputCP(outputCodePage_));
}

}  // namespace refhost
