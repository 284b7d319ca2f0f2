#pragma once

#include <string>
#include <vector>

#include "windows/support/Interception.h"

/// The event side of a scripted host.
namespace kestrel::test {

/// How the host behaves; the standard is a host that does everything right.
struct EventScript {
    bool describesClass = true;  ///< answers IProvideClassInfo
    bool namesSource = true;     ///< answers GetGUID of IProvideClassInfo2
    bool connects = true;        ///< has connection points
    TYPEKIND kind = TKIND_DISPATCH;
    std::vector<std::wstring> names{L"PlanSaved", L"PlanBeforeRiskAnalysis",
                                    L"PlanAfterRiskIteration", L"PlanAfterRiskAnalysis"};
    HRESULT advise = S_OK;    ///< what Advise answers
    HRESULT unadvise = S_OK;  ///< what Unadvise answers; when it fails the sink is kept
};

/// The id of the source interface that an EventSource describes.
extern const IID kScriptedEvents;

/// A type of that kind and name in a type library of its own.
ComPtr<ICreateTypeInfo> MakeType(const wchar_t* name, TYPEKIND kind);

/// Connection point and type information of an Application; for
/// Interception::onQuery, counted among its objects. The events' dispatch ids are 1, 2, ... in the
/// order of the names.
class EventSource final : public IProvideClassInfo2,
                          public IConnectionPointContainer,
                          public IConnectionPoint {
 public:
    EventSource(std::shared_ptr<Interception> counter, const EventScript& events);

    /// Everything that has been advised and not let go.
    std::vector<ComPtr<IDispatch>> sinks;

    /// Calls every sink's event of that id.
    HRESULT Raise(DISPID event, std::vector<VARIANT> arguments, EXCEPINFO* failure = nullptr);
    /// An analysis event (1 before, 2 iteration, 3 after; one more than that is the id in the
    /// standard script) for a plan. Answers the description of a failure, "" when there is none.
    std::string RaisePlan(DISPID event, IDispatch* plan);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() noexcept override;
    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** type) noexcept override;
    HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* id) noexcept override;
    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) noexcept override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id,
                                                  IConnectionPoint** point) noexcept override;
    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* id) noexcept override;
    HRESULT STDMETHODCALLTYPE
    GetConnectionPointContainer(IConnectionPointContainer** container) noexcept override;
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) noexcept override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) noexcept override;
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) noexcept override;

 private:
    ~EventSource() { --counter_->objects; }

    ULONG references_ = 0;
    std::shared_ptr<Interception> counter_;
    EventScript events_;
    ComPtr<ITypeInfo> class_;
};

}  // namespace kestrel::test
