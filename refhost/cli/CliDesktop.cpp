#include "refhost/cli/CliDesktop.h"

#include <filesystem>

namespace refhost {

std::string InstallationFolder() {
    std::error_code failure;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", failure);
    return failure ? "." : program.parent_path().string();
}

}  // namespace refhost
