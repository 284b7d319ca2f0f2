#pragma once

#include <windows.h>
#include <oaidl.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "platform/win32/ComPtr.h"
#include "platform/win32/Variant.h"

namespace refhost::test {

using kestrel::win32::ComPtr;
using kestrel::win32::Variant;

/// What IDispatch::Invoke answered.
struct Answer {
    HRESULT code = E_UNEXPECTED;
    std::shared_ptr<Variant> value = std::make_shared<Variant>();
    std::string description;  ///< of DISP_E_EXCEPTION
    UINT badArgument = 99;

    ComPtr<IDispatch> Object() const {
        return value->vt == VT_DISPATCH ? ComPtr<IDispatch>(value->pdispVal) : nullptr;
    }
    std::string Text() const;
    double Number() const;  ///< of any number, date or truth value; -12345 of anything else
};

/// Arguments as they are written in a script: numbers, texts, truth values, objects, raw values.
class Argument {
 public:
    Argument(std::int32_t number) : value_(std::make_shared<Variant>(number)) {}
    Argument(double number) : value_(std::make_shared<Variant>(number)) {}
    Argument(bool truth) : value_(std::make_shared<Variant>(truth)) {}
    Argument(const char* text) : value_(std::make_shared<Variant>(std::string_view(text))) {}
    Argument(const std::string& text) : Argument(text.c_str()) {}
    /// A value without anything to free.
    Argument(const VARIANT& raw) : value_(std::make_shared<Variant>()) {
        static_cast<VARIANT&>(*value_) = raw;
    }
    const VARIANT& Value() const { return *value_; }

 private:
    std::shared_ptr<Variant> value_;
};
using Arguments = std::vector<Argument>;

DISPID IdOf(IDispatch& object, const wchar_t* member);

/// With `names` the last so many arguments are named ones.
Answer Invoke(IDispatch& object, DISPID id, WORD kinds, const Arguments& arguments = {},
              std::vector<DISPID> names = {});

inline Answer Get(IDispatch& object, const wchar_t* member, const Arguments& arguments = {}) {
    return Invoke(object, IdOf(object, member), DISPATCH_PROPERTYGET | DISPATCH_METHOD, arguments);
}
inline Answer Put(IDispatch& object, const wchar_t* member, const Arguments& arguments) {
    return Invoke(object, IdOf(object, member), DISPATCH_PROPERTYPUT, arguments,
                  {DISPID_PROPERTYPUT});
}
/// The object that a member answers; follows one member after the other.
ComPtr<IDispatch> Follow(const ComPtr<IDispatch>& from,
                         std::initializer_list<const wchar_t*> members);
inline ComPtr<IDispatch> ItemOf(const ComPtr<IDispatch>& collection, const Argument& key) {
    return Get(*collection, L"Item", {key}).Object();
}
/// Everything that the collection's enumerator gives.
std::vector<ComPtr<IDispatch>> Enumerated(IDispatch& collection);

}  // namespace refhost::test
