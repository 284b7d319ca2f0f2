#pragma once

#include <windows.h>
#include <oleauto.h>

#include <string>
#include <vector>

#include "platform/win32/ComObject.h"

namespace kestrel::test {

using win32::ComPtr;

/// A type of that kind and name in a type library of its own.
ComPtr<ICreateTypeInfo> MakeType(const wchar_t* name, TYPEKIND kind);

/// Says of a host that its class is an "Application" whose source interface, with the id of the
/// reference host's, raises events of these names with the ids 1, 2, ...
class DescribedClass final : public win32::ComObject<IProvideClassInfo2> {
 public:
    explicit DescribedClass(const std::vector<std::wstring>& names, TYPEKIND kind = TKIND_DISPATCH);

    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** type) noexcept override;
    HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* id) noexcept override;

 private:
    ComPtr<ITypeInfo> class_;
};

}  // namespace kestrel::test
