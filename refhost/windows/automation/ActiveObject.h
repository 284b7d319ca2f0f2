#pragma once

#include <windows.h>
#include <oleauto.h>

namespace refhost::automation {

/// Lists an Application object as the running host while it lives, so that clients find it by
/// name. Of several hosts the first that was listed is found. The list holds the object weakly:
/// being listed keeps no host running.
class ActiveObject {
 public:
    explicit ActiveObject(IUnknown& application, const CLSID& clsid) {
        // Without the listing the host is still found by its class, so a failure is no failure.
        if (FAILED(RegisterActiveObject(&application, clsid, ACTIVEOBJECT_WEAK, &cookie_)))
            cookie_ = 0;
    }
    ~ActiveObject() {
        if (cookie_ != 0) static_cast<void>(RevokeActiveObject(cookie_, nullptr));  // going anyway
    }
    ActiveObject(const ActiveObject&) = delete;
    ActiveObject& operator=(const ActiveObject&) = delete;

 private:
    DWORD cookie_ = 0;
};

}  // namespace refhost::automation
