#pragma once

#include <string>

#include "platform/win32/Handles.h"

namespace kestrel::win32 {

/// Where a path that is to be written leads.
struct FilePlace {
    std::wstring path;    ///< its links followed, whether a file is there or not
    bool exists = false;  ///< a plain file that may be replaced
    FileHandle device;    ///< open for writing, where it is no plain file
};

/// Finds out before anything is written: renaming would also replace a file that is
/// write-protected, and would fail late where another program holds the file open. Raises
/// kestrel::DataError, naming the path.
FilePlace FindPlace(const std::string& path);

}  // namespace kestrel::win32
