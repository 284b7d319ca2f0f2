#pragma once

#include <windows.h>
// windows.h first
#include <oaidl.h>

#include "com/automation/Dispatch.h"
#include "com/automation/EventInterface.h"
#include "host/HostModel.h"
#include "platform/win32/ModuleRef.h"

namespace kestrel::com {

/// The object that the host calls for each of its events: IUnknown, IDispatch and, by its id, the
/// host's source interface. Hands the three analysis events to a listener until Disconnect();
/// what the listener throws becomes a failing HRESULT with a description, and so does an event that
/// comes while another is being delivered. The host may hold the
/// object for longer than the listener lives and may call it then: nothing happens.
class EventSink final : public IDispatch {
 public:
    EventSink(const EventInterface& source, ConnectionPtr connection,
              host::AnalysisEvents& listener)
        : source_(source), connection_(std::move(connection)), listener_(&listener) {}

    host::AnalysisEvents* Listener() const { return listener_; }
    /// Forgets the listener, also in the middle of an event.
    void Disconnect() noexcept;

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override;
    ULONG STDMETHODCALLTYPE Release() noexcept override;

    // IDispatch
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale,
                                          ITypeInfo** type) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count,
                                            LCID locale, DISPID* ids) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* answer, EXCEPINFO* failure,
                                     UINT* wrongArgument) noexcept override;

 private:
    ~EventSink() = default;
    void Deliver(AnalysisEvent event, const DISPPARAMS* parameters);
    host::PlanPtr PlanOf(const DISPPARAMS* parameters);

    LONG references_ = 0;
    win32::ModuleRef module_;  // the host may hold the sink when all else is gone
    EventInterface source_;
    ConnectionPtr connection_;
    host::AnalysisEvents* listener_;
    bool delivering_ = false;
    // The plan of the latest event: a thousand iterations bring the same one.
    win32::ComPtr<IDispatch> planObject_;
    host::PlanPtr plan_;
};

}  // namespace kestrel::com
