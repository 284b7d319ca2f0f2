#include "refhost/system/System.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace refhost {

bool IsTerminal(Stream stream) {
    switch (stream) {
        case Stream::Input:
            return isatty(STDIN_FILENO) != 0;
        case Stream::Output:
            return isatty(STDOUT_FILENO) != 0;
        case Stream::Error:
            break;
    }
    return isatty(STDERR_FILENO) != 0;
}

std::uint64_t MemoryOfProgram() {
    const auto pages = static_cast<std::uint64_t>(std::max(0L, ::sysconf(_SC_PHYS_PAGES)));
    const auto machine = pages * static_cast<std::uint64_t>(std::max(0L, ::sysconf(_SC_PAGESIZE)));
    rlimit limit{};
    return ::getrlimit(RLIMIT_AS, &limit) == 0 && limit.rlim_cur < machine ? limit.rlim_cur
                                                                           : machine;
}

std::string InstallationFolder() {
    std::error_code failure;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", failure);
    if (failure) return ".";
    const auto folder = program.parent_path();
    const auto installed = folder.parent_path() / "share/kestrel";
    return folder.filename() == "bin" && std::filesystem::is_directory(installed, failure)
               ? installed.string()
               : folder.string();
}

std::string SettingsPath() {
    const char* folder = std::getenv("XDG_CONFIG_HOME");
    if (folder && *folder) return std::string(folder) + "/kestrel/settings";
    const char* home = std::getenv("HOME");
    return std::string(home && *home ? home : ".") + "/.config/kestrel/settings";
}

}  // namespace refhost
