#pragma once

#include <windows.h>
// windows.h first
#include <oaidl.h>

#include <functional>

namespace kestrel::test {

/// What a host hands over as the add-in's site: an object with the one member `ActivePlan`, which
/// cannot be read. Lives on the test's stack and counts who holds it.
class FakeHostObject : public IDispatch {
 public:
    /// Called whenever somebody looks a member up.
    std::function<void()> onLookUp;
    bool isHost = true;  ///< whether it knows `ActivePlan`
    ULONG references = 0;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override {
        const bool known = iid == IID_IUnknown || iid == IID_IDispatch;
        *object = known ? this : nullptr;
        if (!known) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return --references; }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID,
                                            DISPID* ids) noexcept override {
        if (onLookUp) onLookUp();
        const bool known = isHost && wcscmp(names[0], L"ActivePlan") == 0;
        *ids = known ? 1 : DISPID_UNKNOWN;
        return known ? S_OK : DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) noexcept override {
        return E_FAIL;
    }
};

}  // namespace kestrel::test
