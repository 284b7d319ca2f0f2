#include "ui/win32/grid/GridAccess.h"

#include "platform/win32/Bstr.h"
#include "platform/win32/WideText.h"

namespace kestrel::ui::win32 {
namespace {

using kestrel::win32::Bstr;

HRESULT Give(const std::string& text, BSTR* answer) {
    *answer = Bstr(text).Detach();
    return S_OK;
}

/// Element 0 or an id; any other kind of element does not exist here.
bool IsTable(const VARIANT& element) { return element.vt == VT_I4 && element.lVal == CHILDID_SELF; }

void Put(VARIANT& answer, LONG number) {
    answer.vt = VT_I4;
    answer.lVal = number;
}

/// For what no element has.
HRESULT Nothing(BSTR* text) {
    if (!text) return E_POINTER;
    *text = nullptr;
    return S_FALSE;
}

HRESULT Empty(VARIANT* answer) {
    if (!answer) return E_POINTER;
    answer->vt = VT_EMPTY;
    return S_OK;
}

}  // namespace

void GridAccess::Disconnect() noexcept {
    context_ = nullptr;
    grid_ = nullptr;
    // Programs in other processes lose their connections at once. It fails where there are none.
    static_cast<void>(CoDisconnectObject(this, 0));
}

HRESULT GridAccess::QueryInterface(REFIID iid, void** object) noexcept {
    if (!object) return E_POINTER;
    const bool known = iid == IID_IUnknown || iid == IID_IDispatch || iid == __uuidof(IAccessible);
    *object = known ? static_cast<IAccessible*>(this) : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
}

ULONG GridAccess::Release() noexcept {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT GridAccess::GetTypeInfoCount(UINT* count) noexcept {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT GridAccess::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept {
    if (!info) return E_POINTER;
    *info = nullptr;
    return E_NOTIMPL;
}

HRESULT GridAccess::get_accParent(IDispatch** parent) noexcept {
    if (!parent) return E_POINTER;
    *parent = nullptr;
    return Answer([&] {
        return AccessibleObjectFromWindow(window_, static_cast<DWORD>(OBJID_WINDOW), IID_IDispatch,
                                          reinterpret_cast<void**>(parent));
    });
}

HRESULT GridAccess::get_accChildCount(long* count) noexcept {
    if (!count) return E_POINTER;
    return Answer([&] {
        *count = Elements().Count();
        return S_OK;
    });
}

HRESULT GridAccess::get_accChild(VARIANT element, IDispatch** child) noexcept {
    if (!child) return E_POINTER;
    *child = nullptr;
    return AnswerOf(element, [](const GridPlace&) { return S_FALSE; });  // no object of its own
}

HRESULT GridAccess::get_accName(VARIANT element, BSTR* name) noexcept {
    if (!name) return E_POINTER;
    *name = nullptr;
    if (IsTable(element)) return Answer([&] { return Give(context_->form->Caption(), name); });
    return AnswerOf(element,
                    [&](const GridPlace& place) { return Give(Elements().Name(place), name); });
}

HRESULT GridAccess::get_accValue(VARIANT element, BSTR* value) noexcept {
    if (!value) return E_POINTER;
    *value = nullptr;
    if (IsTable(element)) return Answer([] { return S_FALSE; });
    return AnswerOf(element, [&](const GridPlace& place) {
        const auto text = Elements().Value(place);
        return text ? Give(*text, value) : S_FALSE;
    });
}

HRESULT GridAccess::get_accRole(VARIANT element, VARIANT* role) noexcept {
    if (!role) return E_POINTER;
    role->vt = VT_EMPTY;
    const auto put = [role](LONG value) {
        Put(*role, value);
        return S_OK;
    };
    if (IsTable(element)) return Answer([&] { return put(ROLE_SYSTEM_TABLE); });
    return AnswerOf(element, [&](const GridPlace& place) { return put(Elements().Role(place)); });
}

HRESULT GridAccess::get_accState(VARIANT element, VARIANT* state) noexcept {
    if (!state) return E_POINTER;
    state->vt = VT_EMPTY;
    if (IsTable(element)) {
        return Answer([&] {
            LONG flags = STATE_SYSTEM_FOCUSABLE;
            if (Focused() && Elements().CurrentId() == CHILDID_SELF) flags |= STATE_SYSTEM_FOCUSED;
            if (!grid_->Enabled()) flags |= STATE_SYSTEM_UNAVAILABLE;
            if (!grid_->Visible()) flags |= STATE_SYSTEM_INVISIBLE;
            Put(*state, flags);
            return S_OK;
        });
    }
    return AnswerOf(element, [&](const GridPlace& place) {
        Put(*state, Elements().State(place, Focused()));
        return S_OK;
    });
}

HRESULT GridAccess::get_accDefaultAction(VARIANT element, BSTR* text) noexcept {
    if (!text) return E_POINTER;
    *text = nullptr;
    if (IsTable(element)) return Answer([] { return S_FALSE; });
    return AnswerOf(element, [&](const GridPlace& place) -> HRESULT {
        const std::wstring_view action = Elements().DefaultAction(place);
        if (action.empty()) return S_FALSE;
        *text = Bstr(action).Detach();
        return S_OK;
    });
}

HRESULT GridAccess::get_accDescription(VARIANT, BSTR* text) noexcept { return Nothing(text); }
HRESULT GridAccess::get_accHelp(VARIANT, BSTR* text) noexcept { return Nothing(text); }
HRESULT GridAccess::get_accHelpTopic(BSTR* file, VARIANT, long*) noexcept { return Nothing(file); }
HRESULT GridAccess::get_accKeyboardShortcut(VARIANT, BSTR* text) noexcept { return Nothing(text); }

HRESULT GridAccess::get_accFocus(VARIANT* element) noexcept {
    if (const HRESULT result = Empty(element); FAILED(result)) return result;
    return Answer([&] {
        if (Focused()) Put(*element, Elements().CurrentId());
        return S_OK;
    });
}

HRESULT GridAccess::accLocation(long* left, long* top, long* width, long* height,
                                VARIANT element) noexcept {
    if (!left || !top || !width || !height) return E_POINTER;
    const auto give = [&](RECT area) {
        MapWindowPoints(window_, nullptr, reinterpret_cast<POINT*>(&area), 2);
        *left = area.left;
        *top = area.top;
        *width = area.right - area.left;
        *height = area.bottom - area.top;
        return S_OK;
    };
    if (IsTable(element)) {
        return Answer([&] {
            RECT client{};
            GetClientRect(window_, &client);
            return give(client);
        });
    }
    return AnswerOf(element, [&](const GridPlace& place) {
        const auto cell = grid_->Geometry().CellBounds(place.row, place.column);
        if (cell) return give(Scale().Pixels(*cell));
        *left = *top = *width = *height = 0;
        return S_FALSE;
    });
}

HRESULT GridAccess::accNavigate(long direction, VARIANT start, VARIANT* end) noexcept {
    if (const HRESULT result = Empty(end); FAILED(result)) return result;
    if (IsTable(start)) {
        return Answer([&] {
            const LONG count = Elements().Count();
            if (count == 0 || (direction != NAVDIR_FIRSTCHILD && direction != NAVDIR_LASTCHILD))
                return S_FALSE;
            Put(*end, direction == NAVDIR_FIRSTCHILD ? 1 : count);
            return S_OK;
        });
    }
    return AnswerOf(start, [&](const GridPlace& place) {
        const auto next = Elements().Neighbour(place, direction);
        if (!next) return S_FALSE;
        Put(*end, Elements().IdOf(*next));
        return S_OK;
    });
}

HRESULT GridAccess::accHitTest(long left, long top, VARIANT* element) noexcept {
    if (const HRESULT result = Empty(element); FAILED(result)) return result;
    return Answer([&] {
        POINT place{left, top};
        RECT client{};
        if (!ScreenToClient(window_, &place) || !GetClientRect(window_, &client) ||
            !PtInRect(&client, place))
            return S_FALSE;
        const auto cell = grid_->Geometry().HitTest(Scale().Units(place.x), Scale().Units(place.y),
                                                    grid_->RowCount());
        Put(*element, cell ? Elements().IdOf(*cell) : CHILDID_SELF);
        return S_OK;
    });
}

}  // namespace kestrel::ui::win32
