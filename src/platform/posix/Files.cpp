#include "platform/Files.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <filesystem>

#include "platform/FileErrors.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/FilePlace.h"

namespace kestrel {
namespace {

namespace fs = std::filesystem;
using posix::Descriptor;
using posix::LastError;

std::string ReadAll(int file, const std::string& subject, std::size_t maximumBytes) {
    // The size is only a first guess: it may change, and it is 0 for what is no plain file.
    struct stat status {};
    std::string bytes;
    if (::fstat(file, &status) == 0 && S_ISREG(status.st_mode)) {
        if (static_cast<std::uintmax_t>(status.st_size) > maximumBytes)
            FailAsTooLarge(subject, maximumBytes);
        bytes.reserve(static_cast<std::size_t>(status.st_size));
    }
    std::array<char, 1u << 16> buffer;
    for (;;) {
        const ssize_t count = ::read(file, buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) FailWith(subject, "read", LastError());
        if (count == 0) return bytes;
        bytes.append(buffer.data(), static_cast<std::size_t>(count));
        if (bytes.size() > maximumBytes) FailAsTooLarge(subject, maximumBytes);
    }
}

std::string Identity(const struct stat& status) {
    if (S_ISCHR(status.st_mode) || S_ISSOCK(status.st_mode)) return {};
    return std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino);
}

std::string Identity(int file) {
    struct stat status {};
    return ::fstat(file, &status) == 0 ? Identity(status) : std::string();
}

}  // namespace

std::string ReadWholeFile(const std::string& path, std::size_t maximumBytes) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.IsOpen()) FailWithFile("read", path, LastError());
    return ReadAll(file.Get(), FileSubject(path), maximumBytes);
}

std::string ReadStandardInput(std::size_t maximumBytes) {
    return ReadAll(STDIN_FILENO, kStandardInput, maximumBytes);
}

std::string FileIdentity(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) == 0) return Identity(status);
    const fs::path target = posix::FindPlace(path).path;
    std::error_code error;
    fs::path folder = fs::canonical(target.has_parent_path() ? target.parent_path() : ".", error);
    return ((error ? target.parent_path() : folder) / target.filename()).string();
}

std::string StandardInputIdentity() { return Identity(STDIN_FILENO); }

std::string StandardOutputIdentity() { return Identity(STDOUT_FILENO); }

}  // namespace kestrel
