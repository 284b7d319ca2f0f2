#pragma once

#include <windows.h>
#include <ocidl.h>
#include <olectl.h>

#include <memory>
#include <string>
#include <vector>

#include "host/HostModel.h"
#include "platform/win32/ComPtr.h"
#include "refhost/windows/automation/AutomationServer.h"

namespace refhost::automation {

/// The connection point of the Application object: raises the host's analysis events to every
/// connected sink. It is part of the Application object and shares its reference count.
///
/// All sinks hear of an event even when one of them fails; then the first failure is raised as
/// kestrel::HostError with the sink's description. A sink whose process has gone is dropped.
class EventSource final : public IConnectionPoint, private host::AnalysisEvents {
 public:
    EventSource(AutomationServer& server, IUnknown& owner, IConnectionPointContainer& container);
    ~EventSource();
    EventSource(const EventSource&) = delete;
    EventSource& operator=(const EventSource&) = delete;

    /// Ends the subscription to the host, which is about to go.
    void Disconnect();

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return owner_.AddRef(); }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return owner_.Release(); }

    // IConnectionPoint
    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) noexcept override;
    HRESULT STDMETHODCALLTYPE
    GetConnectionPointContainer(IConnectionPointContainer** container) noexcept override;
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) noexcept override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) noexcept override;
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) noexcept override;

 private:
    struct Connection {
        DWORD cookie;
        kestrel::win32::ComPtr<IDispatch> sink;
    };
    using Connections = std::vector<Connection>;

    void PlanBeforeRiskAnalysis(const host::PlanPtr& plan) override;
    void PlanAfterRiskIteration(const host::PlanPtr& plan) override;
    void PlanAfterRiskAnalysis(const host::PlanPtr& plan) override;
    void Raise(DISPID event, const char* name);
    bool IsConnected(DWORD cookie) const;
    void Remove(DWORD cookie);

    AutomationServer& server_;
    IUnknown& owner_;
    IConnectionPointContainer& container_;
    /// Replaced, never changed: sinks connect and leave while an event goes round.
    std::shared_ptr<const Connections> connections_ = std::make_shared<const Connections>();
    DWORD lastCookie_ = 0;
    ReferenceHost* host_;  ///< subscribed to
};

}  // namespace refhost::automation
