#pragma once

#include <windows.h>

#include <string>

#include "com/server/Registration.h"

namespace kestrel::com {

inline HKEY RootOf(Scope scope) {
    return scope == Scope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

/// The text with %CLSID%, %LIBID% and %PATH% replaced by the class, the type library and the file
/// of this DLL.
std::wstring Expanded(std::wstring text);

/// The full name of a key below which classes are looked up.
inline std::wstring ClassesKey(const wchar_t* key) {
    return Expanded(std::wstring(L"Software\\Classes\\") + key);
}

/// Whether the key is there. `branch` is KEY_WOW64_32KEY, KEY_WOW64_64KEY or, for the branch of
/// this DLL's own word size, nothing.
bool ClassesKeyExists(Scope scope, const wchar_t* key, REGSAM branch = 0);

}  // namespace kestrel::com
