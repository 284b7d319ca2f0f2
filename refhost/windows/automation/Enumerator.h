#pragma once

#include <windows.h>
// windows.h first
#include <oaidl.h>
#include <ocidl.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "platform/win32/ComPtr.h"
#include "refhost/windows/automation/Failures.h"

namespace refhost::automation {

/// One of COM's enumerators over what was there when it was made, so that a client may remove
/// elements while it goes through them. `Traits` names the interface and its elements:
/// `Interface`, `Element` (kept), `Out` (given), `Iid()`, `Copy(element, out)`.
template <class Traits>
class Enumerator final : public Traits::Interface {
 public:
    using Interface = typename Traits::Interface;
    using Elements = std::shared_ptr<const std::vector<typename Traits::Element>>;

    static kestrel::win32::ComPtr<Interface> Make(std::vector<typename Traits::Element> elements) {
        return kestrel::win32::ComPtr<Interface>::Attach(new Enumerator(
            std::make_shared<const std::vector<typename Traits::Element>>(std::move(elements)), 0));
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (iid != IID_IUnknown && iid != Traits::Iid()) return E_NOINTERFACE;
        AddRef();
        *object = static_cast<Interface*>(this);
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override {
        return static_cast<ULONG>(InterlockedIncrement(&references_));
    }
    ULONG STDMETHODCALLTYPE Release() noexcept override {
        const LONG left = InterlockedDecrement(&references_);
        if (left == 0) delete this;
        return static_cast<ULONG>(left);
    }

    HRESULT STDMETHODCALLTYPE Next(ULONG count, typename Traits::Out* out,
                                   ULONG* given) noexcept override {
        if (!out || (!given && count != 1)) return E_POINTER;
        const std::size_t end = position_ + std::min<std::size_t>(count, Left());
        ULONG number = 0;
        for (; position_ < end; ++position_) Traits::Copy((*elements_)[position_], out[number++]);
        if (given) *given = number;
        return number == count ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) noexcept override {
        const std::size_t skipped = std::min<std::size_t>(count, Left());
        position_ += skipped;
        return skipped == count ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() noexcept override {
        position_ = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(Interface** clone) noexcept override {
        if (!clone) return E_POINTER;
        *clone = nullptr;
        return Guarded(nullptr, [&] { *clone = new Enumerator(elements_, position_); });
    }

 private:
    Enumerator(Elements elements, std::size_t position)
        : elements_(std::move(elements)), position_(position) {}
    virtual ~Enumerator() = default;

    std::size_t Left() const { return elements_->size() - position_; }

    const Elements elements_;
    std::size_t position_;
    LONG references_ = 1;
};

struct ObjectTraits {
    using Interface = IEnumVARIANT;
    using Element = kestrel::win32::ComPtr<IDispatch>;
    using Out = VARIANT;
    static const IID& Iid() { return IID_IEnumVARIANT; }
    static void Copy(const Element& element, VARIANT& out) {
        out.vt = VT_DISPATCH;
        out.pdispVal = kestrel::win32::ComPtr<IDispatch>(element).Detach();
    }
};
/// What `_NewEnum` answers.
using ObjectEnumerator = Enumerator<ObjectTraits>;

}  // namespace refhost::automation
