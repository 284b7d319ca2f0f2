#include "platform/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <filesystem>

#include "platform/FileErrors.h"
#include "platform/posix/Descriptor.h"

namespace kestrel {

struct FileLock::Held {
    posix::Descriptor folder;
};

/// The folder is locked, as the file is replaced, and a file beside it would stay behind.
FileLock::FileLock(const std::string& path) {
    const std::string folder = std::filesystem::path(path).parent_path().string();
    const char* const opened = folder.empty() ? "." : folder.c_str();
    held_.reset(new Held{posix::Descriptor(::open(opened, O_RDONLY | O_DIRECTORY | O_CLOEXEC))});
    if (!held_->folder.IsOpen()) FailWithFile("written", path, posix::LastError());
    while (::flock(held_->folder.Get(), LOCK_EX) != 0)
        if (errno != EINTR) FailWithFile("written", path, posix::LastError());
}

FileLock::~FileLock() = default;

}  // namespace kestrel
