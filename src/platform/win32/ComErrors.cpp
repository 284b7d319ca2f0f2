#include "platform/win32/ComErrors.h"

#include <exception>
#include <new>
#include <string>
#include <utility>

#include "base/Errors.h"
#include "platform/win32/Bstr.h"
#include "platform/win32/ComPtr.h"

namespace kestrel::win32 {
namespace {

/// Nothing when there is no memory for it.
ComPtr<IErrorInfo> MakeErrorInfo(const ErrorOrigin& origin, std::string_view sentence) {
    Bstr source{std::wstring_view(origin.source)};
    Bstr description(sentence);
    ComPtr<ICreateErrorInfo> filled;
    if (FAILED(CreateErrorInfo(filled.Out())) || FAILED(filled->SetGUID(origin.iid)) ||
        FAILED(filled->SetSource(source.Get())) ||
        FAILED(filled->SetDescription(description.Get())))
        return nullptr;
    return filled.As<IErrorInfo>(IID_IErrorInfo);
}

HRESULT FailWithFault(const ErrorOrigin& origin, const char* link, const char* what) noexcept {
    try {
        return FailWith(E_UNEXPECTED, origin,
                        origin.program + std::string(" has met a fault of its own") + link + what);
    } catch (const std::bad_alloc&) {
        return FailWith(E_UNEXPECTED, origin, what);
    }
}

}  // namespace

HRESULT FailWith(HRESULT code, const ErrorOrigin& origin, std::string_view sentence) noexcept {
    ComPtr<IErrorInfo> info;
    try {
        info = MakeErrorInfo(origin, sentence);
    } catch (const std::bad_alloc&) {
        // The code alone has to do.
    }
    static_cast<void>(SetErrorInfo(0, info.Get()));  // cannot fail: its argument must be 0, and is
    return code;
}

HRESULT TranslateException(const ErrorOrigin& origin) noexcept {
    try {
        throw;
    } catch (const HostError& error) {
        return FailWith(kHostFailed, origin, error.what());
    } catch (const DataError& error) {
        return FailWith(kUnreadable, origin, error.what());
    } catch (const std::bad_alloc&) {
        return FailWith(E_OUTOFMEMORY, origin, "There is not enough memory left for this.");
    } catch (const std::exception& error) {
        return FailWithFault(origin, ": ", error.what());
    } catch (...) {
        return FailWithFault(origin, ".", "");
    }
}

HRESULT TranslateException(const ErrorOrigin& origin, EXCEPINFO* failure) noexcept {
    const HRESULT code = TranslateException(origin);
    ComPtr<IErrorInfo> error;
    if (!failure || GetErrorInfo(0, error.Out()) != S_OK) return code;
    *failure = {};
    failure->scode = code;
    static_cast<void>(error->GetSource(&failure->bstrSource));  // a failure leaves no text
    static_cast<void>(error->GetDescription(&failure->bstrDescription));
    return DISP_E_EXCEPTION;
}

void ExceptionInfo::FillIn() {
    auto* fill = std::exchange(pfnDeferredFillIn, nullptr);
    if (fill && FAILED(fill(this))) FreeStrings();
}

std::string ExceptionInfo::Description() const {
    return bstrDescription ? Utf8({bstrDescription, SysStringLen(bstrDescription)}) : std::string();
}

void ExceptionInfo::FreeStrings() {
    for (BSTR* text : {&bstrSource, &bstrDescription, &bstrHelpFile})
        SysFreeString(std::exchange(*text, nullptr));
}

}  // namespace kestrel::win32
