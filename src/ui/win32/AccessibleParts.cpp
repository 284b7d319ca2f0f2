#include "ui/win32/AccessibleParts.h"

#include <utility>

#include "platform/win32/Bstr.h"
#include "platform/win32/Enumerator.h"

namespace kestrel::ui::win32 {
namespace {

using kestrel::win32::Bstr;
using kestrel::win32::ComPtr;

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

struct PartTraits {
    using Interface = IEnumVARIANT;
    using Element = long;
    using Out = VARIANT;
    static void Copy(long part, VARIANT& out) { static_cast<void>(Tell(part, &out)); }
};

}  // namespace

std::vector<long> AccessibleSource::SelectedParts() const {
    const long focused = FocusedPart();
    return focused == 0 ? std::vector<long>() : std::vector<long>{focused};
}

AccessibleParts::AccessibleParts(HWND window, AccessibleSource& source)
    : window_(window), source_(&source) {
    // Without it the parent is not found, and all else goes on.
    static_cast<void>(CreateStdAccessibleObject(window, OBJID_CLIENT, __uuidof(IAccessible),
                                                standard_.OutVoid()));
}

void AccessibleParts::Disconnect() noexcept {
    source_ = nullptr;
    // Programs in other processes lose their connections at once. It fails where there are none.
    static_cast<void>(CoDisconnectObject(this, 0));
}

std::optional<LRESULT> AccessibleParts::Respond(WPARAM wParam, LPARAM lParam) {
    // The id comes as 32 bits, whose sign may be lost on the way.
    if (static_cast<LONG>(lParam) != static_cast<LONG>(OBJID_CLIENT)) return {};
    return LresultFromObject(__uuidof(IAccessible), wParam, this);
}

template <class Answer>
HRESULT AccessibleParts::Ask(const VARIANT& child, const Answer& answer) const noexcept try {
    if (!source_) return CO_E_OBJNOTCONNECTED;
    if (child.vt != VT_I4 || child.lVal < 0) return E_INVALIDARG;
    return child.lVal > source_->PartCount() ? E_INVALIDARG : answer(child.lVal);
}
KESTREL_COM_CATCH((kestrel::win32::ErrorOrigin{__uuidof(IAccessible), L""}))

HRESULT AccessibleParts::TellText(const VARIANT& child, Text text, BSTR* answer) const noexcept {
    if (!answer) return E_POINTER;
    *answer = nullptr;
    return Ask(child, [&](long part) {
        const std::string told = (source_->*text)(part);
        if (told.empty()) return S_FALSE;
        *answer = Bstr(told).Detach();
        return S_OK;
    });
}

RECT AccessibleParts::PlaceOf(long part) const {
    if (part != 0) return source_->PartPlace(part);
    RECT client{};
    GetClientRect(window_, &client);
    return client;
}

long AccessibleParts::StateOf(long part) const {
    long state = source_->PartState(part);
    const RECT place = PlaceOf(part);
    if (IsRectEmpty(&place)) state |= STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE;
    if (!IsWindowVisible(window_)) state |= STATE_SYSTEM_INVISIBLE;
    if (!IsWindowEnabled(window_)) state |= STATE_SYSTEM_UNAVAILABLE;
    if (GetFocus() == window_ && part == source_->FocusedPart()) state |= STATE_SYSTEM_FOCUSED;
    return state;
}

/// 0 for none.
long AccessibleParts::PartBeside(long part, long direction) const {
    const long count = source_->PartCount(), perRow = source_->PartsPerRow();
    const long place = (part - 1) % perRow;
    switch (direction) {
        case NAVDIR_UP:
            return part > perRow ? part - perRow : 0;
        case NAVDIR_DOWN:
            return part + perRow <= count ? part + perRow : 0;
        case NAVDIR_LEFT:
            return place > 0 ? part - 1 : 0;
        case NAVDIR_RIGHT:
            return place + 1 < perRow && part < count ? part + 1 : 0;
        case NAVDIR_PREVIOUS:
            return part - 1;
        case NAVDIR_NEXT:
            return part < count ? part + 1 : 0;
        default:
            return 0;
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
    return TellText(child, &AccessibleSource::PartName, name);
}

STDMETHODIMP AccessibleParts::get_accValue(VARIANT child, BSTR* value) noexcept {
    return TellText(child, &AccessibleSource::PartValue, value);
}

STDMETHODIMP AccessibleParts::get_accDescription(VARIANT child, BSTR* description) noexcept {
    return TellText(child, &AccessibleSource::PartDescription, description);
}

STDMETHODIMP AccessibleParts::get_accDefaultAction(VARIANT child, BSTR* text) noexcept {
    return TellText(child, &AccessibleSource::PartAction, text);
}

STDMETHODIMP AccessibleParts::get_accRole(VARIANT child, VARIANT* role) noexcept {
    if (!role) return E_POINTER;
    return Ask(child, [&](long part) { return Tell(source_->PartRole(part), role); });
}

STDMETHODIMP AccessibleParts::get_accState(VARIANT child, VARIANT* state) noexcept {
    if (!state) return E_POINTER;
    return Ask(child, [&](long part) { return Tell(StateOf(part), state); });
}

STDMETHODIMP AccessibleParts::get_accFocus(VARIANT* child) noexcept {
    if (!child) return E_POINTER;
    child->vt = VT_EMPTY;
    return Ask(Self(), [&](long) {
        return GetFocus() == window_ ? Tell(source_->FocusedPart(), child) : S_FALSE;
    });
}

STDMETHODIMP AccessibleParts::get_accSelection(VARIANT* selected) noexcept {
    if (!selected) return E_POINTER;
    selected->vt = VT_EMPTY;
    return Ask(Self(), [&](long) {
        std::vector<long> parts = source_->SelectedParts();
        if (parts.size() == 1) return Tell(parts[0], selected);
        if (parts.empty()) return S_OK;
        selected->punkVal = kestrel::win32::Enumerator<PartTraits>::Make(std::move(parts)).Detach();
        selected->vt = VT_UNKNOWN;
        return S_OK;
    });
}

STDMETHODIMP AccessibleParts::accSelect(long flags, VARIANT child) noexcept {
    return Ask(child, [&](long part) {
        if (flags == 0 || (flags & ~SELFLAG_VALID) != 0) return E_INVALIDARG;
        if (flags & SELFLAG_TAKEFOCUS) SetFocus(window_);
        // What has lost the keyboard may have closed the window.
        return source_ ? source_->SelectPart(part, flags) : CO_E_OBJNOTCONNECTED;
    });
}

STDMETHODIMP AccessibleParts::accDoDefaultAction(VARIANT child) noexcept {
    return Ask(child, [&](long part) { return source_->ActOn(part); });
}

STDMETHODIMP AccessibleParts::accLocation(long* left, long* top, long* width, long* height,
                                          VARIANT child) noexcept {
    if (!left || !top || !width || !height) return E_POINTER;
    return Ask(child, [&](long part) {
        RECT place = PlaceOf(part);
        *left = *top = *width = *height = 0;
        if (IsRectEmpty(&place)) return S_FALSE;
        MapWindowPoints(window_, nullptr, reinterpret_cast<POINT*>(&place), 2);
        *left = place.left;
        *top = place.top;
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
        const long next = PartBeside(part, direction);
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
