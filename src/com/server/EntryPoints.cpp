// What the system calls by name. There is no DllMain: nothing has to be done when the DLL is
// loaded, and little could be done safely at that time.
#include <windows.h>
// windows.h first
#include <olectl.h>

#include <KestrelDll.h>

#include "com/server/AddInFactory.h"
#include "com/server/Module.h"
#include "com/server/Registration.h"
#include "platform/win32/ModuleRef.h"

STDAPI DllCanUnloadNow() { return kestrel::win32::ModuleRef::InUse() ? S_FALSE : S_OK; }

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (clsid != CLSID_clsKestrelDll) return CLASS_E_CLASSNOTAVAILABLE;
    return kestrel::com::AddInFactory::Create(iid, object);
}

STDAPI DllRegisterServer() { return kestrel::com::RegisterServer(); }

STDAPI DllUnregisterServer() { return kestrel::com::UnregisterServer(); }
