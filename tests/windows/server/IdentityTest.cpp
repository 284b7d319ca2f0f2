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

TEST_F(IdentityTest, EveryInterfaceLeadsToEveryOtherAndCountsOnce) {
    const auto addIn = dll_.AddIn();
    for (const IID* from : kInterfaces) {
        SCOPED_TRACE(from - *kInterfaces);
        const auto start = Query(addIn.Get(), *from);
        ASSERT_TRUE(start);
        for (const IID* to : kInterfaces)
            EXPECT_EQ(Query(start.Get(), *to).Get(), Query(addIn.Get(), *to).Get());
        EXPECT_EQ(References(addIn.Get()), 2u);
    }
    EXPECT_FALSE(Query(addIn.Get(), IID_IClassFactory));
    static_cast<void>(addIn->LaunchStartSchedulon());  // there is no host
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
    ASSERT_EQ(factory->CreateInstance(&outer, IID_IUnknown, outer.inner.OutVoid()), S_OK);
    EXPECT_EQ(outer.references, 1u) << "the part must not hold the whole";
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

TEST_F(IdentityTest, DescribesItsClassAndItsInterface) {
    const auto addIn = dll_.AddIn();
    ComPtr<ITypeInfo> own, none, whole;
    UINT count = 0;
    EXPECT_EQ(addIn->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1u);
    ASSERT_EQ(addIn->GetTypeInfo(0, LOCALE_USER_DEFAULT, own.Out()), S_OK);
    EXPECT_EQ(addIn->GetTypeInfo(1, LOCALE_USER_DEFAULT, none.Out()), DISP_E_BADINDEX);
    ASSERT_EQ(addIn.As<IProvideClassInfo>()->GetClassInfo(whole.Out()), S_OK);
    for (const auto& [type, guid] :
         {std::pair(own, IID__clsKestrelDll), {whole, CLSID_clsKestrelDll}}) {
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
        EXPECT_EQ(attributes->guid, guid);
        type->ReleaseTypeAttr(attributes);
    }
}

}  // namespace
}  // namespace kestrel::test
