#pragma once

#include <memory>
#include <string>

namespace kestrel {

/// Keeps other programs that want the same lock waiting while it lives, so that a file can be read,
/// changed and replaced in one step. The file at `path` itself may come and go; its folder must be
/// there. Raises DataError when the lock cannot be had.
class FileLock {
 public:
    explicit FileLock(const std::string& path);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

 private:
    struct Held;
    std::unique_ptr<Held> held_;
};

}  // namespace kestrel
