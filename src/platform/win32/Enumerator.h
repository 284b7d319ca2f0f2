#pragma once

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "platform/win32/ComErrors.h"
#include "platform/win32/ComObject.h"

namespace kestrel::win32 {

/// One of COM's enumerators over what was there when it was made, so that a client may remove
/// elements while it goes through them. `Traits` names the interface and its elements:
/// `Interface`, `Element` (kept), `Out` (given), `Copy(element, out)`.
template <class Traits>
class Enumerator final : public ComObject<typename Traits::Interface> {
 public:
    using Interface = typename Traits::Interface;
    using Elements = std::vector<typename Traits::Element>;

    static ComPtr<Interface> Make(Elements elements) {
        return ComPtr<Interface>::Attach(
            new Enumerator(std::make_shared<const Elements>(std::move(elements)), 0));
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
    HRESULT STDMETHODCALLTYPE Clone(Interface** clone) noexcept override try {
        if (!clone) return E_POINTER;
        *clone = nullptr;
        *clone = new Enumerator(elements_, position_);
        return S_OK;
    }
    KESTREL_COM_CATCH((ErrorOrigin{__uuidof(Interface), L""}))

 private:
    Enumerator(std::shared_ptr<const Elements> elements, std::size_t position)
        : elements_(std::move(elements)), position_(position) {}

    std::size_t Left() const { return elements_->size() - position_; }

    const std::shared_ptr<const Elements> elements_;
    std::size_t position_;
};

}  // namespace kestrel::win32
