#include "platform/win32/Bstr.h"
#include "windows/server/ServerTest.h"

// What every COM object owes: identity, reference counts, aggregation, a description of itself.
namespace kestrel::test {
namespace {

using IdentityTest = ServerTest;

constexpr const IID* kInterfaces[] = {
    &IID_IUnknown,          &IID_IDispatch,         &IID__clsKestrelDll,
    &IID_ISupportErrorInfo, &IID_IProvideClassInfo, &IID_IObjectWithSite,
};

ComPtr<IUnknown> Query(IUnknown* object, const IID& iid) {
    return ComPtr<IUnknown>(object).As<IUnknown>(iid);
}

ULONG References(IUnknown* object) {
    object->AddRef();
    return object->Release();
}

TEST_F(IdentityTest, EveryInterfaceLeadsToEveryOther) {
    const auto addIn = dll_.AddIn();
    const auto identity = Query(addIn.Get(), IID_IUnknown);
    for (const IID* from : kInterfaces) {
        SCOPED_TRACE(from - *kInterfaces);
        const auto start = Query(addIn.Get(), *from);
        ASSERT_TRUE(start);
        EXPECT_EQ(Query(start.Get(), IID_IUnknown).Get(), identity.Get());
        for (const IID* to : kInterfaces)
            EXPECT_EQ(Query(start.Get(), *to).Get(), Query(addIn.Get(), *to).Get());
    }
    void* none = addIn.Get();
    EXPECT_EQ(addIn->QueryInterface(IID_IClassFactory, &none), E_NOINTERFACE);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(addIn->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(IdentityTest, CountsEachReferenceOnce) {
    const auto addIn = dll_.AddIn();
    EXPECT_EQ(References(addIn.Get()), 1u);
    {
        const auto second = addIn.As<IDispatch>(IID_IDispatch);
        EXPECT_EQ(References(addIn.Get()), 2u);
    }
    ComPtr<ITypeInfo> type;
    EXPECT_EQ(addIn->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.Out()), S_OK);
    static_cast<void>(addIn->LaunchStartSchedulon());
    EXPECT_EQ(References(addIn.Get()), 1u);
}

/// An object that shows another one's interfaces as its own.
class Outer : public IUnknown {
 public:
    ComPtr<IUnknown> inner;
    ULONG references = 1;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override {
        if (iid != IID_IUnknown) return inner->QueryInterface(iid, object);
        *object = this;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return --references; }
};

TEST_F(IdentityTest, BecomesPartOfAnOuterObject) {
    Outer outer;
    const auto factory = dll_.Factory();
    EXPECT_EQ(factory->CreateInstance(&outer, IID_IDispatch, outer.inner.OutVoid()),
              CLASS_E_NOAGGREGATION);
    EXPECT_FALSE(outer.inner);
    ASSERT_EQ(factory->CreateInstance(&outer, IID_IUnknown, outer.inner.OutVoid()), S_OK);
    EXPECT_EQ(outer.references, 1u) << "the part must not hold the whole";
    EXPECT_NE(outer.inner.Get(), &outer);
    for (const IID* iid : kInterfaces) {
        SCOPED_TRACE(iid - *kInterfaces);
        const auto shown = Query(&outer, *iid);
        ASSERT_TRUE(shown);
        EXPECT_EQ(outer.references, 2u);
        EXPECT_EQ(Query(shown.Get(), IID_IUnknown).Get(), &outer);
    }
    const auto addIn = Query(&outer, IID__clsKestrelDll);
    EXPECT_EQ(static_cast<_clsKestrelDll*>(addIn.Get())->LaunchStopSchedulon(), S_OK);
    EXPECT_EQ(outer.references, 2u);
}

TEST_F(IdentityTest, DescribesItsMethodsInTheirOrder) {
    const auto addIn = dll_.AddIn();
    ComPtr<ITypeInfo> type;
    ASSERT_EQ(addIn->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.Out()), S_OK);
    UINT none = 0;
    ComPtr<ITypeInfo> absent;
    EXPECT_EQ(addIn->GetTypeInfo(1, LOCALE_USER_DEFAULT, absent.Out()), DISP_E_BADINDEX);
    EXPECT_EQ(addIn->GetTypeInfoCount(&none), S_OK);
    EXPECT_EQ(none, 1u);

    DISPID last = 0;
    for (const Method& method : kMethods) {
        SCOPED_TRACE(win32::Utf8(method.name));
        std::wstring name = method.name;
        for (wchar_t& c : name) c = static_cast<wchar_t>(towupper(c));
        LPOLESTR asked = name.data();
        DISPID id = 0;
        ASSERT_EQ(addIn->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id), S_OK);
        EXPECT_GT(id, last);
        last = id;
        win32::Bstr spelt, help;
        EXPECT_EQ(type->GetDocumentation(id, spelt.Out(), help.Out(), nullptr, nullptr), S_OK);
        EXPECT_EQ(spelt.View(), method.name);
        EXPECT_FALSE(help.View().empty());
    }
    wchar_t wrong[] = L"LaunchNothing";
    LPOLESTR asked = wrong;
    DISPID id = 0;
    EXPECT_EQ(addIn->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id),
              DISP_E_UNKNOWNNAME);
}

TEST_F(IdentityTest, TellsItsClass) {
    const auto provider = dll_.AddIn().As<IProvideClassInfo>(IID_IProvideClassInfo);
    ComPtr<ITypeInfo> type;
    ASSERT_EQ(provider->GetClassInfo(type.Out()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->guid, CLSID_clsKestrelDll);
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    type->ReleaseTypeAttr(attributes);
}

}  // namespace
}  // namespace kestrel::test
