#include "platform/FileTarget.h"

#include <windows.h>

#include <utility>

#include "platform/FileErrors.h"
#include "platform/win32/FilePlace.h"
#include "platform/win32/Handles.h"
#include "platform/win32/SystemMessage.h"
#include "platform/win32/WideText.h"

namespace kestrel {
namespace {

using win32::FileHandle;
using win32::LastErrorMessage;

constexpr DWORD kLargestPiece = 1u << 20;

void WriteAll(HANDLE file, std::string_view bytes, const std::string& subject) {
    while (!bytes.empty()) {
        const DWORD piece =
            bytes.size() < kLargestPiece ? static_cast<DWORD>(bytes.size()) : kLargestPiece;
        DWORD written = 0;
        if (!WriteFile(file, bytes.data(), piece, &written, nullptr))
            FailWith(subject, "written", LastErrorMessage());
        bytes.remove_prefix(written);
    }
}

/// A pipe, a device, standard output.
class StraightTarget : public FileTarget {
 public:
    StraightTarget(FileHandle file, std::string subject)
        : file_(std::move(file)), subject_(std::move(subject)) {
        if (!file_) FailWith(subject_, "written", LastErrorMessage());
    }
    bool IsStraight() const override { return true; }
    void Write(std::string_view bytes) override { WriteAll(file_.Get(), bytes, subject_); }
    void Finish() override {
        if (!file_.Close()) FailWith(subject_, "written", LastErrorMessage());
    }

 private:
    FileHandle file_;
    std::string subject_;
};

/// A temporary file beside the target.
class PlainTarget : public FileTarget {
 public:
    PlainTarget(std::string path, std::wstring target, bool exists)
        : path_(std::move(path)), target_(std::move(target)), exists_(exists) {
        Create();
        RemoveWhenClosed(true);
    }
    ~PlainTarget() override {
        file_.Close();  // an open file could not be removed
        // A file that cannot be removed is rubbish, and the failure that led here is told already.
        if (!name_.empty()) static_cast<void>(DeleteFileW(name_.c_str()));
    }

    bool IsStraight() const override { return false; }
    void Write(std::string_view bytes) override {
        WriteAll(file_.Get(), bytes, FileSubject(path_));
    }
    void Finish() override {
        RemoveWhenClosed(false);
        if (!FlushFileBuffers(file_.Get()) || !file_.Close()) Fail();
    }
    void Swap() override {
        if (!(exists_ ? Exchange() : Move(name_, target_))) Fail();
        name_.clear();
        swapped_ = true;
    }
    void Undo() noexcept override {
        if (!swapped_) return;
        if (exists_)
            static_cast<void>(Replace(old_, target_));
        else
            static_cast<void>(DeleteFileW(target_.c_str()));
    }
    void Settle() noexcept override {
        if (exists_) static_cast<void>(DeleteFileW(old_.c_str()));
    }

 private:
    [[noreturn]] void Fail() const { FailWithFile("written", path_, LastErrorMessage()); }

    static bool Move(const std::wstring& from, const std::wstring& to, DWORD flags = 0) {
        return MoveFileExW(from.c_str(), to.c_str(), flags | MOVEFILE_WRITE_THROUGH) != FALSE;
    }
    static bool Replace(const std::wstring& from, const std::wstring& to) {
        return Move(from, to, MOVEFILE_REPLACE_EXISTING);
    }

    /// Under a name of its own; the target's name may be too long to add to.
    void Create() {
        const std::wstring folder = target_.substr(0, target_.rfind(L'\\') + 1);
        const std::wstring stem =
            folder + L".kestrel-" + std::to_wstring(GetCurrentProcessId()) + L"-";
        for (int attempt = 0;; ++attempt) {
            name_ = stem + std::to_wstring(attempt) + L".tmp";
            old_ = stem + std::to_wstring(attempt) + L".old";
            file_ = FileHandle(CreateFileW(name_.c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_READ,
                                           nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
            if (file_) return;
            if (GetLastError() == ERROR_FILE_EXISTS) continue;
            name_.clear();
            Fail();
        }
    }

    /// So that nothing stays when the program is ended from outside. Where the file system knows
    /// no such mark the file is removed in the orderly ways only.
    void RemoveWhenClosed(bool remove) {
        FILE_DISPOSITION_INFO mark{};
        mark.DeleteFile = remove;
        const bool marked = SetFileInformationByHandle(file_.Get(), FileDispositionInfo, &mark,
                                                       sizeof mark) != FALSE;
        if (!marked && !remove && marked_) Fail();
        marked_ = marked && remove;
    }

    /// The target's permissions and attributes go over to the new file.
    bool Exchange() {
        if (ReplaceFileW(target_.c_str(), name_.c_str(), old_.c_str(),
                         REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr))
            return true;
        const DWORD reason = GetLastError();
        // Half done: the old file has its second name, and the new one not yet its own.
        const bool gone = GetFileAttributesW(target_.c_str()) == INVALID_FILE_ATTRIBUTES;
        if (gone && Move(old_, target_)) {
            SetLastError(reason);
            return false;
        }
        // Some network and foreign file systems cannot replace, but they can rename.
        if (!Move(target_, old_)) return false;
        if (Move(name_, target_)) return true;
        const DWORD second = GetLastError();
        static_cast<void>(Move(old_, target_));
        SetLastError(second);
        return false;
    }

    const std::string path_;
    const std::wstring target_;
    const bool exists_;
    std::wstring name_;  ///< of the temporary file, until it has the target's
    std::wstring old_;   ///< of the old file once it is replaced
    bool marked_ = false;
    bool swapped_ = false;
    FileHandle file_;
};

}  // namespace

std::unique_ptr<FileTarget> OpenTarget(const std::string& path) {
    win32::FilePlace place = win32::FindPlace(path);
    if (place.device)
        return std::make_unique<StraightTarget>(std::move(place.device), FileSubject(path));
    return std::make_unique<PlainTarget>(path, std::move(place.path), place.exists);
}

std::unique_ptr<FileTarget> OpenStandardOutput() {
    HANDLE copy = INVALID_HANDLE_VALUE;
    const HANDLE self = GetCurrentProcess();
    if (!DuplicateHandle(self, GetStdHandle(STD_OUTPUT_HANDLE), self, &copy, 0, FALSE,
                         DUPLICATE_SAME_ACCESS))
        copy = INVALID_HANDLE_VALUE;
    return std::make_unique<StraightTarget>(FileHandle(copy), kStandardOutput);
}

/// The steps between two swaps take no longer than the system gives a program to end.
struct SignalPause::State {};
SignalPause::SignalPause() = default;
SignalPause::~SignalPause() = default;

}  // namespace kestrel
