#include "ui/win32/AccessibleParts.h"

#include <new>

#include "platform/win32/Bstr.h"

namespace kestrel::ui::win32 {
namespace {

using kestrel::win32::Bstr;
using kestrel::win32::ComPtr;

HRESULT Tell(const std::string& text, BSTR* answer) {
    if (text.empty()) return S_FALSE;
    *answer = Bstr(text).Detach();
    return S_OK;
}

HRESULT Tell(long number, VARIANT* answer) {
    answer->vt = VT_I4;
    answer->lVal = number;
    return S_OK;
}

VARIANT Self() {
    VARIANT self{};
    static_cast<void>(Tell(CHILDID_SELF, &self));
    return self;
}

}  // namespace

long AccessibleSource::PartBeside(long part, long direction) const {
    if (direction == NAVDIR_UP || direction == NAVDIR_PREVIOUS) return part - 1;
    const bool forward = direction == NAVDIR_DOWN || direction == NAVDIR_NEXT;
    return forward && part < PartCount() ? part + 1 : 0;
}

AccessibleParts::AccessibleParts(HWND window, AccessibleSource& source)
    : window_(window), source_(&source) {
    // Without it the parent is not found, and all else goes on.
    static_cast<void>(CreateStdAccessibleObject(window, OBJID_CLIENT, __uuidof(IAccessible),
                                                standard_.OutVoid()));
}

ComPtr<AccessibleParts> AccessibleParts::Make(HWND window, AccessibleSource& source) {
    return ComPtr<AccessibleParts>::Attach(new AccessibleParts(window, source));
}

std::optional<LRESULT> AccessibleParts::Respond(WPARAM wParam, LPARAM lParam) {
    // The id comes as 32 bits, whose sign may be lost on the way.
    if (static_cast<LONG>(lParam) != static_cast<LONG>(OBJID_CLIENT)) return {};
    return LresultFromObject(__uuidof(IAccessible), wParam, this);
}

STDMETHODIMP AccessibleParts::QueryInterface(REFIID iid, void** object) noexcept {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (iid != __uuidof(IUnknown) && iid != __uuidof(IDispatch) && iid != __uuidof(IAccessible))
        return E_NOINTERFACE;
    *object = static_cast<IAccessible*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) AccessibleParts::AddRef() noexcept { return ++references_; }

STDMETHODIMP_(ULONG) AccessibleParts::Release() noexcept {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

template <class Answer>
HRESULT AccessibleParts::Ask(const VARIANT& child, const Answer& answer) const noexcept {
    if (!source_) return CO_E_OBJNOTCONNECTED;
    if (child.vt != VT_I4 || child.lVal < 0) return E_INVALIDARG;
    try {
        return child.lVal > source_->PartCount() ? E_INVALIDARG : answer(child.lVal);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}

STDMETHODIMP AccessibleParts::get_accParent(IDispatch** parent) noexcept {
    if (!parent) return E_POINTER;
    *parent = nullptr;
    if (!source_) return CO_E_OBJNOTCONNECTED;
    return standard_ ? standard_->get_accParent(parent) : S_FALSE;
}

STDMETHODIMP AccessibleParts::get_accChildCount(long* count) noexcept {
    if (!count) return E_POINTER;
    return Ask(Self(), [&](long) {
        *count = source_->PartCount();
        return S_OK;
    });
}

STDMETHODIMP AccessibleParts::get_accChild(VARIANT, IDispatch** object) noexcept {
    if (!object) return E_POINTER;
    *object = nullptr;
    return S_FALSE;  // parts are no objects of their own
}

STDMETHODIMP AccessibleParts::get_accName(VARIANT child, BSTR* name) noexcept {
    if (!name) return E_POINTER;
    *name = nullptr;
    return Ask(child, [&](long part) { return Tell(source_->PartName(part), name); });
}

STDMETHODIMP AccessibleParts::get_accValue(VARIANT child, BSTR* value) noexcept {
    if (!value) return E_POINTER;
    *value = nullptr;
    return Ask(child, [&](long part) { return Tell(source_->PartValue(part), value); });
}

STDMETHODIMP AccessibleParts::get_accDescription(VARIANT child, BSTR* description) noexcept {
    if (!description) return E_POINTER;
    *description = nullptr;
    return Ask(child, [&](long part) { return Tell(source_->PartDescription(part), description); });
}

STDMETHODIMP AccessibleParts::get_accRole(VARIANT child, VARIANT* role) noexcept {
    if (!role) return E_POINTER;
    return Ask(child, [&](long part) { return Tell(source_->PartRole(part), role); });
}

STDMETHODIMP AccessibleParts::get_accState(VARIANT child, VARIANT* state) noexcept {
    if (!state) return E_POINTER;
    return Ask(child, [&](long part) { return Tell(source_->PartState(part), state); });
}

STDMETHODIMP AccessibleParts::get_accFocus(VARIANT* child) noexcept {
    if (!child) return E_POINTER;
    child->vt = VT_EMPTY;
    return Ask(Self(), [&](long) {
        return GetFocus() == window_ ? Tell(source_->FocusedPart(), child) : S_FALSE;
    });
}

STDMETHODIMP AccessibleParts::accSelect(long flags, VARIANT child) noexcept {
    constexpr long kKnown = SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION;
    return Ask(child, [&](long part) {
        if (flags == 0 || (flags & ~kKnown) != 0) return E_INVALIDARG;
        SetFocus(window_);
        source_->FocusPart(part);
        return S_OK;
    });
}

STDMETHODIMP AccessibleParts::accLocation(long* left, long* top, long* width, long* height,
                                          VARIANT child) noexcept {
    if (!left || !top || !width || !height) return E_POINTER;
    return Ask(child, [&](long part) {
        const RECT place = source_->PartPlace(part);
        POINT corner{place.left, place.top};
        ClientToScreen(window_, &corner);
        *left = corner.x;
        *top = corner.y;
        *width = place.right - place.left;
        *height = place.bottom - place.top;
        return S_OK;
    });
}

STDMETHODIMP AccessibleParts::accNavigate(long direction, VARIANT start, VARIANT* end) noexcept {
    if (!end) return E_POINTER;
    end->vt = VT_EMPTY;
    return Ask(start, [&](long part) {
        const long count = source_->PartCount();
        if (direction == NAVDIR_FIRSTCHILD || direction == NAVDIR_LASTCHILD) {
            if (part != 0) return E_INVALIDARG;
            return count == 0 ? S_FALSE : Tell(direction == NAVDIR_LASTCHILD ? count : 1, end);
        }
        // Where the window's neighbours are is the system's to know.
        if (part == 0) return standard_ ? standard_->accNavigate(direction, start, end) : S_FALSE;
        const long next = source_->PartBeside(part, direction);
        return next == 0 ? S_FALSE : Tell(next, end);
    });
}

STDMETHODIMP AccessibleParts::accHitTest(long left, long top, VARIANT* child) noexcept {
    if (!child) return E_POINTER;
    child->vt = VT_EMPTY;
    return Ask(Self(), [&](long) {
        POINT place{left, top};
        ScreenToClient(window_, &place);
        RECT client{};
        GetClientRect(window_, &client);
        return PtInRect(&client, place) ? Tell(source_->PartAt(place), child) : S_FALSE;
    });
}

}  // namespace kestrel::ui::win32
