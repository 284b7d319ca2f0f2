#pragma once

#include <windows.h>
#include <oleacc.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/win32/ComObject.h"

namespace kestrel::ui::win32 {

/// What a self-painted window tells screen readers: about itself as a whole (part 0) and its parts,
/// which are numbered from 1, row by row. Asked on the window's thread only.
class AccessibleSource {
 public:
    virtual ~AccessibleSource() = default;

    virtual long PartCount() const = 0;
    /// How many stand beside each other; above and below them stand as many.
    virtual long PartsPerRow() const { return 1; }
    /// @name Of a part, 0 to PartCount. Texts are UTF-8; all but a name may be empty
    ///@{
    virtual std::string PartName(long part) const = 0;
    virtual std::string PartValue(long) const { return {}; }
    virtual std::string PartDescription(long) const { return {}; }
    virtual std::string PartAction(long) const { return {}; }  ///< what ActOn does
    virtual long PartRole(long part) const = 0;                ///< ROLE_SYSTEM_...
    /// STATE_SYSTEM_..., without what the window, the places and the focused part tell by
    /// themselves.
    virtual long PartState(long part) const = 0;
    ///@}
    /// Of a part from 1 on, in pixels of the window; empty while it is out of sight.
    virtual RECT PartPlace(long part) const = 0;
    /// 0 for a place outside the parts.
    virtual long PartAt(POINT place) const = 0;
    /// The part that keys go on from; 0 for the window itself.
    virtual long FocusedPart() const = 0;
    /// None but the focused one, as it stands.
    virtual std::vector<long> SelectedParts() const;

    /// @name What screen readers do for their users, with the outcome of the call; the window may
    /// be gone afterwards
    ///@{
    /// SELFLAG_...; the window has the keyboard already where that is asked for.
    virtual HRESULT SelectPart(long part, long flags) = 0;
    virtual HRESULT ActOn(long) { return DISP_E_MEMBERNOTFOUND; }
    ///@}
};

/// The object behind a window's accessibility. Screen readers may keep it longer than the window
/// lives: from Disconnect on it answers CO_E_OBJNOTCONNECTED.
class AccessibleParts final
    : public kestrel::win32::WithoutTypes<kestrel::win32::ComObject<IAccessible>> {
 public:
    AccessibleParts(HWND window, AccessibleSource& source);
    void Disconnect() noexcept;

    /// What a window answers to WM_GETOBJECT; nothing when something else is asked for.
    std::optional<LRESULT> Respond(WPARAM wParam, LPARAM lParam);

    /// IDispatch, which nobody uses to reach an IAccessible
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                        UINT*) noexcept override {
        return E_NOTIMPL;
    }

    /// @name IAccessible
    ///@{
    STDMETHODIMP get_accParent(IDispatch** parent) noexcept override;
    STDMETHODIMP get_accChildCount(long* count) noexcept override;
    STDMETHODIMP get_accChild(VARIANT child, IDispatch** object) noexcept override;
    STDMETHODIMP get_accName(VARIANT child, BSTR* name) noexcept override;
    STDMETHODIMP get_accValue(VARIANT child, BSTR* value) noexcept override;
    STDMETHODIMP get_accDescription(VARIANT child, BSTR* description) noexcept override;
    STDMETHODIMP get_accRole(VARIANT child, VARIANT* role) noexcept override;
    STDMETHODIMP get_accState(VARIANT child, VARIANT* state) noexcept override;
    STDMETHODIMP get_accDefaultAction(VARIANT child, BSTR* text) noexcept override;
    STDMETHODIMP get_accFocus(VARIANT* child) noexcept override;
    STDMETHODIMP get_accSelection(VARIANT* selected) noexcept override;
    STDMETHODIMP accSelect(long flags, VARIANT child) noexcept override;
    STDMETHODIMP accLocation(long* left, long* top, long* width, long* height,
                             VARIANT child) noexcept override;
    STDMETHODIMP accNavigate(long direction, VARIANT start, VARIANT* end) noexcept override;
    STDMETHODIMP accHitTest(long left, long top, VARIANT* child) noexcept override;
    STDMETHODIMP accDoDefaultAction(VARIANT child) noexcept override;
    ///@}

    /// @name Nothing to tell
    ///@{
    STDMETHODIMP get_accHelp(VARIANT, BSTR* text) noexcept override { return None(text); }
    STDMETHODIMP get_accHelpTopic(BSTR* file, VARIANT, long*) noexcept override {
        return None(file);
    }
    STDMETHODIMP get_accKeyboardShortcut(VARIANT, BSTR* text) noexcept override {
        return None(text);
    }
    STDMETHODIMP put_accName(VARIANT, BSTR) noexcept override { return DISP_E_MEMBERNOTFOUND; }
    STDMETHODIMP put_accValue(VARIANT, BSTR) noexcept override { return DISP_E_MEMBERNOTFOUND; }
    ///@}

 private:
    /// Runs `answer` with the part that the child id names; its result is the call's.
    template <class Answer>
    HRESULT Ask(const VARIANT& child, const Answer& answer) const noexcept;
    using Text = std::string (AccessibleSource::*)(long) const;
    HRESULT TellText(const VARIANT& child, Text text, BSTR* answer) const noexcept;
    RECT PlaceOf(long part) const;
    long StateOf(long part) const;
    long PartBeside(long part, long direction) const;

    static HRESULT None(BSTR* text) {
        if (!text) return E_POINTER;
        *text = nullptr;
        return S_FALSE;
    }

    HWND window_;
    AccessibleSource* source_;                      ///< none after Disconnect
    kestrel::win32::ComPtr<IAccessible> standard_;  ///< what the system says of the window
};

}  // namespace kestrel::ui::win32
