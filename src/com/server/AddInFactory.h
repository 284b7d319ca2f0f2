#pragma once

#include <windows.h>
// windows.h first
#include <unknwn.h>

#include <atomic>

#include "platform/win32/ModuleRef.h"

namespace kestrel::com {

/// Makes objects of the add-in's public class.
class AddInFactory final : public IClassFactory {
 public:
    /// A new factory's interface `iid`.
    static HRESULT Create(REFIID iid, void** object) noexcept;

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() noexcept override;

    // IClassFactory
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid,
                                             void** object) noexcept override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override;

 private:
    AddInFactory() = default;
    ~AddInFactory() = default;

    std::atomic<ULONG> references_{1};
    win32::ModuleRef moduleRef_;
};

}  // namespace kestrel::com
