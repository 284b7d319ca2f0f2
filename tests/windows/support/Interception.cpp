#include "windows/support/Interception.h"

#include "platform/win32/Bstr.h"
#include "platform/win32/ComErrors.h"
#include "platform/win32/ComObject.h"

namespace kestrel::test {

using win32::Bstr;
using win32::ComObject;
using win32::MakeCom;

namespace {

std::string NameIn(ITypeInfo& type, MEMBERID id) {
    Bstr name;
    static_cast<void>(type.GetDocumentation(id, name.Out(), nullptr, nullptr, nullptr));
    return name.Utf8();  // empty where there is none
}

/// The list of a host, block by block.
class InterceptedList final : public ComObject<IEnumVARIANT> {
 public:
    InterceptedList(std::shared_ptr<Interception> owner, ComPtr<IEnumVARIANT> list,
                    std::string type)
        : owner_(std::move(owner)), list_(std::move(list)), type_(std::move(type)) {
        ++owner_->objects;
    }
    ~InterceptedList() override { --owner_->objects; }

    HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* values, ULONG* fetched) noexcept override {
        *fetched = 1;  // what is answered here is one element
        bool passed = false;
        win32::ExceptionInfo failure;
        PassingCall call{type_ + ".Next", *values, values, failure, [&] {
                             passed = true;
                             const HRESULT result = list_->Next(count, values, fetched);
                             for (ULONG i = 0; i < *fetched; ++i) owner_->Replace(values[i], type_);
                             return result;
                         }};
        const HRESULT result = owner_->Run(call);
        return passed || FAILED(result) ? result : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) noexcept override { return list_->Skip(count); }
    HRESULT STDMETHODCALLTYPE Reset() noexcept override { return list_->Reset(); }
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT**) noexcept override { return E_NOTIMPL; }

 private:
    std::shared_ptr<Interception> owner_;
    ComPtr<IEnumVARIANT> list_;
    std::string type_;
};

/// A client's sink as the host sees it.
class InterceptedSink final : public win32::WithoutTypes<ComObject<IDispatch>> {
 public:
    InterceptedSink(std::shared_ptr<Interception> owner, ComPtr<IDispatch> sink)
        : owner_(std::move(owner)), sink_(std::move(sink)) {}

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
    IUnknown* OtherInterface(REFIID id) noexcept override {
        return sink_.As<IUnknown>(id) ? this : nullptr;
    }

    std::shared_ptr<Interception> owner_;
    ComPtr<IDispatch> sink_;
};

}  // namespace

/// An object of the host as the client sees it. One that raises events does so through here.
class InterceptedObject final
    : public ComObject<IDispatch, IConnectionPointContainer, IConnectionPoint> {
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
    ~InterceptedObject() override {
        owner_->shown_.erase(object_.Get());
        --owner_->objects;
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override {
        *object = nullptr;
        if (id != IID_IUnknown && id != IID_IDispatch) {
            if (owner_->onQuery(id, object)) return *object ? S_OK : E_NOINTERFACE;
            if (id != IID_IConnectionPointContainer || !object_.As<IUnknown>(id))
                return object_->QueryInterface(id, object);
        }
        return ComObject::QueryInterface(id, object);
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
        *ids = DISPID_UNKNOWN;
        return owner_->RunPlain(name_ + "." + win32::Utf8(names[0]) + "?", [&] {
            return object_->GetIDsOfNames(reserved, names, count, locale, ids);
        });
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

    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id,
                                                  IConnectionPoint** point) noexcept override {
        const auto container = object_.As<IConnectionPointContainer>();
        const HRESULT result = container->FindConnectionPoint(id, point_.Out());
        *point = SUCCEEDED(result) ? ComPtr<IConnectionPoint>(this).Detach() : nullptr;
        return result;
    }
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) noexcept override {
        const auto client = ComPtr<IUnknown>(sink).As<IDispatch>();
        const auto shown = MakeCom<InterceptedSink>(owner_, client);
        const HRESULT result = owner_->RunPlain(
            "Advise", [&] { return point_->Advise(static_cast<IDispatch*>(shown.Get()), cookie); });
        if (SUCCEEDED(result)) owner_->sinks[*cookie] = client;
        return result;
    }
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) noexcept override {
        owner_->sinks.erase(cookie);
        const HRESULT result = point_->Unadvise(cookie);
        return owner_->unadvise.value_or(result);
    }

    // What no client of these tests asks for.
    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE
    GetConnectionPointContainer(IConnectionPointContainer**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) noexcept override {
        return E_NOTIMPL;
    }

 private:
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
    return MakeCom<InterceptedObject>(shared_from_this(), object).As<IDispatch>();
}

void Interception::Replace(VARIANT& value, const std::string& type) {
    if (value.vt == VT_DISPATCH && value.pdispVal) {
        auto shown = Over(value.pdispVal);
        value.pdispVal->Release();
        value.pdispVal = shown.Detach();
    } else if (value.vt == VT_UNKNOWN && value.punkVal) {
        const auto list = ComPtr<IUnknown>::Attach(value.punkVal).As<IEnumVARIANT>();
        value.punkVal = MakeCom<InterceptedList>(shared_from_this(), list, type).Detach();
    }
}

HRESULT Interception::Run(PassingCall& call) {
    ++calls[call.name];
    const auto member = members.find(call.name);
    if (member != members.end()) return member->second(call);
    return all ? all(call) : call.Pass();
}

HRESULT Interception::RunPlain(const std::string& name, const std::function<HRESULT()>& pass) {
    win32::ExceptionInfo failure;
    const VARIANT none{};
    PassingCall call{name, none, nullptr, failure, pass};
    return Run(call);
}

}  // namespace kestrel::test
