#include "refhost/windows/automation/Failures.h"

#include <exception>
#include <new>

#include "platform/win32/Bstr.h"
#include "platform/win32/ComErrors.h"
#include "platform/win32/SystemMessage.h"

namespace refhost::automation {

using kestrel::win32::Bstr;

namespace {

constexpr const wchar_t* kSource = L"Schedulon.Application";
/// The one code of the host's own errors; they are told apart by their sentences.
constexpr HRESULT kHostFailure = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, 0x200);

/// For callers that take the failure from the call, and for those that ask for an error object.
HRESULT Tell(EXCEPINFO* failure, const char* sentence) {
    if (failure) {
        Bstr description{std::string_view(sentence)};
        *failure = {};
        failure->bstrSource = Bstr(std::wstring_view(kSource)).Detach();
        failure->bstrDescription = description.Detach();
        failure->scode = kHostFailure;
    }
    return kestrel::win32::FailWith(DISP_E_EXCEPTION, {IID_IDispatch, kSource}, sentence);
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

FailureReport::~FailureReport() {
    SysFreeString(bstrSource);
    SysFreeString(bstrDescription);
    SysFreeString(bstrHelpFile);
}

std::string FailureReport::Sentence(HRESULT result, const std::string& otherwise) {
    if (pfnDeferredFillIn) static_cast<void>(pfnDeferredFillIn(this));  // else there is no text
    if (result == DISP_E_EXCEPTION && SysStringLen(bstrDescription) > 0)
        return kestrel::win32::Utf8({bstrDescription, SysStringLen(bstrDescription)});
    return otherwise + ": " + kestrel::win32::SystemMessage(static_cast<DWORD>(result)) + ".";
}

}  // namespace refhost::automation
