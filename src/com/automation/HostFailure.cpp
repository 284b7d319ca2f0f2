#include "com/automation/HostFailure.h"

#include <string>

#include "base/Errors.h"
#include "base/Text.h"
#include "platform/win32/Bstr.h"
#include "platform/win32/ComPtr.h"
#include "platform/win32/SystemMessage.h"

namespace kestrel::com {
namespace {

using win32::Bstr;
using win32::ComPtr;

const char* VerbFor(HostAction action) {
    switch (action) {
        case HostAction::Find:
            return "The host could not find ";
        case HostAction::Read:
            return "The host could not read ";
        case HostAction::Put:
            return "The host could not set ";
        case HostAction::Run:
            break;
    }
    return "The host could not run ";
}

/// What the object itself left in the thread's error object. An object that does not say that it
/// leaves one may have met somebody else's, of an earlier failure.
std::string ErrorObjectText(IDispatch* object) {
    const auto supports = ComPtr<IDispatch>(object).As<ISupportErrorInfo>();
    if (!supports || supports->InterfaceSupportsErrorInfo(IID_IDispatch) != S_OK) return {};
    ComPtr<IErrorInfo> error;
    Bstr text;
    if (GetErrorInfo(0, error.Out()) != S_OK || FAILED(error->GetDescription(text.Out())))
        return {};
    return text.Utf8();
}

HRESULT CodeOf(HRESULT result, const ExceptionInfo& info) {
    if (result != DISP_E_EXCEPTION) return result;
    if (FAILED(info.scode)) return info.scode;
    // Older hosts give an error number of their own in place of an HRESULT.
    return info.wCode != 0 ? MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, info.wCode) : result;
}

std::string Reason(HRESULT result, const ExceptionInfo& info, IDispatch* object) {
    const std::string text(TrimmedEnd(
        result == DISP_E_EXCEPTION ? info.Description() : ErrorObjectText(object), kSentenceEnd));
    return text.empty() ? win32::SystemMessage(CodeOf(result, info)) : text;
}

}  // namespace

void RaiseHostFailure(HostAction action, HostMember member, HRESULT result,
                      const ExceptionInfo& info, IDispatch* object) {
    throw HostError(VerbFor(action) + std::string(FullNameOf(member)) + ": " +
                    Reason(result, info, object) + ".");
}

void RaiseHostAnswer(HostMember member, const std::string& what) {
    throw HostError(std::string("The host answered ") + FullNameOf(member) + " with " + what + ".");
}

bool MeansNotFound(HRESULT result, const ExceptionInfo& info) {
    const HRESULT code = CodeOf(result, info);
    switch (code) {
        case DISP_E_BADINDEX:
        case TYPE_E_ELEMENTNOTFOUND:
        case E_INVALIDARG:
        case E_FAIL:
            return true;
        case E_OUTOFMEMORY:
        case E_ACCESSDENIED:
        case E_UNEXPECTED:
            return false;
        default:
            return HRESULT_FACILITY(code) != FACILITY_RPC &&
                   (result == DISP_E_EXCEPTION || code == HRESULT_FROM_WIN32(ERROR_NOT_FOUND));
    }
}

}  // namespace kestrel::com
