#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string>

#include "platform/win32/Paths.h"

/// The DLL that this code is part of.
namespace kestrel::com {

/// Known without DllMain: the linker names the place where the image begins.
HINSTANCE OwnModule() noexcept;

inline std::wstring OwnPath() { return win32::ModulePath(OwnModule()); }

/// The description of one interface or class in the type library among the DLL's resources;
/// nothing of the registry is read or written.
HRESULT LoadOwnTypeInfo(REFGUID guid, ITypeInfo** info) noexcept;

}  // namespace kestrel::com
