#include "com/automation/EventInterface.h"

#include <string>

#include "base/Errors.h"
#include "com/automation/HostFailure.h"
#include "platform/win32/Bstr.h"
#include "platform/win32/WideText.h"

namespace kestrel::com {
namespace {

using win32::ComPtr;

constexpr const wchar_t* kEventNames[kAnalysisEvents] = {
    L"PlanBeforeRiskAnalysis", L"PlanAfterRiskIteration", L"PlanAfterRiskAnalysis"};

[[noreturn]] void RaiseUnusable(const std::string& what) {
    throw HostError("The host " + what +
                    ", so the add-in cannot take part in its risk analyses; install a version of "
                    "it that this add-in works with.");
}

/// The attributes of a type, given back at the end; nothing when they cannot be had.
class TypeAttributes {
 public:
    explicit TypeAttributes(ITypeInfo& type) : type_(type) {
        if (FAILED(type_.GetTypeAttr(&attributes_))) attributes_ = nullptr;
    }
    ~TypeAttributes() {
        if (attributes_) type_.ReleaseTypeAttr(attributes_);
    }
    TypeAttributes(const TypeAttributes&) = delete;
    TypeAttributes& operator=(const TypeAttributes&) = delete;

    explicit operator bool() const { return attributes_ != nullptr; }
    const TYPEATTR* operator->() const { return attributes_; }

 private:
    ITypeInfo& type_;
    TYPEATTR* attributes_ = nullptr;
};

ComPtr<ITypeInfo> ClassInfoOf(const ComPtr<IDispatch>& application) {
    const auto provider = application.As<IProvideClassInfo>();
    ComPtr<ITypeInfo> type;
    if (!provider || FAILED(provider->GetClassInfo(type.Out()))) return nullptr;
    return type;
}

/// By the id that the object itself names, found in the library that describes the object.
ComPtr<ITypeInfo> NamedSource(const ComPtr<IDispatch>& application, ComPtr<ITypeInfo> described) {
    const auto provider = application.As<IProvideClassInfo2>();
    IID id{};
    if (!provider || FAILED(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id)))
        return nullptr;
    if (!described && FAILED(application->GetTypeInfo(0, kHostLocale, described.Out())))
        return nullptr;
    ComPtr<ITypeLib> library;
    UINT position = 0;
    ComPtr<ITypeInfo> source;
    if (!described || FAILED(described->GetContainingTypeLib(library.Out(), &position)) ||
        FAILED(library->GetTypeInfoOfGuid(id, source.Out())))
        return nullptr;
    return source;
}

/// The source interface that the class marks as its default one.
ComPtr<ITypeInfo> DefaultSource(const ComPtr<ITypeInfo>& classType) {
    if (!classType) return nullptr;
    const TypeAttributes attributes(*classType);
    constexpr int kDefaultSource = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
    for (UINT i = 0; attributes && i < attributes->cImplTypes; ++i) {
        int flags = 0;
        HREFTYPE reference = 0;
        ComPtr<ITypeInfo> source;
        if (SUCCEEDED(classType->GetImplTypeFlags(i, &flags)) &&
            (flags & kDefaultSource) == kDefaultSource &&
            SUCCEEDED(classType->GetRefTypeOfImplType(i, &reference)) &&
            SUCCEEDED(classType->GetRefTypeInfo(reference, source.Out())))
            return source;
    }
    return nullptr;
}

/// Upper and lower case count alike, as in every name of Automation. The members are walked, as
/// the interface's own look-up by name is not to be had from another process.
DISPID FindEvent(ITypeInfo& source, const TypeAttributes& attributes, const wchar_t* name) {
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
        FUNCDESC* function = nullptr;
        if (FAILED(source.GetFuncDesc(i, &function))) continue;
        const MEMBERID id = function->memid;
        source.ReleaseFuncDesc(function);
        win32::Bstr found;
        UINT count = 0;
        if (SUCCEEDED(source.GetNames(id, found.Out(), 1, &count)) && count == 1 &&
            _wcsicmp(std::wstring(found.View()).c_str(), name) == 0)
            return id;
    }
    RaiseUnusable("has no event " + win32::Utf8(name));
}

}  // namespace

EventInterface FindEventInterface(IDispatch& application) {
    const ComPtr<IDispatch> object(&application);
    const ComPtr<ITypeInfo> classType = ClassInfoOf(object);
    ComPtr<ITypeInfo> source = NamedSource(object, classType);
    if (!source) source = DefaultSource(classType);
    if (!source) RaiseUnusable("does not describe its events");

    const TypeAttributes attributes(*source);
    // A sink can only be called by dispatch ids; other interfaces would need their very methods.
    if (!attributes || attributes->typekind != TKIND_DISPATCH)
        RaiseUnusable("raises its events through an interface without dispatch ids");
    EventInterface found;
    found.id = attributes->guid;
    for (std::size_t i = 0; i < kAnalysisEvents; ++i)
        found.events[i] = FindEvent(*source, attributes, kEventNames[i]);
    return found;
}

ComPtr<IConnectionPoint> FindConnectionPoint(IDispatch& application, const IID& id) {
    const auto container = ComPtr<IDispatch>(&application).As<IConnectionPointContainer>();
    ComPtr<IConnectionPoint> point;
    if (!container || FAILED(container->FindConnectionPoint(id, point.Out())) || !point)
        RaiseUnusable("offers no connection point for its events");
    return point;
}

}  // namespace kestrel::com
