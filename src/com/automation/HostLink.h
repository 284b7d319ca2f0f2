#pragma once

#include <windows.h>
#include <oaidl.h>

#include <functional>
#include <memory>

#include "host/HostModel.h"
#include "platform/win32/ComPtr.h"
#include "platform/win32/FloatingPointBorder.h"

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
/// `border` is crossed with every call of the host and every event of it.
///
/// Each event of the host calls `enterEvent`, when there is one, and keeps what it answers until
/// the listener has come back: a host may let go of the add-in in the middle of an event.
host::ApplicationPtr WrapApplication(win32::ComPtr<IDispatch> application,
                                     std::shared_ptr<win32::FloatingPointBorder> border,
                                     std::function<std::shared_ptr<void>()> enterEvent = {});

}  // namespace kestrel::com
