#include "platform/Files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "platform/FileErrors.h"

namespace kestrel {
namespace {

namespace fs = std::filesystem;

std::string LastError() { return std::generic_category().message(errno); }

class Descriptor {
 public:
    explicit Descriptor(int value) : value_(value) {}
    ~Descriptor() {
        if (IsOpen()) ::close(value_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Get() const { return value_; }
    bool IsOpen() const { return value_ >= 0; }

    /// Closes now, so that an error of the last write shows; answers whether it went well.
    bool Close() {
        const int closing = value_;
        value_ = -1;
        return ::close(closing) == 0;
    }

 private:
    int value_;
};

/// A temporary file beside a target, removed unless it was renamed over the target.
class TemporaryFile {
 public:
    explicit TemporaryFile(const fs::path& target) : target_(target) {}
    ~TemporaryFile() {
        if (!name_.empty()) ::unlink(name_.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    /// Creates the file under a name of its own; the target's name may be too long to add to.
    Descriptor Create() {
        for (int attempt = 0;; ++attempt) {
            const fs::path name =
                target_.parent_path() /
                (".kestrel-" + std::to_string(::getpid()) + "-" + std::to_string(attempt) + ".tmp");
            const int file = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
            if (file >= 0) name_ = name;
            if (file >= 0 || errno != EEXIST) return Descriptor(file);
        }
    }

    bool RenameOverTarget() {
        if (::rename(name_.c_str(), target_.c_str()) != 0) return false;
        name_.clear();
        return true;
    }

 private:
    const fs::path target_;
    fs::path name_;
};

/// Where a symbolic link leads in the end, existing or not: the file there is replaced, the link
/// stays.
fs::path FollowLinks(const std::string& path) {
    constexpr int kMaximumLinks = 40;  // as the system itself allows
    fs::path target = path;
    std::error_code error;
    for (int i = 0; i <= kMaximumLinks; ++i) {
        if (!fs::is_symlink(fs::symlink_status(target, error))) return target;
        const fs::path link = fs::read_symlink(target, error);
        if (error) FailWithFile("written", path, error.message());
        target = target.parent_path() / link;  // an absolute link replaces the folder
    }
    FailWithFile("written", path, "its symbolic links lead in a circle");
}

bool WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

/// Makes the rename last through a power failure. Some file systems cannot flush a folder; the
/// file is whole either way, so the answer is ignored.
void FlushFolder(const fs::path& file) {
    const fs::path folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
    const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.IsOpen()) static_cast<void>(::fsync(descriptor.Get()));
}

}  // namespace

std::string ReadWholeFile(const std::string& path, std::size_t maximumBytes) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.IsOpen()) FailWithFile("read", path, LastError());

    // The size is only a first guess: it may change, and it is 0 for what is no plain file.
    struct stat status {};
    std::string bytes;
    if (::fstat(file.Get(), &status) == 0 && S_ISREG(status.st_mode)) {
        if (static_cast<std::uintmax_t>(status.st_size) > maximumBytes)
            FailAsTooLarge(path, maximumBytes);
        bytes.reserve(static_cast<std::size_t>(status.st_size));
    }
    std::array<char, 1u << 16> buffer;
    for (;;) {
        const ssize_t count = ::read(file.Get(), buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) FailWithFile("read", path, LastError());
        if (count == 0) return bytes;
        bytes.append(buffer.data(), static_cast<std::size_t>(count));
        if (bytes.size() > maximumBytes) FailAsTooLarge(path, maximumBytes);
    }
}

void ReplaceWholeFile(const std::string& path, std::string_view bytes) {
    const fs::path target = FollowLinks(path);
    struct stat status {};
    const bool exists = ::stat(target.c_str(), &status) == 0;
    // Renaming would also replace a device or a write-protected file.
    if (exists && !S_ISREG(status.st_mode)) FailAsNoPlainFile(path);
    if (exists && ::access(target.c_str(), W_OK) != 0) FailWithFile("written", path, LastError());

    TemporaryFile temporary(target);
    Descriptor file = temporary.Create();
    const bool written = file.IsOpen() &&
                         (!exists || ::fchmod(file.Get(), status.st_mode & 07777) == 0) &&
                         WriteAll(file.Get(), bytes) && ::fsync(file.Get()) == 0 && file.Close() &&
                         temporary.RenameOverTarget();
    if (!written) FailWithFile("written", path, LastError());
    FlushFolder(target);
}

}  // namespace kestrel
