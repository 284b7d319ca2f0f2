#include "com/server/Module.h"

#include "platform/win32/ComErrors.h"
#include "platform/win32/ComPtr.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace kestrel::com {

HINSTANCE OwnModule() noexcept { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

HRESULT LoadOwnTypeInfo(REFGUID guid, ITypeInfo** info) noexcept try {
    win32::ComPtr<ITypeLib> library;
    const HRESULT result = LoadTypeLibEx(OwnPath().c_str(), REGKIND_NONE, library.Out());
    return FAILED(result) ? result : library->GetTypeInfoOfGuid(guid, info);
}
KESTREL_COM_CATCH((win32::ErrorOrigin{IID_ITypeLib, L"KestrelDll.clsKestrelDll"}))

}  // namespace kestrel::com
