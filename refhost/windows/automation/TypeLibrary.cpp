#include "refhost/windows/automation/TypeLibrary.h"

#include "base/Errors.h"
#include "platform/win32/WideText.h"

namespace refhost::automation {

using kestrel::win32::ComPtr;

TypeLibrary::TypeLibrary(const std::wstring& path) {
    // Not registered as a side effect: that is --register's to do.
    if (FAILED(LoadTypeLibEx(path.c_str(), REGKIND_NONE, library_.Out())))
        throw kestrel::HostError("'" + kestrel::win32::Utf8(path) +
                                 "' holds no type library; install the program again.");
}

ComPtr<ITypeInfo> TypeLibrary::Info(REFIID iid) {
    for (const auto& [known, info] : infos_)
        if (known == iid) return info;
    ComPtr<ITypeInfo> info;
    if (FAILED(library_->GetTypeInfoOfGuid(iid, info.Out()))) return nullptr;
    infos_.emplace_back(iid, info);
    return info;
}

}  // namespace refhost::automation
