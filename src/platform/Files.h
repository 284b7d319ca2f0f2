#pragma once

#include <string>
#include <string_view>

/// Whole files, read and replaced. Paths are UTF-8.
namespace kestrel {

inline constexpr std::size_t kLargestFile = 256u << 20;  ///< bytes that a reader takes

/// The file's bytes; pipes can be read, once. Raises DataError, naming the path and the reason,
/// when it cannot be read or is larger than `maximumBytes`.
std::string ReadWholeFile(const std::string& path, std::size_t maximumBytes = kLargestFile);
std::string ReadStandardInput(std::size_t maximumBytes = kLargestFile);

/// Replaces the file at `path` atomically: writes a temporary file beside it, flushes it to the
/// disk and swaps it with the target. A crash at any moment leaves the old file or the new one,
/// whole; a failure removes the temporary file and raises DataError naming the path. A pipe or
/// device is written straight. Several files at once: FileSet.
void ReplaceWholeFile(const std::string& path, std::string_view bytes);

/// A text that is equal for two paths exactly when they lead to one file, whether it exists yet
/// or not. Empty for what keeps nothing that is written, such as a terminal or the null device.
std::string FileIdentity(const std::string& path);
std::string StandardInputIdentity();
std::string StandardOutputIdentity();

}  // namespace kestrel
