#include "com/automation/HostValue.h"

#include <cmath>
#include <optional>

#include "base/Errors.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "com/automation/HostFailure.h"
#include "platform/win32/SystemMessage.h"
#include "platform/win32/Variant.h"

namespace kestrel::com {
namespace {

using win32::ComPtr;

constexpr const char* kNumber = "a number";

std::string TextIn(const VARIANT& value) {
    return win32::Utf8({value.bstrVal ? value.bstrVal : L"", SysStringLen(value.bstrVal)});
}

/// Text that a message quotes; a long one only at its start.
std::string Quoted(std::string text) {
    constexpr std::size_t kShown = 60;
    if (text.size() > kShown) text = text.substr(0, WholeCharacterAt(text, kShown)) + "...";
    return "the text \"" + text + "\"";
}

std::string Described(const VARIANT& value) {
    if (value.vt & VT_ARRAY) return "a list of values";
    switch (value.vt) {
        case VT_BSTR:
            return Quoted(TextIn(value));
        case VT_ERROR:
            return "an error (" + win32::SystemMessage(value.scode) + ")";
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return "an object";
        default:
            return "a value of type " + std::to_string(value.vt);
    }
}

[[noreturn]] void Refuse(HostMember member, const std::string& what, const char* wanted) {
    RaiseHostAnswer(member, what + " where " + wanted + " is needed");
}

/// The value itself where the host answered a reference to one.
class Plain {
 public:
    Plain(const VARIANT& answer, HostMember member) : value_(&answer) {
        if (answer.vt == (VT_VARIANT | VT_BYREF) && answer.pvarVal) value_ = answer.pvarVal;
        if (!(value_->vt & VT_BYREF)) return;
        if (!value_->byref || FAILED(VariantCopyInd(&copy_, const_cast<VARIANT*>(value_))))
            Refuse(member, "a reference that leads nowhere", "a value");
        value_ = &copy_;
    }
    const VARIANT& operator*() const { return *value_; }
    const VARIANT* operator->() const { return value_; }

    bool IsNothing() const {
        switch (value_->vt) {
            case VT_EMPTY:
            case VT_NULL:
                return true;
            case VT_ERROR:
                return value_->scode == DISP_E_PARAMNOTFOUND;
            case VT_DISPATCH:
            case VT_UNKNOWN:
                return value_->punkVal == nullptr;
            default:
                return false;
        }
    }

 private:
    const VARIANT* value_;
    win32::Variant copy_;
};

double Finite(double number, HostMember member) {
    if (!std::isfinite(number)) Refuse(member, "a value that is not finite", kNumber);
    return number;
}

double NumberInText(const VARIANT& value, HostMember member) {
    const std::string text = TextIn(value);
    try {
        return ParseNumber(text);
    } catch (const DataError&) {
        Refuse(member, Quoted(text), kNumber);
    }
}

double NumberInDecimal(const VARIANT& value, HostMember member) {
    DECIMAL decimal = value.decVal;
    decimal.wReserved = 0;  // where the value keeps its type
    double number = 0;
    if (FAILED(VarR8FromDec(&decimal, &number)))
        Refuse(member, "a decimal that is damaged", kNumber);
    return number;
}

double PlainNumber(const Plain& value, HostMember member) {
    switch (value->vt) {
        case VT_R8:
        case VT_DATE:
            return Finite(value->dblVal, member);
        case VT_R4:
            return Finite(value->fltVal, member);
        case VT_I1:
            return static_cast<signed char>(value->cVal);
        case VT_I2:
            return value->iVal;
        case VT_I4:
        case VT_INT:
            return value->lVal;
        case VT_I8:
            return static_cast<double>(value->llVal);
        case VT_UI1:
            return value->bVal;
        case VT_UI2:
            return value->uiVal;
        case VT_UI4:
        case VT_UINT:
            return value->ulVal;
        case VT_UI8:
            return static_cast<double>(value->ullVal);
        case VT_CY:
            return static_cast<double>(value->cyVal.int64) / 10000.0;
        case VT_DECIMAL:
            return NumberInDecimal(*value, member);
        case VT_BOOL:
            return value->boolVal ? -1 : 0;  // as Automation itself counts truth
        case VT_BSTR:
            return NumberInText(*value, member);
        default:
            if (value.IsNothing()) return 0;
            Refuse(member, Described(*value), kNumber);
    }
}

/// The integer that `convert` makes of the answer.
template <class Integer>
Integer Whole(const VARIANT& answer, HostMember member, std::optional<Integer> (*convert)(double),
              const char* wanted) {
    const double number = NumberOf(answer, member);
    const std::optional<Integer> whole = convert(number);
    if (!whole) Refuse(member, GeneralText(number), wanted);
    return *whole;
}

std::optional<bool> TruthInText(const VARIANT& value) {
    const std::wstring_view text{value.bstrVal ? value.bstrVal : L"", SysStringLen(value.bstrVal)};
    const auto is = [&](std::wstring_view word) {
        return text.size() == word.size() &&
               CompareStringOrdinal(text.data(), static_cast<int>(text.size()), word.data(),
                                    static_cast<int>(word.size()), TRUE) == CSTR_EQUAL;
    };
    if (is(L"True")) return true;
    if (is(L"False")) return false;
    return std::nullopt;
}

}  // namespace

double NumberOf(const VARIANT& answer, HostMember member) {
    if (answer.vt == VT_R8) return Finite(answer.dblVal, member);
    return PlainNumber(Plain(answer, member), member);
}

std::int32_t Int32Of(const VARIANT& answer, HostMember member) {
    if (answer.vt == VT_I4) return answer.lVal;
    return Whole(answer, member, ToInt32, "a whole number from -2147483648 to 2147483647");
}

std::int16_t Int16Of(const VARIANT& answer, HostMember member) {
    if (answer.vt == VT_I2) return answer.iVal;
    return Whole(answer, member, ToInt16, "a whole number from -32768 to 32767");
}

bool TruthOf(const VARIANT& answer, HostMember member) {
    if (answer.vt == VT_BOOL) return answer.boolVal != VARIANT_FALSE;
    const Plain value(answer, member);
    if (value->vt == VT_BSTR)
        if (const auto truth = TruthInText(*value)) return *truth;
    return PlainNumber(value, member) != 0;
}

std::string TextOf(const VARIANT& answer, HostMember member) {
    const Plain value(answer, member);
    if (value.IsNothing()) return {};
    switch (value->vt) {
        case VT_BSTR:
            return TextIn(*value);
        case VT_BOOL:
            return value->boolVal ? "True" : "False";
        case VT_I8:
            return std::to_string(value->llVal);
        case VT_UI8:
            return std::to_string(value->ullVal);
        case VT_DISPATCH:
        case VT_UNKNOWN:
        case VT_ERROR:
            Refuse(member, Described(*value), "a text");
        default:
            return GeneralText(PlainNumber(value, member));
    }
}

ComPtr<IDispatch> ObjectOf(const VARIANT& answer, HostMember member) {
    const Plain value(answer, member);
    if (value.IsNothing()) return nullptr;
    if (value->vt == VT_DISPATCH) return value->pdispVal;
    if (value->vt == VT_UNKNOWN)
        if (auto object = ComPtr<IUnknown>(value->punkVal).As<IDispatch>()) return object;
    Refuse(member, Described(*value), "an object of the host");
}

}  // namespace kestrel::com
