#include "com/server/TypeLibRegistration.h"

#include <KestrelDll.h>

#include <new>

#include "com/server/Module.h"
#include "com/server/RegistryText.h"
#include "platform/win32/ComPtr.h"

namespace kestrel::com {
namespace {

constexpr SYSKIND kSystem = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
constexpr const wchar_t* kKey =
    sizeof(void*) == 8 ? L"TypeLib\\%LIBID%\\1.0\\0\\win64" : L"TypeLib\\%LIBID%\\1.0\\0\\win32";

using RegisterFunction = HRESULT(WINAPI*)(ITypeLib*, OLECHAR*, OLECHAR*);
using UnregisterFunction = HRESULT(WINAPI*)(REFGUID, WORD, WORD, LCID, SYSKIND);

/// Those for one user are in no header or import library of the compiler.
template <class Function>
Function Find(const char* name) {
    const HMODULE automation = GetModuleHandleW(L"oleaut32.dll");  // imported, so it is loaded
    const FARPROC found = automation ? GetProcAddress(automation, name) : nullptr;
    return reinterpret_cast<Function>(reinterpret_cast<void*>(found));
}

}  // namespace

HRESULT RegisterTypes(Scope scope) noexcept try {
    const auto registerLibrary = Find<RegisterFunction>(
        scope == Scope::Machine ? "RegisterTypeLib" : "RegisterTypeLibForUser");
    if (!registerLibrary) return HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND);
    win32::ComPtr<ITypeLib> library;
    const HRESULT loaded = LoadOwnTypeLibrary(library.Out());
    if (FAILED(loaded)) return loaded;
    std::wstring path = OwnPath();
    return registerLibrary(library.Get(), path.data(), nullptr);
} catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
}

HRESULT UnregisterTypes(Scope scope) noexcept {
    if (!TypesAreRegistered(scope)) return S_OK;
    const auto unregisterLibrary = Find<UnregisterFunction>(
        scope == Scope::Machine ? "UnRegisterTypeLib" : "UnRegisterTypeLibForUser");
    if (!unregisterLibrary) return HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND);
    return unregisterLibrary(LIBID_KestrelDll, 1, 0, LOCALE_NEUTRAL, kSystem);
}

bool TypesAreRegistered(Scope scope) noexcept try {
    return ClassesKeyExists(scope, kKey);
} catch (const std::bad_alloc&) {
    return false;
}

}  // namespace kestrel::com
