#include "com/server/Module.h"

#include <new>

#include "platform/win32/ComPtr.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace kestrel::com {

HINSTANCE OwnModule() noexcept { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

std::wstring OwnPath() {
    constexpr std::size_t kLongest = 0x8000;  // characters of a path on NTFS
    for (std::wstring path(MAX_PATH, L'\0'); path.size() <= kLongest;
         path.resize(path.size() * 2)) {
        const DWORD length =
            GetModuleFileNameW(OwnModule(), path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) break;
        if (length < path.size()) return path.substr(0, length);
    }
    return {};
}

HRESULT LoadOwnTypeLibrary(ITypeLib** library) noexcept try {
    return LoadTypeLibEx(OwnPath().c_str(), REGKIND_NONE, library);
} catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
}

HRESULT LoadOwnTypeInfo(REFGUID guid, ITypeInfo** info) noexcept {
    win32::ComPtr<ITypeLib> library;
    const HRESULT result = LoadOwnTypeLibrary(library.Out());
    return FAILED(result) ? result : library->GetTypeInfoOfGuid(guid, info);
}

}  // namespace kestrel::com
