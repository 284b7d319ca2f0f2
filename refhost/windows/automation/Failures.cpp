#include "refhost/windows/automation/Failures.h"

#include <exception>
#include <new>

#include "platform/win32/Bstr.h"

namespace refhost::automation {

using kestrel::win32::Bstr;
using kestrel::win32::ComPtr;

namespace {

constexpr const wchar_t* kSource = L"Schedulon.Application";
/// The one code of the host's own errors; they are told apart by their sentences.
constexpr HRESULT kHostFailure = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, 0x200);

/// A caller that gets no error object still gets the code.
void LeaveErrorObject(const Bstr& description) {
    ComPtr<ICreateErrorInfo> made;
    if (FAILED(CreateErrorInfo(made.Out()))) return;
    static_cast<void>(made->SetSource(const_cast<wchar_t*>(kSource)));
    static_cast<void>(made->SetDescription(description.Get()));
    static_cast<void>(SetErrorInfo(0, made.As<IErrorInfo>(IID_IErrorInfo).Get()));
}

HRESULT Tell(EXCEPINFO* failure, const char* sentence) {
    Bstr description{std::string_view(sentence)};
    LeaveErrorObject(description);
    if (failure) {
        *failure = {};
        failure->bstrSource = Bstr(std::wstring_view(kSource)).Detach();
        failure->bstrDescription = description.Detach();
        failure->scode = kHostFailure;
    }
    return DISP_E_EXCEPTION;
}

}  // namespace

HRESULT TranslateException(EXCEPINFO* failure, UINT* badArgument) noexcept {
    try {
        throw;
    } catch (const CallFailure& wrong) {
        if (badArgument) *badArgument = wrong.argument;
        return wrong.code;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (const std::exception& error) {
        try {
            return Tell(failure, error.what());
        } catch (...) {
            return E_OUTOFMEMORY;
        }
    } catch (...) {
        return E_UNEXPECTED;
    }
}

}  // namespace refhost::automation
