#include "platform/posix/FilePlace.h"

#include <charconv>
#include <system_error>

#include "platform/FileErrors.h"

namespace kestrel::posix {
namespace {

namespace fs = std::filesystem;

/// The number of a path in the folder where the system lists this process's own descriptors.
std::optional<int> OwnDescriptor(const fs::path& path) {
    std::error_code error;
    if (!fs::equivalent(path.parent_path(), "/proc/self/fd", error) || error) return std::nullopt;
    const std::string name = path.filename().string();
    int number = 0;
    const auto [end, failure] = std::from_chars(name.data(), name.data() + name.size(), number);
    if (failure != std::errc() || end != name.data() + name.size()) return std::nullopt;
    return number;
}

}  // namespace

FilePlace FindPlace(const std::string& path) {
    constexpr int kMaximumLinks = 40;  // as the system itself allows
    fs::path target = path;
    std::error_code error;
    for (int i = 0; i <= kMaximumLinks; ++i) {
        if (!fs::is_symlink(fs::symlink_status(target, error))) return {target, std::nullopt};
        if (const auto descriptor = OwnDescriptor(target)) return {target, descriptor};
        const fs::path link = fs::read_symlink(target, error);
        if (error) FailWithFile("written", path, error.message());
        target = target.parent_path() / link;  // an absolute link replaces the folder
    }
    FailWithFile("written", path, "its symbolic links lead in a circle");
}

}  // namespace kestrel::posix
