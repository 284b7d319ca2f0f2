#include "platform/Files.h"

#include <windows.h>

#include <array>
#include <utility>

#include "platform/FileErrors.h"
#include "platform/win32/Handles.h"
#include "platform/win32/Paths.h"
#include "platform/win32/SystemMessage.h"
#include "platform/win32/WideText.h"

namespace kestrel {
namespace {

using win32::FileHandle;
using win32::LastErrorMessage;

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD kLargestPiece = 1u << 20;

bool IsThere(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

/// A temporary file beside a target, removed unless it has taken the target's place.
class TemporaryFile {
 public:
    explicit TemporaryFile(std::wstring target) : target_(std::move(target)) {}
    ~TemporaryFile() {
        // A file that cannot be removed is rubbish, and the failure that led here is told already.
        if (!name_.empty()) static_cast<void>(DeleteFileW(name_.c_str()));
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    /// Creates the file under a name of its own; the target's name may be too long to add to.
    FileHandle Create() {
        const std::wstring folder = target_.substr(0, target_.rfind(L'\\') + 1);
        const std::wstring stem =
            folder + L".kestrel-" + std::to_wstring(GetCurrentProcessId()) + L"-";
        for (int attempt = 0;; ++attempt) {
            const std::wstring name = stem + std::to_wstring(attempt) + L".tmp";
            FileHandle file(CreateFileW(name.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                        CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
            if (file) name_ = name;
            if (file || GetLastError() != ERROR_FILE_EXISTS) return file;
        }
    }

    /// An existing target's permissions and attributes go over to the new file.
    bool TakeTargetsPlace(bool targetExists) {
        const bool replaced =
            targetExists && ReplaceFileW(target_.c_str(), name_.c_str(), nullptr,
                                         REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr);
        // Some network and foreign file systems cannot replace, but they can rename over.
        if (!replaced && !MoveFileExW(name_.c_str(), target_.c_str(),
                                      MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            return false;
        name_.clear();
        return true;
    }

    /// A replacement that fails halfway may have removed the target: then the temporary file is
    /// all that there is, and stays. Answers where it is, or nothing.
    std::wstring KeepIfTargetIsGone() {
        return IsThere(target_) ? std::wstring() : std::exchange(name_, {});
    }

 private:
    const std::wstring target_;
    std::wstring name_;
};

bool WriteAll(HANDLE file, std::string_view bytes) {
    while (!bytes.empty()) {
        const DWORD piece =
            bytes.size() < kLargestPiece ? static_cast<DWORD>(bytes.size()) : kLargestPiece;
        DWORD written = 0;
        if (!WriteFile(file, bytes.data(), piece, &written, nullptr)) return false;
        bytes.remove_prefix(written);
    }
    return true;
}

/// Where a link leads in the end: the file there is replaced, the link stays.
std::wstring FollowLinks(const std::string& path, std::wstring target) {
    const DWORD attributes = GetFileAttributesW(target.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_REPARSE_POINT))
        return target;
    const FileHandle file(CreateFileW(target.c_str(), 0, kShareAll, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!file) FailWithFile("written", path, LastErrorMessage());
    std::wstring final(32768, L'\0');  // no path of the system is longer
    final.resize(
        GetFinalPathNameByHandleW(file.Get(), final.data(), static_cast<DWORD>(final.size()), 0));
    if (final.empty()) FailWithFile("written", path, LastErrorMessage());
    return final;
}

/// Finds out before anything is written: renaming would also replace a device or a file that is
/// write-protected, and would fail late where another program holds the file open. Answers whether
/// there is a file at all.
bool MayBeReplaced(const std::string& path, const std::wstring& target) {
    const DWORD attributes = GetFileAttributesW(target.c_str());
    const bool exists = attributes != INVALID_FILE_ATTRIBUTES;
    if (exists && attributes & FILE_ATTRIBUTE_DIRECTORY) FailAsNoPlainFile(path);
    if (exists && attributes & FILE_ATTRIBUTE_READONLY)
        FailWithFile("written", path, win32::SystemMessage(DWORD{ERROR_ACCESS_DENIED}));
    const FileHandle file(CreateFileW(target.c_str(), GENERIC_WRITE | DELETE, kShareAll, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file && exists) FailWithFile("written", path, LastErrorMessage());
    if (file && GetFileType(file.Get()) != FILE_TYPE_DISK) FailAsNoPlainFile(path);
    return exists;
}

}  // namespace

std::string ReadWholeFile(const std::string& path, std::size_t maximumBytes) {
    const FileHandle file(CreateFileW(win32::SystemPath(path).c_str(), GENERIC_READ, kShareAll,
                                      nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!file) FailWithFile("read", path, LastErrorMessage());

    // The size is only a first guess: it may change, and a pipe has none.
    std::string bytes;
    LARGE_INTEGER size{};
    if (GetFileSizeEx(file.Get(), &size) && size.QuadPart > 0) {
        if (static_cast<std::uint64_t>(size.QuadPart) > maximumBytes)
            FailAsTooLarge(path, maximumBytes);
        bytes.reserve(static_cast<std::size_t>(size.QuadPart));
    }
    std::array<char, 1u << 16> buffer;
    for (;;) {
        DWORD count = 0;
        if (!::ReadFile(file.Get(), buffer.data(), static_cast<DWORD>(buffer.size()), &count,
                        nullptr) &&
            GetLastError() != ERROR_BROKEN_PIPE)  // how the end of a pipe is told
            FailWithFile("read", path, LastErrorMessage());
        if (count == 0) return bytes;
        bytes.append(buffer.data(), count);
        if (bytes.size() > maximumBytes) FailAsTooLarge(path, maximumBytes);
    }
}

void ReplaceWholeFile(const std::string& path, std::string_view bytes) {
    const std::wstring target = FollowLinks(path, win32::SystemPath(path));
    const bool exists = MayBeReplaced(path, target);
    TemporaryFile temporary(target);
    FileHandle file = temporary.Create();
    if (file && WriteAll(file.Get(), bytes) && FlushFileBuffers(file.Get()) && file.Close() &&
        temporary.TakeTargetsPlace(exists))
        return;

    std::string reason = LastErrorMessage();
    file.Close();  // an open file could not be removed
    if (exists)
        if (const std::wstring kept = temporary.KeepIfTargetIsGone(); !kept.empty())
            reason += "; what was to be written is in '" + win32::Utf8(kept) + "'";
    FailWithFile("written", path, reason);
}

}  // namespace kestrel
