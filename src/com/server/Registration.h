#pragma once

#include <windows.h>

/// What the registry says of the add-in: the class under its identifier and its name, with this
/// DLL as its server, and the type library.
namespace kestrel::com {

/// Whose programs find the class.
enum class Scope { Machine, User };

/// Registers for the whole machine where this process may, else for the user alone. A
/// registration that fails half-way is undone.
HRESULT RegisterServer() noexcept;

/// Removes every trace, for the machine and for the user. S_OK when there is none; what it may not
/// remove is an error.
HRESULT UnregisterServer() noexcept;

/// One scope alone.
HRESULT RegisterServerFor(Scope scope) noexcept;

/// Whether there is anything in one scope that UnregisterServer would remove.
bool IsRegistered(Scope scope) noexcept;

}  // namespace kestrel::com
