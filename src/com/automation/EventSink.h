#pragma once

#include <windows.h>
#include <oaidl.h>

#include "com/automation/Dispatch.h"
#include "com/automation/EventInterface.h"
#include "host/HostModel.h"
#include "platform/win32/ComObject.h"

namespace kestrel::com {

/// The object that the host calls for each of its events: IUnknown, IDispatch and, by its id, the
/// host's source interface. Hands the three analysis events to a listener until Disconnect();
/// what the listener throws becomes a failing HRESULT with a description, and so does an event that
/// comes while another is being delivered. The host may hold the
/// object for longer than the listener lives and may call it then: nothing happens.
class EventSink final : public win32::WithoutTypes<win32::ComObject<IDispatch>> {
 public:
    EventSink(const EventInterface& source, ConnectionPtr connection,
              host::AnalysisEvents& listener)
        : source_(source), connection_(std::move(connection)), listener_(&listener) {}

    host::AnalysisEvents* Listener() const { return listener_; }
    /// Forgets the listener, also in the middle of an event.
    void Disconnect() noexcept;

    // IDispatch; the host calls by the ids of its own interface
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* answer, EXCEPINFO* failure,
                                     UINT* wrongArgument) noexcept override;

 private:
    IUnknown* OtherInterface(REFIID id) noexcept override {
        return id == source_.id ? this : nullptr;
    }
    void Deliver(AnalysisEvent event, const DISPPARAMS* parameters);
    host::PlanPtr PlanOf(const DISPPARAMS* parameters);

    EventInterface source_;
    ConnectionPtr connection_;
    host::AnalysisEvents* listener_;
    bool delivering_ = false;
    // The plan of the latest event: a thousand iterations bring the same one.
    win32::ComPtr<IDispatch> planObject_;
    host::PlanPtr plan_;
};

}  // namespace kestrel::com
