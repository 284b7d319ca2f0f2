#include "com/server/AddInFactory.h"

#include <new>

#include "com/server/AddInObject.h"

namespace kestrel::com {

HRESULT AddInFactory::Create(REFIID iid, void** object) noexcept {
    auto* factory = new (std::nothrow) AddInFactory;
    if (!factory) return E_OUTOFMEMORY;
    const HRESULT result = factory->QueryInterface(iid, object);
    factory->Release();
    return result;
}

HRESULT AddInFactory::QueryInterface(REFIID iid, void** object) noexcept {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IClassFactory) return E_NOINTERFACE;
    *object = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
}

ULONG AddInFactory::Release() noexcept {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT AddInFactory::CreateInstance(IUnknown* outer, REFIID iid, void** object) noexcept {
    return AddInObject::Create(outer, iid, object);
}

HRESULT AddInFactory::LockServer(BOOL lock) noexcept {
    if (lock)
        win32::ModuleRef::Lock();
    else
        win32::ModuleRef::Unlock();
    return S_OK;
}

}  // namespace kestrel::com
