#pragma once

#include <string>

#include "platform/win32/ComErrors.h"
#include "refhost/windows/automation/Invocation.h"

namespace refhost::automation {

inline constexpr kestrel::win32::ErrorOrigin kHostOrigin{IID_IDispatch, L"Schedulon.Application",
                                                         "The host"};

/// Runs what may raise at the edge to COM, where no exception may pass. For IDispatch::Invoke,
/// which has places for what it tells of a failure.
template <class Body>
HRESULT Guarded(EXCEPINFO* failure, Body&& body, UINT* badArgument = nullptr) noexcept {
    try {
        body();
        return S_OK;
    } catch (const CallFailure& wrong) {
        if (badArgument) *badArgument = wrong.argument;
        return wrong.code;
    } catch (...) {
        return kestrel::win32::TranslateException(kHostOrigin, failure);
    }
}

/// What an object that was called tells of its failure, in a sentence; without one `otherwise` and
/// what the system says of the code.
std::string SentenceOf(HRESULT result, kestrel::win32::ExceptionInfo& failure,
                       const std::string& otherwise);

}  // namespace refhost::automation
