#include "windows/support/Client.h"

#include <gtest/gtest.h>

#include "platform/win32/WideText.h"

namespace refhost::test {

std::string Answer::Text() const {
    return value->vt == VT_BSTR ? kestrel::win32::Utf8({value->bstrVal ? value->bstrVal : L"",
                                                        SysStringLen(value->bstrVal)})
                                : "(no text)";
}

double Answer::Number() const {
    switch (value->vt) {
        case VT_I2:
            return value->iVal;
        case VT_I4:
            return value->lVal;
        case VT_R8:
            return value->dblVal;
        case VT_DATE:
            return value->date;
        case VT_BOOL:
            return value->boolVal;
        default:
            return -12345;
    }
}

DISPID IdOf(IDispatch& object, const wchar_t* member) {
    auto* name = const_cast<wchar_t*>(member);
    DISPID id = DISPID_UNKNOWN;
    static_cast<void>(object.GetIDsOfNames(IID_NULL, &name, 1, LOCALE_NEUTRAL, &id));  // id tells
    return id;
}

Answer Invoke(IDispatch& object, DISPID id, WORD kinds, const Arguments& arguments,
              std::vector<DISPID> names) {
    std::vector<VARIANT> values;  // the last first
    for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument)
        values.push_back(argument->Value());
    DISPPARAMS parameters{values.data(), names.data(), static_cast<UINT>(values.size()),
                          static_cast<UINT>(names.size())};
    Answer answer;
    EXCEPINFO failure{};
    answer.code = object.Invoke(id, IID_NULL, LOCALE_NEUTRAL, kinds, &parameters,
                                answer.value->Out(), &failure, &answer.badArgument);
    if (failure.bstrDescription) answer.description = kestrel::win32::Utf8(failure.bstrDescription);
    SysFreeString(failure.bstrSource);
    SysFreeString(failure.bstrDescription);
    return answer;
}

ComPtr<IDispatch> Follow(const ComPtr<IDispatch>& from,
                         std::initializer_list<const wchar_t*> members) {
    ComPtr<IDispatch> object = from;
    for (const wchar_t* member : members)
        if (object) object = Get(*object, member).Object();
    EXPECT_TRUE(object) << "no object at " << kestrel::win32::Utf8(*(members.end() - 1));
    return object;
}

std::vector<ComPtr<IDispatch>> Enumerated(IDispatch& collection) {
    std::vector<ComPtr<IDispatch>> objects;
    const Answer answer = Invoke(collection, DISPID_NEWENUM, DISPATCH_PROPERTYGET);
    if (answer.value->vt != VT_UNKNOWN) return objects;
    const auto enumerator =
        ComPtr<IUnknown>(answer.value->punkVal).As<IEnumVARIANT>(IID_IEnumVARIANT);
    ULONG given = 0;
    for (Variant value; enumerator && enumerator->Next(1, value.Out(), &given) == S_OK;)
        objects.emplace_back(value.pdispVal);
    return objects;
}

}  // namespace refhost::test
