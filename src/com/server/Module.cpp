#include "com/server/Module.h"

#include "platform/win32/ComErrors.h"
#include "platform/win32/ComPtr.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace kestrel::com {

HINSTANCE OwnModule() noexcept { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

HRESULT LoadOwnTypeLibrary(ITypeLib** library) noexcept try {
    return LoadTypeLibEx(OwnPath().c_str(), REGKIND_NONE, library);
}
KESTREL_COM_CATCH((win32::ErrorOrigin{IID_ITypeLib, L"KestrelDll.clsKestrelDll"}))

HRESULT LoadOwnTypeInfo(REFGUID guid, ITypeInfo** info) noexcept {
    win32::ComPtr<ITypeLib> library;
    const HRESULT result = LoadOwnTypeLibrary(library.Out());
    return FAILED(result) ? result : library->GetTypeInfoOfGuid(guid, info);
}

}  // namespace kestrel::com
