#include <windows.h>
#include <gtest/gtest.h>
#include <oleacc.h>

#include <algorithm>
#include <system_error>
#include <vector>

#include "platform/win32/ComObject.h"
#include "platform/win32/Gdi.h"
#include "platform/win32/Handles.h"
#include "platform/win32/Variant.h"
#include "windows/support/LeakCheck.h"

// Everything that owns something of the system: how often references are added and released, and
// handles closed.
namespace kestrel::win32 {
namespace {

/// An object that only counts.
class Counted final : public WithoutTypes<IDispatch> {
 public:
    int added = 0, released = 0;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override {
        return AnswerInterface(FindInterface<IDispatch>(this, iid), object);
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return static_cast<ULONG>(++added); }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return static_cast<ULONG>(++released); }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) noexcept override {
        return E_NOTIMPL;
    }
};

TEST(Owners, AddAndReleaseEachReferenceOnce) {
    using Pointer = ComPtr<IDispatch>;
    const struct {
        const char* what;
        void (*act)(Counted* object);
        int added, released;
    } rows[] = {
        {"made", [](Counted* o) { Pointer p(o); }, 1, 1},
        {"attached", [](Counted* o) { Pointer::Attach(o); }, 0, 1},
        {"detached", [](Counted* o) { Pointer(o).Detach(); }, 1, 0},
        {"copied", [](Counted* o) { Pointer p(o), q(p); }, 2, 2},
        {"moved", [](Counted* o) { Pointer p(o), q(std::move(p)); }, 1, 1},
        {"put over another", [](Counted* o) { Pointer{o} = Pointer{o}; }, 2, 2},
        {"reset", [](Counted* o) { Pointer(o).Reset(); }, 1, 1},
        {"a place for an answer", [](Counted* o) { Pointer(o).OutVoid(); }, 1, 1},
        {"asked", [](Counted* o) { Pointer(o).As<IUnknown>(); }, 2, 2},
        {"asked in vain", [](Counted* o) { Pointer(o).As<IAccessible>(); }, 1, 1},
        {"in a value", [](Counted* o) { Variant v(o); }, 1, 1},
        {"a value for an answer", [](Counted* o) { Variant(o).Out(); }, 1, 1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Counted object;
        row.act(&object);
        EXPECT_EQ(object.added, row.added);
        EXPECT_EQ(object.released, row.released);
    }
}

std::vector<int> closed;

struct CountedTraits {
    using Value = int;
    static Value Invalid() { return 0; }
    static bool Close(Value value) {
        closed.push_back(value);
        return value != 3;
    }
};

TEST(Owners, CloseEachHandleOnce) {
    using Owner = UniqueHandle<CountedTraits>;
    const struct {
        const char* what;
        void (*act)();
        std::vector<int> closed;
    } rows[] = {
        {"nothing", [] { EXPECT_TRUE(Owner().Close()); }, {}},
        {"made", [] { EXPECT_TRUE(Owner(1)); }, {1}},
        {"moved", [] { Owner a(1), b(std::move(a)); }, {1}},
        {"put over another", [] { Owner(1) = Owner(2); }, {1, 2}},
        {"closed", [] { EXPECT_TRUE(Owner(1).Close()); }, {1}},
        {"closed in vain", [] { EXPECT_FALSE(Owner(3).Close()); }, {3}},
        {"detached", [] { EXPECT_EQ(Owner(1).Detach(), 1); }, {}},
        {"a place for an answer", [] { *Owner(1).Out() = 2; }, {1, 2}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        closed.clear();
        row.act();
        std::sort(closed.begin(), closed.end());
        EXPECT_EQ(closed, row.closed);
    }
}

TEST(Owners, DeleteADrawingObjectWithItsLastOwner) {
    Brush owner(CreateSolidBrush(RGB(1, 2, 3)));
    const HBRUSH brush = owner.Get();
    Brush other(std::move(owner));
    { const Brush emptied(std::move(owner)); }
    EXPECT_EQ(GetObjectType(brush), static_cast<DWORD>(OBJ_BRUSH));
    const OwnDc screen(CreateCompatibleDC(nullptr));
    const HGDIOBJ former = GetCurrentObject(screen.Get(), OBJ_BRUSH);
    const COLORREF colour = GetTextColor(screen.Get());
    {
        const SavedState saved(screen.Get());
        const Selection selected(screen.Get(), brush);
        SetTextColor(screen.Get(), colour ^ 1);
        EXPECT_EQ(GetCurrentObject(screen.Get(), OBJ_BRUSH), brush);
    }
    EXPECT_EQ(GetCurrentObject(screen.Get(), OBJ_BRUSH), former);
    EXPECT_EQ(GetTextColor(screen.Get()), colour);
    other = Brush(CreateSolidBrush(RGB(3, 2, 1)));
    EXPECT_EQ(GetObjectType(brush), 0u);
    EXPECT_THROW(Pen(nullptr), std::system_error);
    EXPECT_THROW(OwnDc(nullptr), std::system_error);
}

TEST(Owners, LoseNothingWhoseClosingNobodySees) {
    const OwnedWindow window(CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 9, 9, nullptr,
                                             nullptr, nullptr, nullptr));
    EXPECT_TRUE(test::LeakCheck(100, [&] {
        Bstr text(L"text"), other(std::move(text));
        text = std::move(other);
        *other.Out() = Bstr(L"other").Detach();
        other.Out();
        Variant value{Bstr(L"third")};
        value.Out();
        OwnDc made(CreateCompatibleDC(nullptr)), taken(std::move(made));
        made = std::move(taken);
        const WindowDc shown(window.Get());
        const MemoryPicture picture(shown.Get(), 3, 3);
        const PaintScope paint(window.Get());
        EXPECT_EQ(text.View(), L"text");
        EXPECT_EQ(other.View(), L"");
    }));
}

/// A real object, and how many there are.
class Real final
    : public WithoutTypes<ComObject<IDispatch, ISupportErrorInfo, IProvideClassInfo2>> {
 public:
    explicit Real(int& alive) : alive_(alive) { ++alive_; }
    ~Real() override { --alive_; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) noexcept override {
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetGUID(DWORD, GUID*) noexcept override { return E_NOTIMPL; }

 private:
    int& alive_;
};

TEST(ComObject, IsOneWhateverItIsAskedForAndGoesWithItsLastReference) {
    int alive = 0;
    auto object = MakeCom<Real>(alive);
    auto identity = object.As<IUnknown>();
    for (const IID& iid : {__uuidof(IUnknown), __uuidof(IDispatch), __uuidof(ISupportErrorInfo),
                           __uuidof(IProvideClassInfo), __uuidof(IProvideClassInfo2)}) {
        const auto shown = object.As<IUnknown>(iid);
        ASSERT_TRUE(shown);
        for (const IID& back : {__uuidof(IUnknown), __uuidof(IDispatch)})
            EXPECT_EQ(shown.As<IUnknown>(back).Get(), identity.Get());
    }
    void* none = &alive;
    EXPECT_EQ(object->QueryInterface(__uuidof(IAccessible), &none), E_NOINTERFACE);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(object->QueryInterface(__uuidof(IUnknown), nullptr), E_POINTER);
    object.Reset();
    EXPECT_EQ(alive, 1);
    EXPECT_TRUE(ModuleRef::InUse());
    identity.Reset();
    EXPECT_EQ(alive, 0);
    EXPECT_FALSE(ModuleRef::InUse());
}

}  // namespace
}  // namespace kestrel::win32
