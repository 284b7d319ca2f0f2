#pragma once

#include <windows.h>
#include <ocidl.h>

#include <utility>

#include "platform/win32/ComPtr.h"

namespace kestrel::com {

/// A sink's connection to a connection point, ended by the destructor.
class AdviseCookie {
 public:
    AdviseCookie() = default;
    AdviseCookie(AdviseCookie&& other) noexcept
        : point_(std::move(other.point_)), cookie_(other.cookie_) {}
    AdviseCookie& operator=(AdviseCookie&& other) noexcept {
        std::swap(point_, other.point_);
        std::swap(cookie_, other.cookie_);
        return *this;
    }
    ~AdviseCookie() {
        // A point that fails to let go belongs to a host that is gone; there is nobody to tell.
        if (point_) static_cast<void>(point_->Unadvise(cookie_));
    }

    /// Connects the sink. Leaves nothing connected when it fails.
    HRESULT Advise(win32::ComPtr<IConnectionPoint> point, IUnknown& sink) {
        const HRESULT result = point->Advise(&sink, &cookie_);
        if (SUCCEEDED(result)) point_ = std::move(point);
        return result;
    }

 private:
    win32::ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

}  // namespace kestrel::com
