#pragma once

#include <functional>
#include <utility>

#include "platform/win32/ComErrors.h"
#include "platform/win32/ComObject.h"

namespace kestrel::win32 {

/// The class object of a COM class.
class ClassFactory final : public ComObject<IClassFactory> {
 public:
    /// Answers a new object's interface; the place for it is there and empty.
    using Create = std::function<HRESULT(IUnknown* outer, REFIID iid, void** object)>;
    /// Is told of each lock that a client takes (true) or gives back.
    using Lock = std::function<void(bool taken)>;

    ClassFactory(const ErrorOrigin& origin, Create create, Lock lock)
        : origin_(origin), create_(std::move(create)), lock_(std::move(lock)) {}

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid,
                                             void** object) noexcept override try {
        if (!object) return E_POINTER;
        *object = nullptr;
        return create_(outer, iid, object);
    }
    KESTREL_COM_CATCH(origin_)

    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override try {
        lock_(lock != FALSE);
        return S_OK;
    }
    KESTREL_COM_CATCH(origin_)

 private:
    const ErrorOrigin origin_;
    const Create create_;
    const Lock lock_;
};

}  // namespace kestrel::win32
