#pragma once

#include <windows.h>
#include <oaidl.h>

#include "platform/win32/ComPtr.h"

namespace refhost {

/// Makes the add-in's public class, KestrelDll.clsKestrelDll: from the KestrelDll.dll that stands
/// beside this program when there is one, which then needs no registration, else as registered.
/// Raises kestrel::HostError, in a sentence that says what to do.
kestrel::win32::ComPtr<IDispatch> MakeAddInObject();

/// Calls a method without arguments. A failure is raised as kestrel::HostError in the object's
/// own words.
void CallMethod(IDispatch& object, const wchar_t* method);

}  // namespace refhost
