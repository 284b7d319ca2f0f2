#pragma once

#include <windows.h>
#include <objbase.h>

namespace kestrel::win32 {

/// COM on this thread for as long as the object lives, whether or not the caller has started it:
/// a thread that already has it keeps the apartment that it has.
class ComApartment {
 public:
    ComApartment() : result_(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
    ~ComApartment() {
        // S_FALSE, "started before", counts as well. A thread of the other kind of apartment
        // answers a failure: it has COM, and nothing to undo.
        if (SUCCEEDED(result_)) CoUninitialize();
    }
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;

 private:
    const HRESULT result_;
};

}  // namespace kestrel::win32
