#include "refhost/windows/automation/ClassObject.h"

#include "base/Errors.h"
#include "platform/win32/ClassFactory.h"
#include "platform/win32/SystemMessage.h"
#include "refhost/windows/automation/Failures.h"

#include <Schedulon.h>

namespace refhost::automation {

using kestrel::win32::ComPtr;
using kestrel::win32::MakeCom;

namespace {

[[noreturn]] void Refuse(HRESULT result) {
    throw kestrel::HostError("The host cannot be offered to other programs: " +
                             kestrel::win32::SystemMessage(static_cast<DWORD>(result)) + ".");
}

}  // namespace

ComPtr<IUnknown> MakeClassFactory(std::shared_ptr<AutomationServer> server,
                                  ClassObject::Served served) {
    const auto create = [server, served](IUnknown* outer, REFIID iid, void** object) -> HRESULT {
        if (outer) return CLASS_E_NOAGGREGATION;
        const ComPtr<IDispatch> application = server->Application();
        const HRESULT result = application->QueryInterface(iid, object);
        if (SUCCEEDED(result) && served) served(*application);
        return result;
    };
    const auto lock = [server](bool taken) { taken ? server->AddUse() : server->DropUse(); };
    return MakeCom<kestrel::win32::ClassFactory>(kHostOrigin, create, lock).As<IUnknown>();
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
