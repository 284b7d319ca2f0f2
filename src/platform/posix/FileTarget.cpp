#include "platform/FileTarget.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <array>
#include <cstdio>
#include <filesystem>

#include "platform/FileErrors.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/FilePlace.h"
#include "platform/posix/Signals.h"

namespace kestrel {
namespace {

namespace fs = std::filesystem;
using posix::Descriptor;
using posix::LastError;

void WriteAll(int file, std::string_view bytes, const std::string& subject) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) FailWith(subject, "written", LastError());
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

/// A pipe, a device, an open descriptor.
class StraightTarget : public FileTarget {
 public:
    StraightTarget(Descriptor file, std::string subject)
        : file_(std::move(file)), subject_(std::move(subject)) {
        if (!file_.IsOpen()) FailWith(subject_, "written", LastError());
    }
    bool IsStraight() const override { return true; }
    void Write(std::string_view bytes) override { WriteAll(file_.Get(), bytes, subject_); }
    void Finish() override {
        if (!file_.Close()) FailWith(subject_, "written", LastError());
    }

 private:
    Descriptor file_;
    std::string subject_;
};

/// A temporary file beside the target.
class PlainTarget : public FileTarget {
 public:
    /// `old` is the status of the file that is there, if any.
    PlainTarget(std::string path, fs::path target, const struct stat* old)
        : path_(std::move(path)), target_(std::move(target)), exists_(old != nullptr) {
        // Renaming would also replace a write-protected file.
        if (old && ::access(target_.c_str(), W_OK) != 0) Fail();
        Create(old ? 0600 : 0666);
        if (old) TakeRights(*old);
    }
    ~PlainTarget() override { RemoveTemporary(); }

    bool IsStraight() const override { return false; }
    void Write(std::string_view bytes) override {
        WriteAll(file_.Get(), bytes, FileSubject(path_));
    }
    void Finish() override {
        if (::fsync(file_.Get()) != 0 || !file_.Close()) Fail();
    }
    void Swap() override {
        if (!(exists_ ? Exchange() : Rename(RENAME_NOREPLACE))) Fail();
        swapped_ = true;
    }
    void Undo() noexcept override {
        if (!swapped_) return;
        const bool undone = exists_ ? ::rename(name_.c_str(), target_.c_str()) == 0
                                    : ::unlink(target_.c_str()) == 0;
        if (undone) posix::ForgetOnSignal(name_);
        if (undone || exists_) name_.clear();  // the old file is never removed
    }
    void Settle() noexcept override {
        RemoveTemporary();
        FlushFolder();
    }

 private:
    [[noreturn]] void Fail() const { FailWithFile("written", path_, LastError()); }

    /// Under a name of its own; the target's name may be too long to add to.
    void Create(mode_t mode) {
        const SignalPause pause;
        for (int attempt = 0;; ++attempt) {
            name_ = target_.parent_path() / (".kestrel-" + std::to_string(::getpid()) + "-" +
                                             std::to_string(attempt) + ".tmp");
            file_ =
                Descriptor(::open(name_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
            if (file_.IsOpen()) break;
            if (errno == EEXIST) continue;
            name_.clear();
            Fail();
        }
        posix::RemoveOnSignal(name_);
    }

    /// Owner, group, mode and access list go over to the new file.
    void TakeRights(const struct stat& old) {
        if (TookRights(old)) return;
        const std::string reason = LastError();
        RemoveTemporary();
        FailWithFile("written", path_,
                     "its owner or rights cannot be kept (" + reason + "); write another file");
    }
    bool TookRights(const struct stat& old) {
        struct stat made {};
        if (::fstat(file_.Get(), &made) != 0) return false;
        if ((made.st_uid != old.st_uid || made.st_gid != old.st_gid) &&
            ::fchown(file_.Get(), old.st_uid, old.st_gid) != 0)
            return false;
        if (::fchmod(file_.Get(), old.st_mode & 07777) != 0) return false;
        constexpr const char* kAccessList = "system.posix_acl_access";
        std::array<char, 4096> list;
        const ssize_t size = ::getxattr(target_.c_str(), kAccessList, list.data(), list.size());
        return size < 0 || ::fsetxattr(file_.Get(), kAccessList, list.data(),
                                       static_cast<std::size_t>(size), 0) == 0;
    }

    /// The temporary name becomes that of the old file.
    bool Exchange() {
        if (::renameat2(AT_FDCWD, name_.c_str(), AT_FDCWD, target_.c_str(), RENAME_EXCHANGE) == 0)
            return true;
        if (!CannotExchange()) return false;
        // A second name for the old file, from which it can be put back.
        const std::string kept = name_ + ".old";
        if (::link(target_.c_str(), kept.c_str()) != 0) return false;
        if (::rename(name_.c_str(), target_.c_str()) != 0) {
            const int reason = errno;
            ::unlink(kept.c_str());
            errno = reason;
            return false;
        }
        posix::ForgetOnSignal(name_);
        name_ = kept;
        return true;
    }
    bool Rename(unsigned flags) {
        if (::renameat2(AT_FDCWD, name_.c_str(), AT_FDCWD, target_.c_str(), flags) != 0 &&
            !(CannotExchange() && ::rename(name_.c_str(), target_.c_str()) == 0))
            return false;
        posix::ForgetOnSignal(name_);
        name_.clear();
        return true;
    }
    /// Some file systems rename only plainly.
    static bool CannotExchange() {
        return errno == EINVAL || errno == ENOSYS || errno == EOPNOTSUPP;
    }

    void RemoveTemporary() noexcept {
        if (name_.empty()) return;
        ::unlink(name_.c_str());  // what stays is rubbish, and a failure is told already
        posix::ForgetOnSignal(name_);
        name_.clear();
    }

    /// Makes the rename last through a power failure. Some file systems cannot flush a folder; the
    /// file is whole either way, so the answer is ignored.
    void FlushFolder() const noexcept {
        const char* name = folder_.c_str();
        const Descriptor folder(::open(name, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (folder.IsOpen()) static_cast<void>(::fsync(folder.Get()));
    }

    const std::string path_;
    const fs::path target_;
    const fs::path folder_ = target_.has_parent_path() ? target_.parent_path() : fs::path(".");
    const bool exists_;
    std::string name_;  ///< of the temporary file; after the swap of the old file, if any
    bool swapped_ = false;
    Descriptor file_{-1};
};

}  // namespace

std::unique_ptr<FileTarget> OpenTarget(const std::string& path) {
    const posix::FilePlace place = posix::FindPlace(path);
    if (place.descriptor)
        return std::make_unique<StraightTarget>(
            Descriptor(::fcntl(*place.descriptor, F_DUPFD_CLOEXEC, 3)), FileSubject(path));
    struct stat status {};
    const bool exists = ::stat(place.path.c_str(), &status) == 0;
    if (!exists && errno != ENOENT) FailWithFile("written", path, LastError());
    if (!exists && !place.path.has_filename()) FailWithFile("written", path, "it names no file");
    if (!exists) return std::make_unique<PlainTarget>(path, place.path, nullptr);
    if (S_ISDIR(status.st_mode)) FailAsFolder(path);
    if (S_ISREG(status.st_mode)) return std::make_unique<PlainTarget>(path, place.path, &status);
    return std::make_unique<StraightTarget>(
        Descriptor(::open(place.path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY)), FileSubject(path));
}

std::unique_ptr<FileTarget> OpenStandardOutput() {
    return std::make_unique<StraightTarget>(Descriptor(::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3)),
                                            kStandardOutput);
}

}  // namespace kestrel
