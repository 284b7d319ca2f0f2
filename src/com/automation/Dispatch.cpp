#include "com/automation/Dispatch.h"

namespace kestrel::com {
namespace {

using win32::ComPtr;
using win32::Variant;

/// Whether a member is a property or a function is the host's affair, so a call that wants an
/// answer asks for either, as every script does.
WORD FlagsFor(HostAction action) {
    switch (action) {
        case HostAction::Put:
            return DISPATCH_PROPERTYPUT;
        case HostAction::Run:
            return DISPATCH_METHOD;
        default:
            return DISPATCH_METHOD | DISPATCH_PROPERTYGET;
    }
}

}  // namespace

const win32::Bstr& HostConnection::SlotName(const std::string& name) {
    const auto found = slotNames_.find(name);
    return found != slotNames_.end() ? found->second
                                     : slotNames_.emplace(name, win32::Bstr(name)).first->second;
}

HRESULT Dispatch::TryInvoke(HostAction action, HostMember member, VARIANT* answer,
                            VARIANT* arguments, std::size_t count, ExceptionInfo& info) const {
    const win32::FloatingPointBorder::InHost floatingPoint(*connection_->border);
    const DISPID id = connection_->ids.Of(*object_, member);
    DISPID putName = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{arguments, nullptr, static_cast<UINT>(count), 0};
    if (action == HostAction::Put) {
        parameters.rgdispidNamedArgs = &putName;
        parameters.cNamedArgs = 1;
    }
    UINT wrongArgument = 0;
    const HRESULT result = object_->Invoke(id, IID_NULL, kHostLocale, FlagsFor(action), &parameters,
                                           answer, &info, &wrongArgument);
    if (result == DISP_E_EXCEPTION) info.FillIn();
    return result;
}

void Dispatch::Perform(HostAction action, HostMember member, VARIANT* answer, VARIANT* arguments,
                       std::size_t count) const {
    ExceptionInfo info;
    const HRESULT result = TryInvoke(action, member, answer, arguments, count, info);
    if (FAILED(result)) RaiseHostFailure(action, member, result, info, Object());
}

double Dispatch::Number(HostMember member) const {
    Variant answer;
    Invoke(HostAction::Read, member, &answer);
    return NumberOf(answer, member);
}

std::int32_t Dispatch::Int32(HostMember member) const {
    Variant answer;
    Invoke(HostAction::Read, member, &answer);
    return Int32Of(answer, member);
}

std::int16_t Dispatch::Int16(HostMember member) const {
    Variant answer;
    Invoke(HostAction::Read, member, &answer);
    return Int16Of(answer, member);
}

bool Dispatch::Truth(HostMember member) const {
    Variant answer;
    Invoke(HostAction::Read, member, &answer);
    return TruthOf(answer, member);
}

Dispatch Dispatch::Find(HostMember member, const Argument& key) const {
    Variant answer;
    ExceptionInfo info;
    Argument list[] = {key};
    const HRESULT result = TryInvoke(HostAction::Read, member, &answer, list, 1, info);
    if (SUCCEEDED(result)) return Wrapped(ObjectOf(answer, member));
    if (MeansNotFound(result, info)) return {};
    RaiseHostFailure(HostAction::Read, member, result, info, Object());
}

void Dispatch::Put(HostMember member, const Argument& value) const {
    Argument list[] = {value};
    Perform(HostAction::Put, member, nullptr, list, 1);
}

void Dispatch::Put(HostMember member, const Argument& key, const Argument& value) const {
    Argument list[] = {value, key};  // the last argument comes first
    Perform(HostAction::Put, member, nullptr, list, 2);
}

ComPtr<IEnumVARIANT> Dispatch::Enumerator(HostMember member) const {
    Variant answer;
    ExceptionInfo info;
    const HRESULT result = TryInvoke(HostAction::Read, member, &answer, nullptr, 0, info);
    if (result == DISP_E_MEMBERNOTFOUND) return nullptr;
    if (FAILED(result)) RaiseHostFailure(HostAction::Read, member, result, info, Object());
    if ((answer.vt != VT_UNKNOWN && answer.vt != VT_DISPATCH) || !answer.punkVal) return nullptr;
    return ComPtr<IUnknown>(answer.punkVal).As<IEnumVARIANT>();
}

}  // namespace kestrel::com
