#pragma once

#include <string>
#include <string_view>

/// Whole files, read and replaced. Paths are UTF-8.
namespace kestrel {

/// The file's bytes. Raises DataError, naming the path and the reason, when it cannot be read or
/// is larger than `maximumBytes`.
std::string ReadWholeFile(const std::string& path, std::size_t maximumBytes = 256u << 20);

/// Replaces the file at `path` atomically: writes a temporary file beside it, flushes it to the
/// disk and renames it over the target. A crash at any moment leaves the old file or the new one,
/// whole; a failure removes the temporary file and raises DataError naming the path.
void ReplaceWholeFile(const std::string& path, std::string_view bytes);

}  // namespace kestrel
