#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string>
#include <utility>
#include <vector>

#include "platform/win32/ComPtr.h"
#include "platform/win32/Paths.h"

namespace refhost::automation {

/// The type library that stands in a program as a resource (Schedulon.idl).
class TypeLibrary {
 public:
    /// That of this program. Raises kestrel::HostError when it cannot be loaded.
    TypeLibrary() : TypeLibrary(kestrel::win32::ModulePath()) {}
    explicit TypeLibrary(const std::wstring& path);

    /// Description of an interface or class of the library; nothing when there is none.
    kestrel::win32::ComPtr<ITypeInfo> Info(REFIID iid);
    ITypeLib& Library() const { return *library_; }

 private:
    kestrel::win32::ComPtr<ITypeLib> library_;
    std::vector<std::pair<IID, kestrel::win32::ComPtr<ITypeInfo>>> infos_;  ///< asked for so far
};

}  // namespace refhost::automation
