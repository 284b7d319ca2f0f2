#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace kestrel::posix {

/// Where a path leads.
struct FilePlace {
    std::filesystem::path path;     ///< its links followed, whether a file is there or not
    std::optional<int> descriptor;  ///< it names this one, as /dev/stdout and /dev/fd/63 do
};

/// Raises kestrel::DataError, naming the path, when its links lead nowhere.
FilePlace FindPlace(const std::string& path);

}  // namespace kestrel::posix
