#include "windows/server/RegistrySnapshot.h"

#include <vector>

#include "platform/win32/Handles.h"
#include "platform/win32/WideText.h"

namespace kestrel::test {
namespace {

void AddValues(HKEY key, const std::wstring& path, RegistrySnapshot& snapshot) {
    std::vector<wchar_t> name(0x4000), data(0x8000);
    for (DWORD i = 0;; ++i) {
        auto nameLength = static_cast<DWORD>(name.size());
        auto dataLength = static_cast<DWORD>(data.size() * sizeof(wchar_t));
        if (RegEnumValueW(key, i, name.data(), &nameLength, nullptr, nullptr,
                          reinterpret_cast<BYTE*>(data.data()), &dataLength) != ERROR_SUCCESS)
            return;
        const std::wstring content(data.data(), dataLength / sizeof(wchar_t));
        snapshot[path + L" " + name.data()] = content.substr(0, content.find(L'\0'));
    }
}

void AddKey(HKEY parent, const std::wstring& name, const std::wstring& path,
            RegistrySnapshot& snapshot) {
    win32::RegistryKey key;
    if (RegOpenKeyExW(parent, name.c_str(), 0, KEY_READ, key.Out()) != ERROR_SUCCESS) return;
    snapshot[path];
    AddValues(key.Get(), path, snapshot);
    wchar_t child[256];
    for (DWORD i = 0, length = 256; RegEnumKeyExW(key.Get(), i, child, &length, nullptr, nullptr,
                                                  nullptr, nullptr) == ERROR_SUCCESS;
         ++i, length = 256)
        AddKey(key.Get(), child, path + L"\\" + child, snapshot);
}

}  // namespace

RegistrySnapshot TakeRegistrySnapshot() {
    RegistrySnapshot snapshot;
    AddKey(HKEY_LOCAL_MACHINE, L"Software\\Classes", L"machine", snapshot);
    AddKey(HKEY_CURRENT_USER, L"Software\\Classes", L"user", snapshot);
    return snapshot;
}

std::string Difference(const RegistrySnapshot& before, const RegistrySnapshot& after) {
    std::wstring lines;
    for (const auto& [key, data] : after)
        if (const auto old = before.find(key); old == before.end() || old->second != data)
            lines += L"+ " + key + L" = " + data + L"\n";
    for (const auto& [key, data] : before)
        if (!after.contains(key)) lines += L"- " + key + L" = " + data + L"\n";
    return win32::Utf8(lines);
}

}  // namespace kestrel::test
