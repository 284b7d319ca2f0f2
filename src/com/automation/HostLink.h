#pragma once

#include <windows.h>
// windows.h first
#include <oaidl.h>

#include "host/HostModel.h"
#include "platform/win32/ComPtr.h"

/// The host application, reached through Automation.
namespace kestrel::com {

/// The name under which the host is registered.
inline constexpr const wchar_t* kHostProgId = L"Schedulon.Application";

/// The host's Application object by kHostProgId: the running one, else one that is created.
/// HostError, in a sentence fit for the user, when there is neither.
win32::ComPtr<IDispatch> FindHost();

/// The host's whole object model behind its Application object. Every member is resolved to its
/// dispatch id once a type; objects are kept as long as somebody holds them; a failing call
/// raises HostError with the host's own description. To be used on the thread that made it.
host::ApplicationPtr WrapApplication(win32::ComPtr<IDispatch> application);

}  // namespace kestrel::com
