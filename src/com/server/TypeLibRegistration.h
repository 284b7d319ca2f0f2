#pragma once

#include <windows.h>

#include "com/server/Registration.h"

/// The registration of the DLL's type library, which the system itself writes.
namespace kestrel::com {

HRESULT RegisterTypes(Scope scope) noexcept;

/// S_OK when it is not registered.
HRESULT UnregisterTypes(Scope scope) noexcept;

/// For the word size of this DLL; that of the other one is its own.
bool TypesAreRegistered(Scope scope) noexcept;

}  // namespace kestrel::com
