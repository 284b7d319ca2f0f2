#pragma once

#include <string>

#include "base/Errors.h"

/// The sentences of what can go wrong with a whole file, the same on every system.
namespace kestrel {

inline constexpr const char* kStandardInput = "Standard input";
inline constexpr const char* kStandardOutput = "Standard output";

inline std::string FileSubject(const std::string& path) { return "The file '" + path + "'"; }

/// `subject` is FileSubject or a standard stream, `what` "read" or "written"; `reason` is the
/// system's own, without a full stop.
[[noreturn]] inline void FailWith(const std::string& subject, const char* what,
                                  const std::string& reason) {
    throw DataError(subject + " cannot be " + what + ": " + reason + ".");
}

[[noreturn]] inline void FailWithFile(const char* what, const std::string& path,
                                      const std::string& reason) {
    FailWith(FileSubject(path), what, reason);
}

[[noreturn]] inline void FailAsTooLarge(const std::string& subject, std::size_t maximumBytes) {
    FailWith(subject, "read", "it is larger than " + std::to_string(maximumBytes) + " bytes");
}

[[noreturn]] inline void FailAsFolder(const std::string& path) {
    FailWithFile("written", path, "it is a folder");
}

}  // namespace kestrel
