#include "windows/support/DescribedClass.h"

#include <olectl.h>

#include <stdexcept>

#include "platform/win32/SystemMessage.h"

#include <Schedulon.h>

namespace kestrel::test {
namespace {

void Require(HRESULT result) {
    if (FAILED(result)) throw std::runtime_error(win32::SystemMessage(result));
}

ComPtr<ICreateTypeLib2> MakeLibrary() {
    ComPtr<ICreateTypeLib2> library;
    // The file is never written.
    Require(CreateTypeLib2(SYS_WIN64, L"described.tlb", library.Out()));
    return library;
}

ComPtr<ICreateTypeInfo> AddType(ICreateTypeLib2& library, const wchar_t* name, TYPEKIND kind,
                                const GUID& id) {
    ComPtr<ICreateTypeInfo> type;
    Require(library.CreateTypeInfo(const_cast<wchar_t*>(name), kind, type.Out()));
    Require(type->SetGuid(id));
    return type;
}

}  // namespace

ComPtr<ICreateTypeInfo> MakeType(const wchar_t* name, TYPEKIND kind) {
    return AddType(*MakeLibrary(), name, kind, CLSID_Application);
}

DescribedClass::DescribedClass(const std::vector<std::wstring>& names, TYPEKIND kind) {
    const auto library = MakeLibrary();
    const auto source = AddType(*library, L"_ApplicationEvents", kind, DIID__ApplicationEvents);
    for (UINT i = 0; i < names.size(); ++i) {
        FUNCDESC event{};
        event.memid = static_cast<MEMBERID>(i + 1);
        event.funckind = kind == TKIND_DISPATCH ? FUNC_DISPATCH : FUNC_PUREVIRTUAL;
        event.invkind = INVOKE_FUNC;
        event.callconv = CC_STDCALL;
        event.elemdescFunc.tdesc.vt = VT_VOID;
        Require(source->AddFuncDesc(i, &event));
        auto* name = const_cast<wchar_t*>(names[i].c_str());
        Require(source->SetFuncAndParamNames(i, &name, 1));
    }
    Require(source->LayOut());
    const auto application = AddType(*library, L"Application", TKIND_COCLASS, CLSID_Application);
    HREFTYPE reference = 0;
    Require(application->AddRefTypeInfo(source.As<ITypeInfo>().Get(), &reference));
    Require(application->AddImplType(0, reference));
    Require(application->SetImplTypeFlags(0, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE));
    Require(application->LayOut());
    class_ = application.As<ITypeInfo>();
}

HRESULT DescribedClass::GetClassInfo(ITypeInfo** type) noexcept {
    *type = ComPtr(class_).Detach();
    return S_OK;
}

HRESULT DescribedClass::GetGUID(DWORD kind, GUID* id) noexcept {
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
    *id = DIID__ApplicationEvents;
    return S_OK;
}

}  // namespace kestrel::test
