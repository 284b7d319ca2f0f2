#pragma once

#include <windows.h>
// windows.h first
#include <oleauto.h>

#include <atomic>
#include <cstddef>
#include <utility>
#include <vector>

#include "platform/win32/ModuleRef.h"

namespace kestrel::ui::win32 {

/// A list of element ids as assistive programs take it. Made with one reference, the caller's.
class ElementEnumerator final : public IEnumVARIANT {
 public:
    explicit ElementEnumerator(std::vector<long> ids, std::size_t next = 0)
        : ids_(std::move(ids)), next_(next) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() noexcept override;

    HRESULT STDMETHODCALLTYPE Next(ULONG wanted, VARIANT* elements, ULONG* got) noexcept override;
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) noexcept override;
    HRESULT STDMETHODCALLTYPE Reset() noexcept override;
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) noexcept override;

 private:
    ~ElementEnumerator() = default;

    kestrel::win32::ModuleRef module_;
    std::atomic<ULONG> references_{1};
    std::vector<long> ids_;
    std::size_t next_;
};

}  // namespace kestrel::ui::win32
