#include "refhost/windows/automation/AutomationObject.h"

#include <exception>

#include "platform/win32/Bstr.h"
#include "refhost/windows/automation/DispatchIds.h"
#include "refhost/windows/automation/Failures.h"

namespace refhost::automation {

AutomationObject::AutomationObject(std::shared_ptr<AutomationServer> server, const IID& iid)
    : server_(std::move(server)), iid_(iid) {
    server_->AddUse();
}

AutomationObject::~AutomationObject() { server_->DropUse(); }

IUnknown* AutomationObject::OtherInterface(REFIID iid) noexcept {
    return iid == iid_ ? AsDispatch() : nullptr;
}

HRESULT AutomationObject::GetTypeInfoCount(UINT* count) noexcept {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT AutomationObject::GetTypeInfo(UINT index, LCID, ITypeInfo** info) noexcept {
    if (!info) return E_POINTER;
    *info = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return Guarded(nullptr, [&] {
        auto found = server_->Types().Info(iid_);
        if (!found) throw CallFailure{TYPE_E_ELEMENTNOTFOUND};
        *info = found.Detach();
    });
}

HRESULT AutomationObject::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                                        DISPID* ids) noexcept {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!names || !ids || count == 0) return E_INVALIDARG;
    kestrel::win32::ComPtr<ITypeInfo> info;
    if (const HRESULT failure = GetTypeInfo(0, LOCALE_NEUTRAL, info.Out()); FAILED(failure))
        return failure;
    return DispGetIDsOfNames(info.Get(), names, count, ids);
}

HRESULT AutomationObject::Invoke(DISPID id, REFIID reserved, LCID, WORD kinds,
                                 DISPPARAMS* arguments, VARIANT* answer, EXCEPINFO* failure,
                                 UINT* badArgument) noexcept {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!arguments) return E_INVALIDARG;
    if (answer) VariantInit(answer);
    server_->CountCall();
    const kestrel::win32::ComPtr<IDispatch> alive(this);  // whatever the member lets go of
    return Guarded(
        failure,
        [&] {
            Invocation call(*arguments, answer);
            Run(id, kinds, call);
        },
        badArgument);
}

void AutomationObject::RunDefault(const VARIANT& object, WORD kinds, Invocation& call) {
    if (!object.pdispVal) throw CallFailure{DISP_E_BADPARAMCOUNT};
    try {
        // Every object that a member answers is one of the host's own.
        static_cast<AutomationObject*>(object.pdispVal)->Run(ID_DEFAULT, kinds, call);
    } catch (const CallFailure& failure) {
        if (failure.code != DISP_E_MEMBERNOTFOUND) throw;
        throw CallFailure{DISP_E_BADPARAMCOUNT};
    }
}

HRESULT AutomationObject::InterfaceSupportsErrorInfo(REFIID iid) noexcept {
    return iid == IID_IDispatch || iid == iid_ ? S_OK : S_FALSE;
}

}  // namespace refhost::automation
