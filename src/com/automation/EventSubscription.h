#pragma once

#include "com/automation/AdviseCookie.h"
#include "com/automation/Dispatch.h"
#include "com/automation/EventSink.h"
#include "host/HostModel.h"

namespace kestrel::com {

/// Events of the host on their way to one listener, until this is destroyed.
class EventSubscription {
 public:
    /// HostError, with nothing left connected, when the host's events cannot be had.
    EventSubscription(const Dispatch& application, host::AnalysisEvents& listener);
    EventSubscription(EventSubscription&&) noexcept = default;
    EventSubscription& operator=(EventSubscription&&) noexcept = default;
    ~EventSubscription();

    bool IsFor(const host::AnalysisEvents& listener) const {
        return sink_->Listener() == &listener;
    }

 private:
    win32::ComPtr<EventSink> sink_;
    AdviseCookie cookie_;
};

}  // namespace kestrel::com
