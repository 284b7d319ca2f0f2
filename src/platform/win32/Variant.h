#pragma once

#include <windows.h>
#include <oleauto.h>

#include <cstdint>
#include <string_view>

#include "platform/win32/Bstr.h"

namespace kestrel::win32 {

/// Owns a value of Automation, cleared at the end.
class Variant : public VARIANT {
 public:
    Variant() { VariantInit(this); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { VariantClear(this); }

    explicit Variant(std::string_view utf8) : Variant(Bstr(utf8)) {}
    explicit Variant(const char* utf8) : Variant(std::string_view(utf8)) {}
    explicit Variant(const void*) = delete;  // would count as a truth value
    explicit Variant(Bstr text) : Variant() {
        vt = VT_BSTR;
        bstrVal = text.Detach();
    }
    explicit Variant(std::int32_t number) : Variant() {
        vt = VT_I4;
        lVal = number;
    }
    explicit Variant(std::int16_t number) : Variant() {
        vt = VT_I2;
        iVal = number;
    }
    explicit Variant(double number) : Variant() {
        vt = VT_R8;
        dblVal = number;
    }
    explicit Variant(bool truth) : Variant() {
        vt = VT_BOOL;
        boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;  // VARIANT_TRUE is -1
    }
    /// Adds a reference.
    explicit Variant(IDispatch* object) : Variant() {
        vt = VT_DISPATCH;
        pdispVal = object;
        if (object) object->AddRef();
    }

    /// For a function that answers a value; what was held is cleared first.
    VARIANT* Out() {
        VariantClear(this);
        return this;
    }
};

}  // namespace kestrel::win32
