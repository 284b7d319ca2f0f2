#include "platform/win32/ClassRegistration.h"

#include <oleauto.h>

#include <utility>

#include "platform/win32/ComPtr.h"
#include "platform/win32/Handles.h"

namespace kestrel::win32 {

struct ClassRegistration::Entry {
    const wchar_t* key;   ///< below Software\Classes
    const wchar_t* name;  ///< nullptr: the key's own value
    const wchar_t* data;
    /// Also that of programs of the other word size, which look classes up in a branch of their own
    /// but names in the same one.
    bool shared = false;
};

/// Walked from the top by installing, removing and asking; removing a key removes what is below it.
const ClassRegistration::Entry ClassRegistration::kEntries[] = {
    {L"CLSID\\%CLSID%", nullptr, L"%DESCRIPTION%"},
    {L"CLSID\\%CLSID%\\InprocServer32", nullptr, L"%PATH%"},
    {L"CLSID\\%CLSID%\\InprocServer32", L"ThreadingModel", L"Apartment"},
    // COM itself adds "-Embedding" to the command line.
    {L"CLSID\\%CLSID%\\LocalServer32", nullptr, L"\"%PATH%\""},
    {L"CLSID\\%CLSID%\\ProgID", nullptr, L"%NAME%"},
    {L"CLSID\\%CLSID%\\VersionIndependentProgID", nullptr, L"%NAME%"},
    {L"CLSID\\%CLSID%\\TypeLib", nullptr, L"%LIBID%"},
    {L"CLSID\\%CLSID%\\Version", nullptr, L"1.0"},
    {L"%NAME%", nullptr, L"%DESCRIPTION%", true},
    {L"%NAME%\\CLSID", nullptr, L"%CLSID%", true},
};

namespace {

constexpr bool kWide = sizeof(void*) == 8;
constexpr REGSAM kOtherWordSize = kWide ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
constexpr const wchar_t* kTypes =
    kWide ? L"TypeLib\\%LIBID%\\1.0\\0\\win64" : L"TypeLib\\%LIBID%\\1.0\\0\\win32";

std::wstring GuidText(REFGUID guid) {
    wchar_t text[39];
    const int length = StringFromGUID2(guid, text, static_cast<int>(std::size(text)));
    return {text, static_cast<std::size_t>(length - 1)};
}

/// Those for one user are in no header or import library of the compiler.
template <class Function>
Function AutomationFunction(HKEY root, const char* forMachine, const char* forUser) {
    const HMODULE automation = GetModuleHandleW(L"oleaut32.dll");  // imported, so it is loaded
    return reinterpret_cast<Function>(reinterpret_cast<void*>(
        GetProcAddress(automation, root == HKEY_LOCAL_MACHINE ? forMachine : forUser)));
}

bool MeansDenied(HRESULT result) {
    return result == E_ACCESSDENIED || result == TYPE_E_REGISTRYACCESS;
}

}  // namespace

std::wstring ClassRegistration::Expanded(std::wstring text) const {
    const std::pair<std::wstring_view, std::wstring> marks[] = {
        {L"%CLSID%", GuidText(class_.id)},
        {L"%LIBID%", GuidText(class_.library)},
        {L"%NAME%", class_.name},
        {L"%PATH%", class_.path},
        {L"%DESCRIPTION%", class_.description},
    };
    for (const auto& [mark, by] : marks)
        if (const auto at = text.find(mark); at != text.npos)
            return text.replace(at, mark.size(), by);
    return text;
}

std::wstring ClassRegistration::KeyName(const wchar_t* key) const {
    return Expanded(std::wstring(L"Software\\Classes\\") + key);
}

bool ClassRegistration::Applies(const Entry& entry) const {
    const std::wstring_view key = entry.key;
    return !key.ends_with(class_.server == Server::Dll ? L"LocalServer32" : L"InprocServer32");
}

bool ClassRegistration::KeyExists(HKEY root, const wchar_t* key, REGSAM branch) const {
    RegistryKey opened;
    return RegOpenKeyExW(root, KeyName(key).c_str(), 0, KEY_READ | branch, opened.Out()) ==
           ERROR_SUCCESS;
}

LSTATUS ClassRegistration::Write(HKEY root, const Entry& entry) const {
    RegistryKey key;
    const LSTATUS opened =
        RegCreateKeyExW(root, KeyName(entry.key).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        KEY_WRITE, nullptr, key.Out(), nullptr);
    if (opened != ERROR_SUCCESS) return opened;
    const std::wstring data = Expanded(entry.data);
    return RegSetValueExW(key.Get(), entry.name, 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(data.c_str()),
                          static_cast<DWORD>((data.size() + 1) * sizeof(wchar_t)));
}

LSTATUS ClassRegistration::Remove(HKEY root, const Entry& entry) const {
    // Where there is but one branch this sees the class itself, which is removed before its name.
    if (entry.shared && KeyExists(root, kEntries[0].key, kOtherWordSize)) return ERROR_SUCCESS;
    const LSTATUS removed = RegDeleteTreeW(root, KeyName(entry.key).c_str());
    return removed == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : removed;
}

/// A user who has no other class of their own had no such key before.
void ClassRegistration::RemoveIfEmpty(HKEY root, const wchar_t* name) const {
    RegistryKey key;
    DWORD keys = 1, values = 1;
    if (RegOpenKeyExW(root, KeyName(name).c_str(), 0, KEY_READ, key.Out()) == ERROR_SUCCESS &&
        RegQueryInfoKeyW(key.Get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values,
                         nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS &&
        keys == 0 && values == 0)
        // An empty key that stays does no harm.
        static_cast<void>(RegDeleteKeyW(root, KeyName(name).c_str()));
}

HRESULT ClassRegistration::RegisterTypes(HKEY root) const {
    const auto function = AutomationFunction<HRESULT(WINAPI*)(ITypeLib*, OLECHAR*, OLECHAR*)>(
        root, "RegisterTypeLib", "RegisterTypeLibForUser");
    if (!function) return HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND);
    ComPtr<ITypeLib> library;
    const HRESULT loaded = LoadTypeLibEx(class_.path.c_str(), REGKIND_NONE, library.Out());
    if (FAILED(loaded)) return loaded;
    std::wstring path = class_.path;
    return function(library.Get(), path.data(), nullptr);
}

HRESULT ClassRegistration::UnregisterTypes(HKEY root) const {
    if (!KeyExists(root, kTypes)) return S_OK;
    const auto function = AutomationFunction<HRESULT(WINAPI*)(REFGUID, WORD, WORD, LCID, SYSKIND)>(
        root, "UnRegisterTypeLib", "UnRegisterTypeLibForUser");
    if (!function) return HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND);
    return function(class_.library, 1, 0, LOCALE_NEUTRAL, kWide ? SYS_WIN64 : SYS_WIN32);
}

HRESULT ClassRegistration::WriteAll(HKEY root) const {
    HRESULT result = S_OK;
    for (const Entry& entry : kEntries)
        if (SUCCEEDED(result) && Applies(entry)) result = HRESULT_FROM_WIN32(Write(root, entry));
    if (SUCCEEDED(result)) result = RegisterTypes(root);
    if (FAILED(result)) static_cast<void>(RemoveAll(root));  // the first failure is what counts
    return result;
}

/// Goes on after a failure, which it answers in the end.
HRESULT ClassRegistration::RemoveAll(HKEY root) const {
    HRESULT result = UnregisterTypes(root);
    for (const Entry& entry : kEntries) {
        const LSTATUS removed = Remove(root, entry);
        if (removed != ERROR_SUCCESS && SUCCEEDED(result)) result = HRESULT_FROM_WIN32(removed);
    }
    RemoveIfEmpty(root, L"CLSID");
    return result;
}

bool ClassRegistration::AnyIsThere(HKEY root) const {
    for (const Entry& entry : kEntries)
        if (KeyExists(root, entry.key)) return true;
    return KeyExists(root, kTypes);
}

HRESULT ClassRegistration::Register() const {
    const HRESULT result = WriteAll(HKEY_LOCAL_MACHINE);
    if (MeansDenied(result)) return WriteAll(HKEY_CURRENT_USER);
    // An earlier registration for the user alone would be found first. When it cannot be removed,
    // this one is still good for everybody else.
    if (SUCCEEDED(result)) static_cast<void>(RemoveAll(HKEY_CURRENT_USER));
    return result;
}

HRESULT ClassRegistration::Unregister() const {
    HRESULT result = S_OK;
    for (HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
        const HRESULT removed = AnyIsThere(root) ? RemoveAll(root) : S_OK;
        if (SUCCEEDED(result)) result = removed;
    }
    return result;
}

}  // namespace kestrel::win32
