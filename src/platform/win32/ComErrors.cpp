#include "platform/win32/ComErrors.h"

#include <exception>
#include <new>
#include <string>

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
        try {
            return FailWith(
                E_UNEXPECTED, origin,
                std::string("The risk factors add-in has met a fault of its own: ") + error.what());
        } catch (const std::bad_alloc&) {
            return FailWith(E_UNEXPECTED, origin, error.what());
        }
    } catch (...) {
        return FailWith(E_UNEXPECTED, origin,
                        "The risk factors add-in has met a fault of its own.");
    }
}

}  // namespace kestrel::win32
