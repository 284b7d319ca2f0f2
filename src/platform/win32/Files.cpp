#include "platform/Files.h"

#include <windows.h>

#include <array>

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

std::string ReadAll(HANDLE file, const std::string& subject, std::size_t maximumBytes) {
    // The size is only a first guess: it may change, and a pipe has none.
    std::string bytes;
    LARGE_INTEGER size{};
    if (GetFileSizeEx(file, &size) && size.QuadPart > 0) {
        if (static_cast<std::uint64_t>(size.QuadPart) > maximumBytes)
            FailAsTooLarge(subject, maximumBytes);
        bytes.reserve(static_cast<std::size_t>(size.QuadPart));
    }
    std::array<char, 1u << 16> buffer;
    for (;;) {
        DWORD count = 0;
        if (!::ReadFile(file, buffer.data(), static_cast<DWORD>(buffer.size()), &count, nullptr) &&
            GetLastError() != ERROR_BROKEN_PIPE)  // how the end of a pipe is told
            FailWith(subject, "read", LastErrorMessage());
        if (count == 0) return bytes;
        bytes.append(buffer.data(), count);
        if (bytes.size() > maximumBytes) FailAsTooLarge(subject, maximumBytes);
    }
}

FileHandle Open(const std::string& path, DWORD access) {
    return FileHandle(CreateFileW(win32::SystemPath(path).c_str(), access, kShareAll, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
}

std::string Identity(HANDLE file) {
    BY_HANDLE_FILE_INFORMATION facts{};
    if (GetFileType(file) != FILE_TYPE_DISK || !GetFileInformationByHandle(file, &facts)) return {};
    return std::to_string(facts.dwVolumeSerialNumber) + ":" + std::to_string(facts.nFileIndexHigh) +
           ":" + std::to_string(facts.nFileIndexLow);
}

}  // namespace

std::string ReadWholeFile(const std::string& path, std::size_t maximumBytes) {
    const FileHandle file = Open(path, GENERIC_READ);
    if (!file) FailWithFile("read", path, LastErrorMessage());
    return ReadAll(file.Get(), FileSubject(path), maximumBytes);
}

std::string ReadStandardInput(std::size_t maximumBytes) {
    return ReadAll(GetStdHandle(STD_INPUT_HANDLE), kStandardInput, maximumBytes);
}

std::string FileIdentity(const std::string& path) {
    if (const FileHandle file = Open(path, 0)) return Identity(file.Get());
    std::wstring target = win32::SystemPath(path);
    CharLowerBuffW(target.data(), static_cast<DWORD>(target.size()));
    return win32::Utf8(target);
}

std::string StandardInputIdentity() { return Identity(GetStdHandle(STD_INPUT_HANDLE)); }

std::string StandardOutputIdentity() { return Identity(GetStdHandle(STD_OUTPUT_HANDLE)); }

}  // namespace kestrel
