#include "refhost/windows/automation/TypeLibrary.h"

#include "base/Errors.h"
#include "platform/win32/WideText.h"

namespace refhost::automation {

using kestrel::win32::ComPtr;

TypeLibrary::TypeLibrary(const std::wstring& path) : path_(path) {
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

std::wstring TypeLibrary::ProgramPath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {  // the call cuts off silently what does not fit
        const DWORD length =
            GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

}  // namespace refhost::automation
