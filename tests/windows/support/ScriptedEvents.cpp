#include "windows/support/ScriptedEvents.h"

#include <oleauto.h>
#include <olectl.h>

#include <stdexcept>

#include "platform/win32/Bstr.h"
#include "platform/win32/SystemMessage.h"

namespace kestrel::test {
namespace {

constexpr GUID kScriptedClass{
    0xd0c5ab41, 0x61f1, 0x4a52, {0x9b, 0x0e, 0x3c, 0x57, 0x81, 0x0a, 0x6e, 0x11}};

void Require(HRESULT result) {
    if (FAILED(result)) throw std::runtime_error(win32::SystemMessage(result));
}

ComPtr<ICreateTypeLib2> MakeLibrary() {
    ComPtr<ICreateTypeLib2> library;
    // The file is never written.
    Require(CreateTypeLib2(SYS_WIN64, L"scripted.tlb", library.Out()));
    return library;
}

ComPtr<ICreateTypeInfo> AddType(ICreateTypeLib2& library, const wchar_t* name, TYPEKIND kind,
                                const GUID& id) {
    ComPtr<ICreateTypeInfo> type;
    Require(library.CreateTypeInfo(const_cast<wchar_t*>(name), kind, type.Out()));
    Require(type->SetGuid(id));
    return type;
}

ComPtr<ITypeInfo> DescribeClass(const EventScript& events) {
    const auto library = MakeLibrary();
    const auto source = AddType(*library, L"_ApplicationEvents", events.kind, kScriptedEvents);
    for (UINT i = 0; i < events.names.size(); ++i) {
        FUNCDESC event{};
        event.memid = static_cast<MEMBERID>(i + 1);
        event.funckind = events.kind == TKIND_DISPATCH ? FUNC_DISPATCH : FUNC_PUREVIRTUAL;
        event.invkind = INVOKE_FUNC;
        event.callconv = CC_STDCALL;
        event.elemdescFunc.tdesc.vt = VT_VOID;
        Require(source->AddFuncDesc(i, &event));
        auto* name = const_cast<wchar_t*>(events.names[i].c_str());
        Require(source->SetFuncAndParamNames(i, &name, 1));
    }
    Require(source->LayOut());

    const auto application = AddType(*library, L"Application", TKIND_COCLASS, kScriptedClass);
    HREFTYPE reference = 0;
    Require(application->AddRefTypeInfo(source.As<ITypeInfo>().Get(), &reference));
    Require(application->AddImplType(0, reference));
    Require(application->SetImplTypeFlags(0, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE));
    Require(application->LayOut());
    return application.As<ITypeInfo>();
}

}  // namespace

const IID kScriptedEvents{
    0xd0c5ab40, 0x61f1, 0x4a52, {0x9b, 0x0e, 0x3c, 0x57, 0x81, 0x0a, 0x6e, 0x11}};

ComPtr<ICreateTypeInfo> MakeType(const wchar_t* name, TYPEKIND kind) {
    return AddType(*MakeLibrary(), name, kind, kScriptedClass);
}

EventSource::EventSource(std::shared_ptr<Interception> counter, const EventScript& events)
    : counter_(std::move(counter)), events_(events), class_(DescribeClass(events)) {
    ++counter_->objects;
}

HRESULT EventSource::Raise(DISPID event, std::vector<VARIANT> arguments, EXCEPINFO* failure) {
    DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    HRESULT first = S_OK;
    for (const auto& sink : std::vector(sinks)) {
        const HRESULT result = sink->Invoke(event, IID_NULL, 0x0409, DISPATCH_METHOD, &parameters,
                                            nullptr, failure, nullptr);
        if (SUCCEEDED(first)) first = result;
    }
    return first;
}

std::string EventSource::RaisePlan(DISPID event, IDispatch* plan) {
    VARIANT argument{};
    argument.vt = VT_DISPATCH;
    argument.pdispVal = plan;
    EXCEPINFO failure{};
    const HRESULT result = Raise(event + 1, {argument}, &failure);
    const auto taken = [](BSTR text) {
        const std::string utf8 = text ? win32::Utf8({text, SysStringLen(text)}) : std::string();
        SysFreeString(text);
        return utf8;
    };
    taken(failure.bstrSource);
    const std::string description = taken(failure.bstrDescription);
    if (SUCCEEDED(result)) return {};
    return result == DISP_E_EXCEPTION ? description : win32::SystemMessage(result);
}

HRESULT EventSource::QueryInterface(REFIID id, void** object) noexcept {
    *object = nullptr;
    if (id == IID_IProvideClassInfo && events_.describesClass)
        *object = static_cast<IProvideClassInfo*>(this);
    if (id == IID_IProvideClassInfo2 && events_.describesClass && events_.namesSource)
        *object = static_cast<IProvideClassInfo2*>(this);
    if (id == IID_IConnectionPointContainer && events_.connects)
        *object = static_cast<IConnectionPointContainer*>(this);
    if (*object) AddRef();
    return *object ? S_OK : E_NOINTERFACE;
}

ULONG EventSource::Release() noexcept {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT EventSource::GetClassInfo(ITypeInfo** type) noexcept {
    *type = ComPtr(class_).Detach();
    return S_OK;
}

HRESULT EventSource::GetGUID(DWORD kind, GUID* id) noexcept {
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
    *id = kScriptedEvents;
    return S_OK;
}

HRESULT EventSource::EnumConnectionPoints(IEnumConnectionPoints**) noexcept { return E_NOTIMPL; }

HRESULT EventSource::FindConnectionPoint(REFIID id, IConnectionPoint** point) noexcept {
    *point = nullptr;
    if (id != kScriptedEvents) return CONNECT_E_NOCONNECTION;
    AddRef();
    *point = this;
    return S_OK;
}

HRESULT EventSource::GetConnectionInterface(IID*) noexcept { return E_NOTIMPL; }

HRESULT EventSource::GetConnectionPointContainer(IConnectionPointContainer**) noexcept {
    return E_NOTIMPL;
}

HRESULT EventSource::Advise(IUnknown* sink, DWORD* cookie) noexcept {
    if (FAILED(events_.advise)) return events_.advise;
    ComPtr<IDispatch> asked;
    if (FAILED(sink->QueryInterface(kScriptedEvents, asked.OutVoid())))
        return CONNECT_E_CANNOTCONNECT;
    sinks.push_back(asked);
    *cookie = static_cast<DWORD>(sinks.size());
    return S_OK;
}

HRESULT EventSource::Unadvise(DWORD cookie) noexcept {
    if (FAILED(events_.unadvise)) return events_.unadvise;
    if (cookie == 0 || cookie > sinks.size()) return CONNECT_E_NOCONNECTION;
    sinks.erase(sinks.begin() + static_cast<std::ptrdiff_t>(cookie) - 1);
    return S_OK;
}

HRESULT EventSource::EnumConnections(IEnumConnections**) noexcept { return E_NOTIMPL; }

}  // namespace kestrel::test
