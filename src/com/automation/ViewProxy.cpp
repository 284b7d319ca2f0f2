#include "com/automation/ViewProxy.h"

#include <ocidl.h>

#include <cwctype>

namespace kestrel::com {
namespace {

using win32::Bstr;
using win32::ComPtr;

std::wstring NameOf(ITypeInfo* type) {
    Bstr name;
    if (!type ||
        FAILED(type->GetDocumentation(MEMBERID_NIL, name.Out(), nullptr, nullptr, nullptr)))
        return {};
    return std::wstring(name.View());
}

std::wstring ClassName(const ComPtr<IDispatch>& object) {
    const auto classOf = object.As<IProvideClassInfo>();
    ComPtr<ITypeInfo> type;
    if (!classOf || FAILED(classOf->GetClassInfo(type.Out()))) return {};
    return NameOf(type.Get());
}

/// "_GanttChart" and "IGanttChart" become "GanttChart"; "Image" stays.
std::wstring InterfaceName(IDispatch& object) {
    ComPtr<ITypeInfo> type;
    if (FAILED(object.GetTypeInfo(0, kHostLocale, type.Out()))) return {};
    std::wstring name = NameOf(type.Get());
    const bool prefixed =
        name.size() > 1 && (name[0] == L'_' || (name[0] == L'I' && std::iswupper(name[1])));
    if (prefixed) name.erase(0, 1);
    return name;
}

}  // namespace

std::string ViewProxy::TypeName() {
    IDispatch& object = *view_.Object();
    if (view_.Connection().ids.Has(object, HostMember::ViewTypeName))
        return view_.Text(HostMember::ViewTypeName);
    std::wstring name = ClassName(&object);
    if (name.empty()) name = InterfaceName(object);
    return win32::Utf8(name);
}

}  // namespace kestrel::com
