#pragma once

#include <windows.h>
#include <oleauto.h>

#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "platform/win32/WideText.h"

namespace kestrel::win32 {

/// Owns a string of Automation. No string at all counts as an empty one.
class Bstr {
 public:
    Bstr() = default;
    explicit Bstr(std::wstring_view text)
        : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
        if (!text_) throw std::bad_alloc();
    }
    explicit Bstr(std::string_view utf8) : Bstr(std::wstring_view(Wide(utf8))) {}
    Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
    Bstr& operator=(Bstr&& other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    ~Bstr() { SysFreeString(text_); }

    BSTR Get() const { return text_; }
    /// Hands the string over to the caller.
    BSTR Detach() { return std::exchange(text_, nullptr); }
    /// For a function that answers a string; what was held is freed first.
    BSTR* Out() {
        SysFreeString(std::exchange(text_, nullptr));
        return &text_;
    }

    std::wstring_view View() const { return {text_ ? text_ : L"", SysStringLen(text_)}; }
    std::string Utf8() const { return win32::Utf8(View()); }

 private:
    BSTR text_ = nullptr;
};

}  // namespace kestrel::win32
