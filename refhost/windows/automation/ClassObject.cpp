#include "refhost/windows/automation/ClassObject.h"

#include "base/Errors.h"
#include "platform/win32/SystemMessage.h"
#include "refhost/windows/automation/Failures.h"

#include <Schedulon.h>

namespace refhost::automation {

using kestrel::win32::ComPtr;

namespace {

class ClassFactory final : public IClassFactory {
 public:
    ClassFactory(std::shared_ptr<AutomationServer> server, ClassObject::Served served)
        : server_(std::move(server)), served_(std::move(served)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (iid != IID_IUnknown && iid != IID_IClassFactory) return E_NOINTERFACE;
        AddRef();
        *object = static_cast<IClassFactory*>(this);
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override {
        return static_cast<ULONG>(InterlockedIncrement(&references_));
    }
    ULONG STDMETHODCALLTYPE Release() noexcept override {
        const LONG left = InterlockedDecrement(&references_);
        if (left == 0) delete this;
        return static_cast<ULONG>(left);
    }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid,
                                             void** object) noexcept override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        HRESULT result = E_UNEXPECTED;
        const HRESULT made = Guarded(nullptr, [&] {
            const ComPtr<IDispatch> application = server_->Application();
            result = application->QueryInterface(iid, object);
            if (SUCCEEDED(result) && served_) served_(*application);
        });
        return FAILED(made) ? made : result;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override {
        return Guarded(nullptr, [&] {
            if (lock)
                server_->AddUse();
            else
                server_->DropUse();
        });
    }

 private:
    const std::shared_ptr<AutomationServer> server_;
    const ClassObject::Served served_;
    LONG references_ = 1;
};

[[noreturn]] void Refuse(HRESULT result) {
    throw kestrel::HostError("The host cannot be offered to other programs: " +
                             kestrel::win32::SystemMessage(static_cast<DWORD>(result)) + ".");
}

}  // namespace

ComPtr<IUnknown> MakeClassFactory(std::shared_ptr<AutomationServer> server,
                                  ClassObject::Served served) {
    return ComPtr<IUnknown>::Attach(new ClassFactory(std::move(server), std::move(served)));
}

ClassObject::ClassObject(std::shared_ptr<AutomationServer> server, Served served) {
    const HRESULT result = CoRegisterClassObject(
        CLSID_Application, MakeClassFactory(std::move(server), std::move(served)).Get(),
        CLSCTX_LOCAL_SERVER, REGCLS_SINGLEUSE | REGCLS_SUSPENDED, &cookie_);
    if (FAILED(result)) Refuse(result);
}

ClassObject::~ClassObject() {
    static_cast<void>(CoRevokeClassObject(cookie_));  // one that has served is revoked already
}

void ClassObject::Resume() {
    if (const HRESULT result = CoResumeClassObjects(); FAILED(result)) Refuse(result);
}

}  // namespace refhost::automation
