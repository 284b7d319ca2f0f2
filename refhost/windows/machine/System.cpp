#include "refhost/system/System.h"

#include <windows.h>

#include <filesystem>

#include "platform/win32/Paths.h"
#include "platform/win32/WideText.h"
#include "refhost/system/FilePath.h"

namespace refhost {
namespace {

std::wstring Variable(const wchar_t* name) {
    std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
    const DWORD length =
        GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size()));
    value.resize(length < value.size() ? length : 0);
    return value;
}

}  // namespace

bool IsTerminal(Stream stream) {
    const DWORD id = stream == Stream::Input    ? STD_INPUT_HANDLE
                     : stream == Stream::Output ? STD_OUTPUT_HANDLE
                                                : STD_ERROR_HANDLE;
    DWORD mode = 0;  // the library's isatty also takes the null device for a terminal
    return GetConsoleMode(GetStdHandle(id), &mode) != FALSE;
}

std::uint64_t MemoryOfProgram() {
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    if (!GlobalMemoryStatusEx(&status)) return ~std::uint64_t{0};
    return status.ullTotalPhys;
}

std::string InstallationFolder() {
    const std::filesystem::path program = kestrel::win32::ModulePath();
    return Utf8Path(program.parent_path());
}

std::string SettingsPath() {
    const std::wstring folder = Variable(L"APPDATA");
    return kestrel::win32::Utf8(folder.empty() ? L"." : folder) + "\\Kestrel\\settings";
}

}  // namespace refhost
