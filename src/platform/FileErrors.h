#pragma once

#include <string>

#include "base/Errors.h"

/// The sentences of what can go wrong with a whole file, the same on every system.
namespace kestrel {

/// `what` is "read" or "written"; `reason` is the system's own, without a full stop.
[[noreturn]] inline void FailWithFile(const char* what, const std::string& path,
                                      const std::string& reason) {
    throw DataError("The file '" + path + "' cannot be " + what + ": " + reason + ".");
}

[[noreturn]] inline void FailAsTooLarge(const std::string& path, std::size_t maximumBytes) {
    FailWithFile("read", path, "it is larger than " + std::to_string(maximumBytes) + " bytes");
}

[[noreturn]] inline void FailAsNoPlainFile(const std::string& path) {
    FailWithFile("written", path, "it is not a plain file");
}

}  // namespace kestrel
