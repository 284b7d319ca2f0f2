#include <windows.h>
#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "platform/win32/ComApartment.h"
#include "platform/win32/WideText.h"
#include "refhost/cli/Commands.h"
#include "refhost/windows/automation/Registration.h"
#include "refhost/windows/console/ConsoleScope.h"
#include "refhost/windows/console/EmbeddedHost.h"

namespace {

std::vector<std::string> Words(int count, wchar_t** words) {
    std::vector<std::string> list;
    for (int i = 1; i < count; ++i) list.push_back(kestrel::win32::Utf8(words[i]));
    return list;
}

bool IsSwitch(const std::string& word, const char* name) {
    return (word.starts_with('-') || word.starts_with('/')) &&
           _stricmp(word.c_str() + 1, name) == 0;
}

int Guarded(void (*work)()) {
    try {
        work();
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "kestrel: " << error.what() << "\n";
        return 1;
    }
}

int Run(const std::vector<std::string>& words) {
    if (!words.empty() && IsSwitch(words[0], "Embedding")) return Guarded(refhost::RunEmbedded);
    if (words.size() == 1) {
        if (words[0] == "--register") return Guarded(refhost::automation::RegisterHost);
        if (words[0] == "--unregister") return Guarded(refhost::automation::UnregisterHost);
    }
    return refhost::RunCommandLine(words);
}

}  // namespace

int wmain(int count, wchar_t** words) {
    const refhost::ConsoleScope console;
    const kestrel::win32::ComApartment com;
    return Run(Words(count, words));
}
