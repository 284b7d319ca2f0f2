#include "windows/server/ServerTest.h"

#include "TestPaths.h"
#include "platform/win32/Bstr.h"
#include "platform/win32/WideText.h"

namespace kestrel::test {

std::wstring DllPath() {
    std::wstring path = win32::Wide(KESTREL_BINARY_DIR "/KestrelDll.dll");
    for (wchar_t& c : path)
        if (c == L'/') c = L'\\';
    return path;
}

LoadedDll::LoadedDll() : module_(LoadLibraryW(DllPath().c_str())) {
    if (!module_) throw std::runtime_error("KestrelDll.dll could not be loaded");
}

template <class Function>
Function LoadedDll::Entry(const char* name) const {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_.Get(), name)));
}

HRESULT LoadedDll::CanUnloadNow() const {
    return Entry<HRESULT(STDAPICALLTYPE*)()>("DllCanUnloadNow")();
}

HRESULT LoadedDll::GetClassObject(REFCLSID clsid, REFIID iid, void** object) const {
    using Function = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    return Entry<Function>("DllGetClassObject")(clsid, iid, object);
}

HRESULT LoadedDll::Register() const {
    return Entry<HRESULT(STDAPICALLTYPE*)()>("DllRegisterServer")();
}

HRESULT LoadedDll::Unregister() const {
    return Entry<HRESULT(STDAPICALLTYPE*)()>("DllUnregisterServer")();
}

ComPtr<IClassFactory> LoadedDll::Factory() const {
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(GetClassObject(CLSID_clsKestrelDll, IID_IClassFactory, factory.OutVoid()), S_OK);
    return factory;
}

ComPtr<_clsKestrelDll> LoadedDll::AddIn() const {
    ComPtr<_clsKestrelDll> addIn;
    EXPECT_EQ(Factory()->CreateInstance(nullptr, IID__clsKestrelDll, addIn.OutVoid()), S_OK);
    return addIn;
}

void ServerTest::TearDown() { EXPECT_EQ(dll_.CanUnloadNow(), S_OK) << "an object has leaked"; }

std::string TakenErrorText() {
    ComPtr<IErrorInfo> error;
    win32::Bstr text;
    if (GetErrorInfo(0, error.Out()) == S_OK) static_cast<void>(error->GetDescription(text.Out()));
    return text.Utf8();
}

}  // namespace kestrel::test
