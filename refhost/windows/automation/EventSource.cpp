#include "refhost/windows/automation/EventSource.h"

#include <algorithm>
#include <optional>

#include "base/Errors.h"
#include "platform/win32/Enumerator.h"
#include "refhost/windows/automation/DispatchIds.h"
#include "refhost/windows/automation/Failures.h"

#include <Schedulon.h>

namespace refhost::automation {

using kestrel::win32::ComPtr;

namespace {

struct ConnectionTraits {
    using Interface = IEnumConnections;
    using Element = std::pair<DWORD, ComPtr<IDispatch>>;
    using Out = CONNECTDATA;
    static void Copy(const Element& element, CONNECTDATA& out) {
        out.dwCookie = element.first;
        out.pUnk = ComPtr<IDispatch>(element.second).Detach();
    }
};

HRESULT Call(IDispatch& sink, DISPID event, IDispatch* plan,
             kestrel::win32::ExceptionInfo& failure) {
    VARIANTARG argument;  // borrowed: the sink adds its own reference
    argument.vt = VT_DISPATCH;
    argument.pdispVal = plan;
    DISPPARAMS arguments{&argument, nullptr, 1, 0};
    return sink.Invoke(event, IID_NULL, LOCALE_NEUTRAL, DISPATCH_METHOD, &arguments, nullptr,
                       &failure, nullptr);
}

bool HasGone(HRESULT result) {
    return result == RPC_E_DISCONNECTED || result == RPC_E_SERVER_DIED ||
           result == RPC_E_SERVER_DIED_DNE || result == CO_E_OBJNOTCONNECTED ||
           result == HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE);
}

}  // namespace

EventSource::EventSource(AutomationServer& server, IUnknown& owner,
                         IConnectionPointContainer& container)
    : server_(server), owner_(owner), container_(container), host_(&server.Host()) {
    host_->Subscribe(*this);
}

EventSource::~EventSource() { Disconnect(); }

void EventSource::Disconnect() {
    if (ReferenceHost* host = std::exchange(host_, nullptr)) host->Unsubscribe(*this);
}

HRESULT EventSource::QueryInterface(REFIID iid, void** object) noexcept {
    using namespace kestrel::win32;
    return AnswerInterface(FindInterface<IConnectionPoint>(this, iid), object);
}

HRESULT EventSource::GetConnectionInterface(IID* iid) noexcept {
    if (!iid) return E_POINTER;
    *iid = DIID__ApplicationEvents;
    return S_OK;
}

HRESULT EventSource::GetConnectionPointContainer(IConnectionPointContainer** container) noexcept {
    if (!container) return E_POINTER;
    container_.AddRef();
    *container = &container_;
    return S_OK;
}

HRESULT EventSource::Advise(IUnknown* sink, DWORD* cookie) noexcept {
    if (!sink || !cookie) return E_POINTER;
    *cookie = 0;
    ComPtr<IDispatch> events;
    if (FAILED(sink->QueryInterface(DIID__ApplicationEvents, events.OutVoid())) &&
        FAILED(sink->QueryInterface(IID_IDispatch, events.OutVoid())))
        return CONNECT_E_CANNOTCONNECT;
    return Guarded(nullptr, [&] {
        Connections changed = *connections_;
        changed.push_back({lastCookie_ + 1, std::move(events)});
        connections_ = std::make_shared<const Connections>(std::move(changed));
        *cookie = ++lastCookie_;
    });
}

HRESULT EventSource::Unadvise(DWORD cookie) noexcept {
    if (!IsConnected(cookie)) return CONNECT_E_NOCONNECTION;
    return Guarded(nullptr, [&] { Remove(cookie); });
}

HRESULT EventSource::EnumConnections(IEnumConnections** connections) noexcept {
    if (!connections) return E_POINTER;
    *connections = nullptr;
    return Guarded(nullptr, [&] {
        std::vector<ConnectionTraits::Element> elements;
        for (const auto& connection : *connections_)
            elements.emplace_back(connection.cookie, connection.sink);
        *connections =
            kestrel::win32::Enumerator<ConnectionTraits>::Make(std::move(elements)).Detach();
    });
}

bool EventSource::IsConnected(DWORD cookie) const {
    return std::any_of(connections_->begin(), connections_->end(),
                       [&](const Connection& c) { return c.cookie == cookie; });
}

void EventSource::Remove(DWORD cookie) {
    Connections changed = *connections_;
    std::erase_if(changed, [&](const Connection& c) { return c.cookie == cookie; });
    const auto held =
        std::exchange(connections_, std::make_shared<const Connections>(std::move(changed)));
}

void EventSource::PlanBeforeRiskAnalysis(const host::PlanPtr&) {
    Raise(ID_EVENT_PLANBEFORERISKANALYSIS, "PlanBeforeRiskAnalysis");
}

void EventSource::PlanAfterRiskIteration(const host::PlanPtr&) {
    Raise(ID_EVENT_PLANAFTERRISKITERATION, "PlanAfterRiskIteration");
}

void EventSource::PlanAfterRiskAnalysis(const host::PlanPtr&) {
    Raise(ID_EVENT_PLANAFTERRISKANALYSIS, "PlanAfterRiskAnalysis");
}

void EventSource::Raise(DISPID event, const char* name) {
    const auto connections = connections_;
    if (connections->empty()) return;
    const ComPtr<IUnknown> alive(&owner_);  // a sink may hold the last reference, and let it go
    const ComPtr<IDispatch> plan = server_.ActivePlan();
    std::optional<std::string> firstFailure;
    for (const Connection& connection : *connections) {
        if (!IsConnected(connection.cookie)) continue;  // has left during this event
        kestrel::win32::ExceptionInfo failure;
        const HRESULT result = Call(*connection.sink.Get(), event, plan.Get(), failure);
        if (SUCCEEDED(result)) continue;
        if (!firstFailure)
            firstFailure = SentenceOf(result, failure, std::string("A listener failed in ") + name);
        if (HasGone(result)) Remove(connection.cookie);
    }
    if (firstFailure) throw kestrel::HostError(*firstFailure);
}

}  // namespace refhost::automation
