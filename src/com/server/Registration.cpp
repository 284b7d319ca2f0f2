#include "com/server/Registration.h"

#include <new>
#include <string>

#include "com/server/RegistryText.h"
#include "com/server/TypeLibRegistration.h"
#include "platform/win32/Handles.h"

namespace kestrel::com {
namespace {

struct Entry {
    const wchar_t* key;
    const wchar_t* name;  ///< nullptr: the key's own value
    const wchar_t* data;
    /// Also that of programs of the other word size, which look classes up in a branch of their own
    /// but names in the same one.
    bool shared = false;
};

/// Walked from the top by installing, removing and asking.
constexpr Entry kEntries[] = {
    {L"CLSID\\%CLSID%", nullptr, L"The risk factors add-in"},
    {L"CLSID\\%CLSID%\\InprocServer32", nullptr, L"%PATH%"},
    {L"CLSID\\%CLSID%\\InprocServer32", L"ThreadingModel", L"Apartment"},
    {L"CLSID\\%CLSID%\\ProgID", nullptr, L"KestrelDll.clsKestrelDll"},
    {L"CLSID\\%CLSID%\\VersionIndependentProgID", nullptr, L"KestrelDll.clsKestrelDll"},
    {L"CLSID\\%CLSID%\\TypeLib", nullptr, L"%LIBID%"},
    {L"CLSID\\%CLSID%\\Version", nullptr, L"1.0"},
    {L"KestrelDll.clsKestrelDll", nullptr, L"The risk factors add-in", true},
    {L"KestrelDll.clsKestrelDll\\CLSID", nullptr, L"%CLSID%", true},
};

constexpr REGSAM kOtherWordSize = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;

/// Where there is but one branch this sees our own class, which is removed before its name.
bool OtherWordSizeIsRegistered(Scope scope) {
    return ClassesKeyExists(scope, kEntries[0].key, kOtherWordSize);
}

LSTATUS Write(Scope scope, const Entry& entry) {
    win32::RegistryKey key;
    const LSTATUS opened =
        RegCreateKeyExW(RootOf(scope), ClassesKey(entry.key).c_str(), 0, nullptr,
                        REG_OPTION_NON_VOLATILE, KEY_WRITE, nullptr, key.Out(), nullptr);
    if (opened != ERROR_SUCCESS) return opened;
    const std::wstring data = Expanded(entry.data);
    return RegSetValueExW(key.Get(), entry.name, 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(data.c_str()),
                          static_cast<DWORD>((data.size() + 1) * sizeof(wchar_t)));
}

LSTATUS Remove(Scope scope, const Entry& entry) {
    if (entry.shared && OtherWordSizeIsRegistered(scope)) return ERROR_SUCCESS;
    const LSTATUS removed = RegDeleteTreeW(RootOf(scope), ClassesKey(entry.key).c_str());
    return removed == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : removed;
}

/// A user who has no other class of their own had no such key before.
void RemoveIfEmpty(Scope scope, const wchar_t* name) {
    win32::RegistryKey key;
    DWORD keys = 1, values = 1;
    if (RegOpenKeyExW(RootOf(scope), ClassesKey(name).c_str(), 0, KEY_READ, key.Out()) ==
            ERROR_SUCCESS &&
        RegQueryInfoKeyW(key.Get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values,
                         nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS &&
        keys == 0 && values == 0)
        // An empty key that stays does no harm.
        static_cast<void>(RegDeleteKeyW(RootOf(scope), ClassesKey(name).c_str()));
}

/// Goes on after a failure, which it answers in the end.
HRESULT RemoveAll(Scope scope) {
    HRESULT result = UnregisterTypes(scope);
    for (const Entry& entry : kEntries) {
        const LSTATUS removed = Remove(scope, entry);
        if (removed != ERROR_SUCCESS && SUCCEEDED(result)) result = HRESULT_FROM_WIN32(removed);
    }
    RemoveIfEmpty(scope, L"CLSID");
    return result;
}

HRESULT WriteAll(Scope scope) {
    for (const Entry& entry : kEntries)
        if (const LSTATUS written = Write(scope, entry); written != ERROR_SUCCESS)
            return HRESULT_FROM_WIN32(written);
    return RegisterTypes(scope);
}

bool MeansDenied(HRESULT result) {
    return result == E_ACCESSDENIED || result == TYPE_E_REGISTRYACCESS;
}

}  // namespace

HRESULT RegisterServerFor(Scope scope) noexcept try {
    const HRESULT result = WriteAll(scope);
    if (FAILED(result)) static_cast<void>(RemoveAll(scope));  // the first failure is what counts
    return result;
} catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
}

HRESULT RegisterServer() noexcept try {
    const HRESULT result = RegisterServerFor(Scope::Machine);
    if (MeansDenied(result)) return RegisterServerFor(Scope::User);
    // An earlier registration for the user alone would be found first. When it cannot be removed,
    // this one is still good for everybody else.
    if (SUCCEEDED(result)) static_cast<void>(RemoveAll(Scope::User));
    return result;
} catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
}

HRESULT UnregisterServer() noexcept try {
    HRESULT result = S_OK;
    for (const Scope scope : {Scope::Machine, Scope::User}) {
        const HRESULT removed = IsRegistered(scope) ? RemoveAll(scope) : S_OK;
        if (SUCCEEDED(result)) result = removed;
    }
    return result;
} catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
}

bool IsRegistered(Scope scope) noexcept try {
    for (const Entry& entry : kEntries)
        if (ClassesKeyExists(scope, entry.key)) return true;
    return TypesAreRegistered(scope);
} catch (const std::bad_alloc&) {
    return false;
}

}  // namespace kestrel::com
