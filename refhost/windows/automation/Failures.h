#pragma once

#include <windows.h>
// windows.h first
#include <oaidl.h>

#include <string>

#include "refhost/windows/automation/Invocation.h"

namespace refhost::automation {

/// Turns the exception being handled into what IDispatch::Invoke answers: its sentence goes into
/// `failure` (which may be nothing) and, for callers that look there, into the thread's error
/// object.
HRESULT TranslateException(EXCEPINFO* failure, UINT* badArgument) noexcept;

/// Runs what may raise at the edge to COM, where no exception may pass.
template <class Body>
HRESULT Guarded(EXCEPINFO* failure, Body&& body, UINT* badArgument = nullptr) noexcept {
    try {
        body();
        return S_OK;
    } catch (...) {
        return TranslateException(failure, badArgument);
    }
}

/// What an object that was called tells of its failure.
struct FailureReport : EXCEPINFO {
    FailureReport() : EXCEPINFO{} {}
    ~FailureReport();
    FailureReport(const FailureReport&) = delete;
    FailureReport& operator=(const FailureReport&) = delete;

    /// The object's own sentence; without one `otherwise` and what the system says of the code.
    std::string Sentence(HRESULT result, const std::string& otherwise);
};

}  // namespace refhost::automation
