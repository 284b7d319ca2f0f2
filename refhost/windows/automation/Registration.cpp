#include "refhost/windows/automation/Registration.h"

#include <windows.h>
// windows.h first
#include <oleauto.h>

#include <string>

#include "base/Errors.h"
#include "platform/win32/ComPtr.h"
#include "platform/win32/Handles.h"
#include "platform/win32/SystemMessage.h"
#include "refhost/windows/automation/TypeLibrary.h"

#include <Schedulon.h>

namespace refhost::automation {
namespace {

using kestrel::win32::RegistryKey;

enum class Scope { Machine, User };

struct Entry {
    const wchar_t* key;   ///< below Software\Classes
    const wchar_t* data;  ///< the key's own value
};

/// COM itself adds "-Embedding" to the command line. Walked from the top by installing; removing a
/// key removes what is below it.
constexpr Entry kEntries[] = {
    {L"CLSID\\%CLSID%", L"Schedulon Application"},
    {L"CLSID\\%CLSID%\\LocalServer32", L"\"%PROGRAM%\""},
    {L"CLSID\\%CLSID%\\ProgID", L"Schedulon.Application"},
    {L"CLSID\\%CLSID%\\VersionIndependentProgID", L"Schedulon.Application"},
    {L"CLSID\\%CLSID%\\TypeLib", L"%LIBID%"},
    {L"CLSID\\%CLSID%\\Version", L"1.0"},
    {L"Schedulon.Application", L"Schedulon Application"},
    {L"Schedulon.Application\\CLSID", L"%CLSID%"},
};

constexpr SYSKIND kSystem = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;

HKEY RootOf(Scope scope) {
    return scope == Scope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

std::wstring GuidText(REFGUID guid) {
    wchar_t text[39];
    const int length = StringFromGUID2(guid, text, static_cast<int>(std::size(text)));
    return {text, static_cast<std::size_t>(length - 1)};
}

std::wstring Expanded(std::wstring text) {
    const std::pair<std::wstring_view, std::wstring> marks[] = {
        {L"%CLSID%", GuidText(CLSID_Application)},
        {L"%LIBID%", GuidText(LIBID_Schedulon)},
        {L"%PROGRAM%", kestrel::win32::ModulePath()}};
    for (const auto& [mark, by] : marks)
        if (const auto at = text.find(mark); at != text.npos) text.replace(at, mark.size(), by);
    return text;
}

std::wstring KeyName(const Entry& entry) {
    return Expanded(std::wstring(L"Software\\Classes\\") + entry.key);
}

LSTATUS Write(Scope scope, const Entry& entry) {
    RegistryKey key;
    const LSTATUS opened =
        RegCreateKeyExW(RootOf(scope), KeyName(entry).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        KEY_WRITE, nullptr, key.Out(), nullptr);
    if (opened != ERROR_SUCCESS) return opened;
    const std::wstring data = Expanded(entry.data);
    return RegSetValueExW(key.Get(), nullptr, 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(data.c_str()),
                          static_cast<DWORD>((data.size() + 1) * sizeof(wchar_t)));
}

bool IsThere(Scope scope, const std::wstring& key) {
    RegistryKey opened;
    return RegOpenKeyExW(RootOf(scope), key.c_str(), 0, KEY_READ, opened.Out()) == ERROR_SUCCESS;
}

/// Those for one user are in no header or import library of the compiler.
template <class Function>
Function AutomationFunction(const char* name) {
    const HMODULE automation = GetModuleHandleW(L"oleaut32.dll");  // imported, so it is loaded
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(automation, name)));
}

HRESULT RegisterTypes(Scope scope) {
    const auto function = AutomationFunction<HRESULT(WINAPI*)(ITypeLib*, OLECHAR*, OLECHAR*)>(
        scope == Scope::Machine ? "RegisterTypeLib" : "RegisterTypeLibForUser");
    if (!function) return HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND);
    const TypeLibrary types;
    std::wstring path = types.Path();
    return function(&types.Library(), path.data(), nullptr);
}

HRESULT UnregisterTypes(Scope scope) {
    if (!IsThere(scope, Expanded(L"Software\\Classes\\TypeLib\\%LIBID%"))) return S_OK;
    const auto function = AutomationFunction<HRESULT(WINAPI*)(REFGUID, WORD, WORD, LCID, SYSKIND)>(
        scope == Scope::Machine ? "UnRegisterTypeLib" : "UnRegisterTypeLibForUser");
    if (!function) return HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND);
    return function(LIBID_Schedulon, 1, 0, LOCALE_NEUTRAL, kSystem);
}

/// Goes on after a failure, which it answers in the end.
HRESULT RemoveAll(Scope scope) {
    HRESULT result = UnregisterTypes(scope);
    for (const Entry& entry : kEntries) {
        const LSTATUS removed = RegDeleteTreeW(RootOf(scope), KeyName(entry).c_str());
        if (removed != ERROR_SUCCESS && removed != ERROR_FILE_NOT_FOUND && SUCCEEDED(result))
            result = HRESULT_FROM_WIN32(removed);
    }
    return result;
}

bool AnyIsThere(Scope scope) {
    for (const Entry& entry : kEntries)
        if (IsThere(scope, KeyName(entry))) return true;
    return IsThere(scope, Expanded(L"Software\\Classes\\TypeLib\\%LIBID%"));
}

HRESULT WriteAll(Scope scope) {
    HRESULT result = S_OK;
    for (const Entry& entry : kEntries)
        if (SUCCEEDED(result)) result = HRESULT_FROM_WIN32(Write(scope, entry));
    if (SUCCEEDED(result)) result = RegisterTypes(scope);
    if (FAILED(result)) static_cast<void>(RemoveAll(scope));  // the first failure is what counts
    return result;
}

[[noreturn]] void Fail(const char* what, HRESULT result) {
    throw kestrel::HostError(std::string("The host could not be ") + what + ": " +
                             kestrel::win32::SystemMessage(static_cast<DWORD>(result)) +
                             "; try again as an administrator.");
}

}  // namespace

void RegisterHost() {
    HRESULT result = WriteAll(Scope::Machine);
    if (result == E_ACCESSDENIED || result == TYPE_E_REGISTRYACCESS) {
        result = WriteAll(Scope::User);
    } else if (SUCCEEDED(result)) {
        // An earlier registration for the user alone would be found first.
        static_cast<void>(RemoveAll(Scope::User));
    }
    if (FAILED(result)) Fail("registered", result);
}

void UnregisterHost() {
    for (const Scope scope : {Scope::Machine, Scope::User})
        if (AnyIsThere(scope))
            if (const HRESULT result = RemoveAll(scope); FAILED(result))
                Fail("unregistered", result);
}

}  // namespace refhost::automation
