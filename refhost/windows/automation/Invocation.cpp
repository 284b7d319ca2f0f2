#include "refhost/windows/automation/Invocation.h"

#include <cmath>

#include "base/Errors.h"
#include "platform/XmlCharacters.h"
#include "platform/win32/Enumerator.h"
#include "platform/win32/Variant.h"

namespace refhost::automation {

using kestrel::win32::Bstr;
using kestrel::win32::ComPtr;
using kestrel::win32::Utf8;
using kestrel::win32::Variant;

namespace {

struct ObjectTraits {
    using Interface = IEnumVARIANT;
    using Element = ComPtr<IDispatch>;
    using Out = VARIANT;
    static void Copy(const Element& element, VARIANT& out) {
        out.vt = VT_DISPATCH;
        out.pdispVal = ComPtr<IDispatch>(element).Detach();
    }
};

/// How languages say that an optional argument is left out.
bool IsLeftOut(const VARIANT& value) {
    return value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND;
}

}  // namespace

void Invocation::Place(unsigned parameter, UINT index, unsigned most) {
    if (parameter >= most) throw CallFailure{DISP_E_PARAMNOTFOUND, index};
    if (arguments_[parameter]) throw CallFailure{DISP_E_BADPARAMCOUNT, index};
    if (!IsLeftOut(given_.rgvarg[index])) arguments_[parameter] = &given_.rgvarg[index];
}

void Invocation::Bind(unsigned required, unsigned most, bool isPut) {
    if (given_.cArgs > most || given_.cNamedArgs > given_.cArgs)
        throw CallFailure{DISP_E_BADPARAMCOUNT};
    for (UINT index = 0; index < given_.cNamedArgs; ++index) {  // named ones stand first
        const DISPID name = given_.rgdispidNamedArgs[index];
        const bool isValue = isPut && name == DISPID_PROPERTYPUT;
        Place(isValue ? most - 1 : static_cast<unsigned>(name), index, most);
    }
    for (UINT index = given_.cNamedArgs; index < given_.cArgs; ++index)  // the last stands first
        Place(given_.cArgs - 1 - index, index, most);
    for (unsigned parameter = 0; parameter < required; ++parameter)
        if (!Has(parameter)) throw CallFailure{DISP_E_BADPARAMCOUNT};
}

const VARIANT& Invocation::Value(unsigned parameter) const {
    const VARIANT* value = arguments_[parameter];
    if (!value) throw CallFailure{DISP_E_PARAMNOTOPTIONAL};
    if (value->vt == (VT_BYREF | VT_VARIANT)) value = value->pvarVal;  // a script's variable
    return *value;
}

void Invocation::Refuse(HRESULT code, unsigned parameter) const {
    throw CallFailure{code, static_cast<UINT>(arguments_[parameter] - given_.rgvarg)};
}

void Invocation::Convert(unsigned parameter, VARTYPE type, VARIANT& into) const {
    const HRESULT result = VariantChangeTypeEx(&into, const_cast<VARIANT*>(&Value(parameter)),
                                               LOCALE_INVARIANT, 0, type);
    if (FAILED(result)) Refuse(result, parameter);
}

bool Invocation::IsText(unsigned parameter) const {
    return (Value(parameter).vt & ~VT_BYREF) == VT_BSTR;
}

std::int32_t Invocation::Whole(unsigned parameter) const {
    if (Value(parameter).vt == VT_I4) return Value(parameter).lVal;
    Variant converted;
    Convert(parameter, VT_I4, converted);
    return converted.lVal;
}

std::int16_t Invocation::Small(unsigned parameter) const {
    Variant converted;
    Convert(parameter, VT_I2, converted);
    return converted.iVal;
}

std::uint64_t Invocation::Seed(unsigned parameter) const {
    Variant converted;
    Convert(parameter, VT_UI8, converted);
    return converted.ullVal;
}

double Invocation::Number(unsigned parameter) const {
    double number = Value(parameter).dblVal;
    if (Value(parameter).vt != VT_R8) {
        Variant converted;
        Convert(parameter, VT_R8, converted);
        number = converted.dblVal;
    }
    if (!std::isfinite(number)) Refuse(DISP_E_OVERFLOW, parameter);
    return number;
}

bool Invocation::Truth(unsigned parameter) const {
    if (Value(parameter).vt == VT_BOOL) return Value(parameter).boolVal != VARIANT_FALSE;
    Variant converted;
    Convert(parameter, VT_BOOL, converted);
    return converted.boolVal != VARIANT_FALSE;
}

std::string Invocation::Text(unsigned parameter) const {
    const VARIANT& value = Value(parameter);
    if (value.vt == VT_BSTR)
        return Utf8({value.bstrVal ? value.bstrVal : L"", SysStringLen(value.bstrVal)});
    Variant converted;
    Convert(parameter, VT_BSTR, converted);
    return Utf8({converted.bstrVal, SysStringLen(converted.bstrVal)});
}

std::string Invocation::StoredText(unsigned parameter) const {
    const std::string text = Text(parameter);
    const std::size_t at = kestrel::XmlTextLength(text);
    if (at < text.size())
        throw kestrel::HostError("The text holds the character number " +
                                 std::to_string(static_cast<unsigned char>(text[at])) +
                                 " at its byte " + std::to_string(at + 1) +
                                 ", which no plan file can hold; leave it out.");
    return text;
}

void Invocation::Answer(std::int32_t number) {
    if (!answer_) return;
    answer_->vt = VT_I4;
    answer_->lVal = number;
}

void Invocation::Answer(std::int16_t number) {
    if (!answer_) return;
    answer_->vt = VT_I2;
    answer_->iVal = number;
}

void Invocation::Answer(double number) {
    if (!answer_) return;
    answer_->vt = VT_R8;
    answer_->dblVal = number;
}

void Invocation::Answer(bool truth) {
    if (!answer_) return;
    answer_->vt = VT_BOOL;
    answer_->boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;  // VARIANT_TRUE is -1
}

void Invocation::Answer(const std::string& text) {
    if (!answer_) return;
    answer_->bstrVal = Bstr(text).Detach();
    answer_->vt = VT_BSTR;
}

void Invocation::Answer(ComPtr<IDispatch> object) {
    if (!answer_) return;
    answer_->vt = VT_DISPATCH;
    answer_->pdispVal = object.Detach();
}

void Invocation::AnswerEnumerator(std::vector<ComPtr<IDispatch>> objects) {
    if (!answer_) return;
    answer_->punkVal = kestrel::win32::Enumerator<ObjectTraits>::Make(std::move(objects)).Detach();
    answer_->vt = VT_UNKNOWN;
}

void Invocation::AnswerDate(double serial) {
    if (!answer_) return;
    answer_->vt = VT_DATE;
    answer_->date = serial;
}

}  // namespace refhost::automation
