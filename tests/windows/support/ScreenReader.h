#pragma once

#include <windows.h>
#include <gtest/gtest.h>
#include <oleacc.h>

#include <algorithm>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "platform/win32/Bstr.h"
#include "platform/win32/ComPtr.h"
#include "platform/win32/Variant.h"
#include "platform/win32/WideText.h"

namespace kestrel::test {

/// What a program that reads windows to its user finds in one. Numbers are -1, texts "failed" where
/// the window answers an error.
class ScreenReader {
 public:
    ScreenReader() = default;
    explicit ScreenReader(HWND window) {
        AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                   object_.OutVoid());
    }
    IAccessible* operator->() const { return object_.Get(); }
    IAccessible* Get() const { return object_.Get(); }

    static VARIANT Part(long id) {
        VARIANT part{};
        part.vt = VT_I4;
        part.lVal = id;
        return part;
    }
    std::string Name(long part) const { return Text(&IAccessible::get_accName, part); }
    std::string Value(long part) const { return Text(&IAccessible::get_accValue, part); }
    std::string Description(long part) const {
        return Text(&IAccessible::get_accDescription, part);
    }
    long Role(long part) const { return Number(&IAccessible::get_accRole, part); }
    long State(long part) const { return Number(&IAccessible::get_accState, part); }
    long Count() const {
        long count = 0;
        return FAILED(object_->get_accChildCount(&count)) ? -1 : count;
    }
    /// -1 while the keyboard is elsewhere.
    long Focus() const {
        win32::Variant part;
        return object_->get_accFocus(part.Out()) == S_OK ? part.lVal : -1;
    }
    /// 0 where there is none.
    long Beside(long part, long direction) const {
        win32::Variant end;
        const HRESULT result = object_->accNavigate(direction, Part(part), end.Out());
        return FAILED(result) ? -1 : end.vt == VT_I4 ? end.lVal : 0;
    }
    long At(long x, long y) const {
        win32::Variant hit;
        return object_->accHitTest(x, y, hit.Out()) == S_OK ? hit.lVal : -1;
    }
    /// On the screen; empty where the part is out of sight.
    RECT Place(long part) const {
        long left = 0, top = 0, width = 0, height = 0;
        object_->accLocation(&left, &top, &width, &height, Part(part));
        return {left, top, left + width, top + height};
    }

 private:
    template <class Method>
    std::string Text(Method method, long part) const {
        win32::Bstr text;
        return FAILED((object_.Get()->*method)(Part(part), text.Out())) ? "failed" : text.Utf8();
    }
    template <class Method>
    long Number(Method method, long part) const {
        win32::Variant number;
        const HRESULT result = (object_.Get()->*method)(Part(part), number.Out());
        return SUCCEEDED(result) && number.vt == VT_I4 ? number.lVal : -1;
    }

    win32::ComPtr<IAccessible> object_;
};

/// What a part says of itself: a row of a test's table.
struct ReadPart {
    long id;
    const char *name, *value;
    long role, state;
};

inline void ExpectParts(const ScreenReader& reader, std::initializer_list<ReadPart> parts) {
    for (const ReadPart& part : parts) {
        SCOPED_TRACE(part.name);
        EXPECT_EQ(reader.Name(part.id), part.name);
        EXPECT_EQ(reader.Value(part.id), part.value);
        EXPECT_EQ(reader.Role(part.id), part.role);
        EXPECT_EQ(reader.State(part.id), part.state);
    }
}

/// Hears what the thread's windows announce of their parts while it lives; one at a time.
class Announcements {
 public:
    Announcements() {
        heard_.clear();
        hook_ =
            SetWinEventHook(EVENT_OBJECT_FOCUS, EVENT_OBJECT_VALUECHANGE, GetModuleHandleW(nullptr),
                            Listen, GetCurrentProcessId(), 0, WINEVENT_INCONTEXT);
    }
    Announcements(const Announcements&) = delete;
    Announcements& operator=(const Announcements&) = delete;
    ~Announcements() { UnhookWinEvent(hook_); }

    auto Count(DWORD event, long part) const {
        return std::count(heard_.begin(), heard_.end(), std::pair(event, part));
    }

 private:
    static void CALLBACK Listen(HWINEVENTHOOK, DWORD event, HWND, LONG object, LONG part, DWORD,
                                DWORD) {
        if (object == OBJID_CLIENT && part != CHILDID_SELF) heard_.emplace_back(event, part);
    }

    inline static std::vector<std::pair<DWORD, long>> heard_;
    HWINEVENTHOOK hook_;
};

}  // namespace kestrel::test
