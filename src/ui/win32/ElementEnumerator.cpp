#include "ui/win32/ElementEnumerator.h"

#include <algorithm>
#include <new>

namespace kestrel::ui::win32 {

HRESULT ElementEnumerator::QueryInterface(REFIID iid, void** object) noexcept {
    if (!object) return E_POINTER;
    const bool known = iid == IID_IUnknown || iid == IID_IEnumVARIANT;
    *object = known ? static_cast<IEnumVARIANT*>(this) : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
}

ULONG ElementEnumerator::Release() noexcept {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT ElementEnumerator::Next(ULONG wanted, VARIANT* elements, ULONG* got) noexcept {
    if (!elements || (!got && wanted != 1)) return E_POINTER;
    ULONG given = 0;
    for (; given < wanted && next_ < ids_.size(); ++given) {
        elements[given].vt = VT_I4;
        elements[given].lVal = ids_[next_++];
    }
    if (got) *got = given;
    return given == wanted ? S_OK : S_FALSE;
}

HRESULT ElementEnumerator::Skip(ULONG count) noexcept {
    const std::size_t left = ids_.size() - next_;
    next_ += std::min<std::size_t>(count, left);
    return count <= left ? S_OK : S_FALSE;
}

HRESULT ElementEnumerator::Reset() noexcept {
    next_ = 0;
    return S_OK;
}

HRESULT ElementEnumerator::Clone(IEnumVARIANT** copy) noexcept {
    if (!copy) return E_POINTER;
    *copy = nullptr;
    try {
        *copy = new ElementEnumerator(ids_, next_);
        return S_OK;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

}  // namespace kestrel::ui::win32
