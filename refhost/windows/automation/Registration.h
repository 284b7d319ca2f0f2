#pragma once

/// What the registry says of the host: the class Schedulon.Application with a program as its
/// server, and the type library.
namespace refhost::automation {

/// Registers this program, for the whole machine where it may, else for the user alone. Raises
/// kestrel::HostError, with nothing left half registered.
void RegisterHost();

/// Removes every trace, for the machine and for the user; nothing to remove is no failure.
/// Raises kestrel::HostError for what it may not remove.
void UnregisterHost();

}  // namespace refhost::automation
