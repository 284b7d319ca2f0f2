// What the system calls by name. There is no DllMain: nothing has to be done when the DLL is
// loaded, and little could be done safely at that time.
#include <windows.h>
#include <olectl.h>

#include <KestrelDll.h>

#include "com/server/AddInObject.h"
#include "com/server/Module.h"
#include "platform/win32/ClassFactory.h"
#include "platform/win32/ClassRegistration.h"

namespace {

using kestrel::win32::ClassFactory;
using kestrel::win32::ClassRegistration;
using kestrel::win32::MakeCom;
using kestrel::win32::ModuleRef;

constexpr kestrel::win32::ErrorOrigin kOrigin{IID_IClassFactory, L"KestrelDll.clsKestrelDll"};

ClassRegistration Registration() {
    return ClassRegistration({CLSID_clsKestrelDll, L"KestrelDll.clsKestrelDll",
                              L"The risk factors add-in", LIBID_KestrelDll,
                              ClassRegistration::Server::Dll, kestrel::com::OwnPath()});
}

void CountLock(bool taken) { taken ? ModuleRef::Lock() : ModuleRef::Unlock(); }

}  // namespace

STDAPI DllCanUnloadNow() { return ModuleRef::InUse() ? S_FALSE : S_OK; }

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) noexcept try {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (clsid != CLSID_clsKestrelDll) return CLASS_E_CLASSNOTAVAILABLE;
    return MakeCom<ClassFactory>(kOrigin, kestrel::com::AddInObject::Create, CountLock)
        ->QueryInterface(iid, object);
}
KESTREL_COM_CATCH(kOrigin)

STDAPI DllRegisterServer() noexcept try { return Registration().Register(); }
KESTREL_COM_CATCH(kOrigin)

STDAPI DllUnregisterServer() noexcept try { return Registration().Unregister(); }
KESTREL_COM_CATCH(kOrigin)
