#include "platform/win32/FilePlace.h"

#include <utility>

#include "platform/FileErrors.h"
#include "platform/win32/Paths.h"
#include "platform/win32/SystemMessage.h"

namespace kestrel::win32 {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

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

FileHandle OpenExisting(const std::wstring& path, DWORD access) {
    return FileHandle(CreateFileW(path.c_str(), access, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
}

}  // namespace

FilePlace FindPlace(const std::string& path) {
    FilePlace place;
    place.path = FollowLinks(path, SystemPath(path));
    if (place.path.empty()) FailWithFile("written", path, "it names no file");
    const DWORD attributes = GetFileAttributesW(place.path.c_str());
    place.exists = attributes != INVALID_FILE_ATTRIBUTES;
    if (place.exists && attributes & FILE_ATTRIBUTE_DIRECTORY) FailAsFolder(path);
    if (place.exists && attributes & FILE_ATTRIBUTE_READONLY)
        FailWithFile("written", path, SystemMessage(DWORD{ERROR_ACCESS_DENIED}));
    FileHandle file = OpenExisting(place.path, GENERIC_WRITE | DELETE);
    if (!file) file = OpenExisting(place.path, GENERIC_WRITE);  // a device cannot be deleted
    if (file && GetFileType(file.Get()) != FILE_TYPE_DISK) {
        place.device = std::move(file);
        return place;
    }
    // What may be written but not deleted could not be replaced either.
    if (place.exists && !OpenExisting(place.path, GENERIC_WRITE | DELETE))
        FailWithFile("written", path, LastErrorMessage());
    return place;
}

}  // namespace kestrel::win32
