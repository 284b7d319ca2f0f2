#include "windows/support/Interception.h"

#include "platform/win32/Bstr.h"

namespace kestrel::test {

using win32::Bstr;

namespace {

std::string NameIn(ITypeInfo& type, MEMBERID id) {
    Bstr name;
    return SUCCEEDED(type.GetDocumentation(id, name.Out(), nullptr, nullptr, nullptr))
               ? name.Utf8()
               : std::string();
}

/// The list of a host, block by block.
class InterceptedList final : public IEnumVARIANT {
 public:
    InterceptedList(std::shared_ptr<Interception> owner, ComPtr<IEnumVARIANT> list,
                    std::string type)
        : owner_(std::move(owner)), list_(std::move(list)), type_(std::move(type)) {
        ++owner_->objects;
    }
    virtual ~InterceptedList() { --owner_->objects; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override {
        const bool known = id == IID_IUnknown || id == IID_IEnumVARIANT;
        *object = known ? this : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() noexcept override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* values, ULONG* fetched) noexcept override {
        *fetched = 1;  // what is answered here is one element
        bool passed = false;
        EXCEPINFO failure{};
        PassingCall call{type_ + ".Next", *values, values, failure, [&] {
                             passed = true;
                             const HRESULT result = list_->Next(count, values, fetched);
                             for (ULONG i = 0; i < *fetched; ++i) owner_->Replace(values[i], type_);
                             return result;
                         }};
        const HRESULT result = owner_->Run(call);
        for (BSTR text : {failure.bstrSource, failure.bstrDescription}) SysFreeString(text);
        return passed || FAILED(result) ? result : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) noexcept override { return list_->Skip(count); }
    HRESULT STDMETHODCALLTYPE Reset() noexcept override { return list_->Reset(); }
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT**) noexcept override { return E_NOTIMPL; }

 private:
    ULONG references_ = 1;
    std::shared_ptr<Interception> owner_;
    ComPtr<IEnumVARIANT> list_;
    std::string type_;
};

/// A client's sink as the host sees it.
class InterceptedSink final : public IDispatch {
 public:
    InterceptedSink(std::shared_ptr<Interception> owner, ComPtr<IDispatch> sink)
        : owner_(std::move(owner)), sink_(std::move(sink)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override {
        ComPtr<IUnknown> asked;
        const HRESULT result = sink_->QueryInterface(id, asked.OutVoid());
        *object = SUCCEEDED(result) ? this : nullptr;
        if (*object) AddRef();
        return result;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() noexcept override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID,
                                            DISPID*) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* answer, EXCEPINFO* failure,
                                     UINT* wrong) noexcept override {
        const ComPtr<IDispatch> plan = owner_->Over(parameters->rgvarg[0].pdispVal);
        VARIANT argument{};
        argument.vt = VT_DISPATCH;
        argument.pdispVal = plan.Get();
        DISPPARAMS shown{&argument, nullptr, 1, 0};
        const ComPtr<IDispatch> sink = sink_;  // the client may end the subscription
        return sink->Invoke(id, reserved, locale, flags, &shown, answer, failure, wrong);
    }

 private:
    virtual ~InterceptedSink() = default;

    ULONG references_ = 1;
    std::shared_ptr<Interception> owner_;
    ComPtr<IDispatch> sink_;
};

}  // namespace

/// An object of the host as the client sees it. One that raises events does so through here.
class InterceptedObject final : public IDispatch,
                                public IConnectionPointContainer,
                                public IConnectionPoint {
 public:
    InterceptedObject(std::shared_ptr<Interception> owner, ComPtr<IDispatch> object)
        : owner_(std::move(owner)), object_(std::move(object)) {
        ++owner_->objects;
        owner_->shown_[object_.Get()] = this;
        if (SUCCEEDED(object_->GetTypeInfo(0, LOCALE_NEUTRAL, type_.Out()))) {
            name_ = NameIn(*type_, MEMBERID_NIL);
            if (name_.starts_with('_')) name_.erase(0, 1);
        }
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override {
        *object = nullptr;
        if (id == IID_IUnknown || id == IID_IDispatch)
            *object = static_cast<IDispatch*>(this);
        else if (owner_->onQuery(id, object))
            return *object ? S_OK : E_NOINTERFACE;
        else if (id == IID_IConnectionPointContainer && object_.As<IUnknown>(id))
            *object = static_cast<IConnectionPointContainer*>(this);
        if (!*object) return object_->QueryInterface(id, object);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() noexcept override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override {
        return object_->GetTypeInfoCount(count);
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale,
                                          ITypeInfo** type) noexcept override {
        if (!owner_->typeInfo) return object_->GetTypeInfo(index, locale, type);
        *type = ComPtr<ITypeInfo>(*owner_->typeInfo).Detach();
        return *type ? S_OK : E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count,
                                            LCID locale, DISPID* ids) noexcept override {
        const ComPtr<IDispatch> untilTheEnd(this);
        EXCEPINFO failure{};
        VARIANT none{};
        *ids = DISPID_UNKNOWN;
        PassingCall call{name_ + "." + win32::Utf8(names[0]) + "?", none, nullptr, failure, [&] {
                             return object_->GetIDsOfNames(reserved, names, count, locale, ids);
                         }};
        const HRESULT result = owner_->Run(call);
        for (BSTR text : {failure.bstrSource, failure.bstrDescription}) SysFreeString(text);
        return result;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* answer, EXCEPINFO* failure,
                                     UINT* wrong) noexcept override {
        const ComPtr<IDispatch> untilTheEnd(this);
        const VARIANT none{};
        const bool isPut = (flags & DISPATCH_PROPERTYPUT) != 0;
        const std::string member = type_ ? NameIn(*type_, id) : std::string();
        PassingCall call{name_ + (isPut ? ".Put" : ".") + member,
                         parameters->cArgs ? parameters->rgvarg[parameters->cArgs - 1] : none,
                         answer, *failure, [&] {
                             const HRESULT result = object_->Invoke(
                                 id, reserved, locale, flags, parameters, answer, failure, wrong);
                             if (answer) owner_->Replace(*answer, name_);
                             return result;
                         }};
        return owner_->Run(call);
    }

    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id,
                                                  IConnectionPoint** point) noexcept override {
        const auto container = object_.As<IConnectionPointContainer>();
        const HRESULT result = container->FindConnectionPoint(id, point_.Out());
        *point = SUCCEEDED(result) ? this : nullptr;
        if (*point) AddRef();
        return result;
    }
    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* id) noexcept override {
        return point_->GetConnectionInterface(id);
    }
    HRESULT STDMETHODCALLTYPE
    GetConnectionPointContainer(IConnectionPointContainer**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) noexcept override {
        const auto client = ComPtr<IUnknown>(sink).As<IDispatch>();
        const auto shown = ComPtr<IDispatch>::Attach(new InterceptedSink(owner_, client));
        EXCEPINFO failure{};
        VARIANT none{};
        PassingCall call{"Advise", none, nullptr, failure,
                         [&] { return point_->Advise(shown.Get(), cookie); }};
        const HRESULT result = owner_->Run(call);
        if (SUCCEEDED(result)) owner_->sinks[*cookie] = client;
        for (BSTR text : {failure.bstrSource, failure.bstrDescription}) SysFreeString(text);
        return result;
    }
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) noexcept override {
        owner_->sinks.erase(cookie);
        return point_->Unadvise(cookie);
    }
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) noexcept override {
        return E_NOTIMPL;
    }

 private:
    virtual ~InterceptedObject() {
        owner_->shown_.erase(object_.Get());
        --owner_->objects;
    }

    ULONG references_ = 1;
    std::shared_ptr<Interception> owner_;
    ComPtr<IDispatch> object_;
    ComPtr<ITypeInfo> type_;
    std::string name_;
    ComPtr<IConnectionPoint> point_;
};

HRESULT PassingCall::Fail(const std::string& description, HRESULT code) {
    failure.scode = code;
    if (!description.empty()) failure.bstrDescription = Bstr(description).Detach();
    return DISP_E_EXCEPTION;
}

HRESULT PassingCall::Answer(const VARIANT& value) {
    if (answer)
        *answer = value;
    else
        VariantClear(const_cast<VARIANT*>(&value));
    return S_OK;
}

ComPtr<IDispatch> Interception::Over(IDispatch* object) {
    if (!object) return nullptr;
    const auto found = shown_.find(object);
    if (found != shown_.end()) return found->second;
    return ComPtr<IDispatch>::Attach(new InterceptedObject(shared_from_this(), object));
}

void Interception::Replace(VARIANT& value, const std::string& type) {
    if (value.vt == VT_DISPATCH && value.pdispVal) {
        auto shown = Over(value.pdispVal);
        value.pdispVal->Release();
        value.pdispVal = shown.Detach();
    } else if (value.vt == VT_UNKNOWN && value.punkVal) {
        const auto list = ComPtr<IUnknown>::Attach(value.punkVal).As<IEnumVARIANT>();
        value.punkVal = new InterceptedList(shared_from_this(), list, type);
    }
}

HRESULT Interception::Run(PassingCall& call) {
    ++calls[call.name];
    const auto member = members.find(call.name);
    if (member != members.end()) return member->second(call);
    return all ? all(call) : call.Pass();
}

}  // namespace kestrel::test
