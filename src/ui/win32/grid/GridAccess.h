#pragma once

#include <windows.h>
// windows.h first
#include <oleacc.h>

#include <atomic>
#include <new>

#include "platform/win32/ModuleRef.h"
#include "ui/controls/Grid.h"
#include "ui/win32/ControlView.h"
#include "ui/win32/grid/GridElements.h"
#include "ui/win32/grid/GridScale.h"

namespace kestrel::ui::win32 {

/// What a screen reader or another assistive program reads and works a grid by. The cells are
/// simple elements, known by their ids (see GridElements).
///
/// Such a program, in this process or another, may hold the object for longer than there is a
/// window: every call then answers CO_E_OBJNOTCONNECTED.
class GridAccess final : public IAccessible {
 public:
    /// With one reference, the caller's. `context` and `grid` must live until Disconnect().
    GridAccess(HWND window, ViewContext& context, Grid& grid)
        : window_(window), context_(&context), grid_(&grid) {}

    /// The window is about to go.
    void Disconnect() noexcept;

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() noexcept override;

    // IDispatch: nobody late-bound is served
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID,
                                            DISPID*) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) noexcept override {
        return E_NOTIMPL;
    }

    // IAccessible: what the elements are
    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accChildCount(long* count) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT element, IDispatch** child) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT element, BSTR* name) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT element, BSTR* value) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT, BSTR* text) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT element, VARIANT* role) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT element, VARIANT* state) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT, BSTR* text) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT, long*) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT, BSTR* text) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* element) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* elements) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT element, BSTR* text) noexcept override;

    // IAccessible: where they are
    HRESULT STDMETHODCALLTYPE accLocation(long* left, long* top, long* width, long* height,
                                          VARIANT element) noexcept override;
    HRESULT STDMETHODCALLTYPE accNavigate(long direction, VARIANT start,
                                          VARIANT* end) noexcept override;
    HRESULT STDMETHODCALLTYPE accHitTest(long left, long top, VARIANT* element) noexcept override;

    // IAccessible: what can be done to them, as the user does it
    HRESULT STDMETHODCALLTYPE accSelect(long flags, VARIANT element) noexcept override;
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT element) noexcept override;
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT, BSTR) noexcept override { return E_NOTIMPL; }

 private:
    /// Deletes itself by Release().
    ~GridAccess() = default;

    /// Answers what the function answers, or why it was not called. Nothing is thrown.
    template <class Function>
    HRESULT Answer(Function&& function) const noexcept;
    /// The same for an element that must be a cell, header or not.
    template <class Function>
    HRESULT AnswerOf(const VARIANT& element, Function&& function) const noexcept;
    /// Does something to a cell as the user would, who cannot do anything to headers.
    template <class Function>
    HRESULT Work(const VARIANT& element, Function&& function) noexcept;

    GridElements Elements() const { return GridElements(*grid_); }
    GridScale Scale() const { return {context_->dpi}; }
    bool Focused() const { return GetFocus() == window_; }

    kestrel::win32::ModuleRef module_;
    std::atomic<ULONG> references_{1};
    HWND window_;
    ViewContext* context_;  ///< none once disconnected
    Grid* grid_;
};

template <class Function>
HRESULT GridAccess::Answer(Function&& function) const noexcept {
    if (!context_) return CO_E_OBJNOTCONNECTED;
    try {
        return function();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}

template <class Function>
HRESULT GridAccess::AnswerOf(const VARIANT& element, Function&& function) const noexcept {
    return Answer([&]() -> HRESULT {
        if (element.vt != VT_I4) return E_INVALIDARG;
        const auto place = Elements().PlaceOf(element.lVal);
        return place ? function(*place) : E_INVALIDARG;
    });
}

}  // namespace kestrel::ui::win32
