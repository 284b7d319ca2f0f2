#pragma once

#include <windows.h>
// windows.h first
#include <oaidl.h>

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

}  // namespace refhost::automation
