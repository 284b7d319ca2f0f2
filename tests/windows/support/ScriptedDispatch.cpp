#include "windows/support/ScriptedDispatch.h"

#include <oleauto.h>

#include <algorithm>
#include <stdexcept>

#include "base/Errors.h"
#include "platform/win32/Bstr.h"

namespace kestrel::test {
namespace {

using win32::Bstr;

struct TypeMismatch : std::runtime_error {
    using std::runtime_error::runtime_error;
};

bool SameWord(const std::string& left, const std::string& right) {
    return _stricmp(left.c_str(), right.c_str()) == 0;
}

class ScriptedEnumerator final : public IEnumVARIANT {
 public:
    ScriptedEnumerator(ScriptPtr script, std::vector<ComPtr<IDispatch>> elements)
        : script_(std::move(script)), elements_(std::move(elements)) {
        ++script_->objects;
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override {
        const bool known = id == IID_IUnknown || id == IID_IEnumVARIANT;
        *object = known ? this : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() noexcept override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* values, ULONG* fetched) noexcept override {
        ULONG given = 0;
        for (; given < count && next_ < elements_.size(); ++given, ++next_) {
            values[given].vt = VT_DISPATCH;
            values[given].pdispVal = ComPtr(elements_[next_]).Detach();
        }
        if (fetched) *fetched = given;
        return given == count ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reset() noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT**) noexcept override { return E_NOTIMPL; }

 private:
    ~ScriptedEnumerator() { --script_->objects; }

    ULONG references_ = 0;
    ScriptPtr script_;
    std::vector<ComPtr<IDispatch>> elements_;
    std::size_t next_ = 0;
};

}  // namespace

const VARIANT& ScriptedCall::At(std::size_t index) const {
    if (index >= Count()) throw TypeMismatch("there are fewer arguments");
    return parameters_.rgvarg[Count() - 1 - index];
}

const VARIANT& ScriptedCall::Typed(std::size_t index, VARTYPE type) const {
    const VARIANT& value = At(index);
    if (value.vt != type) throw TypeMismatch("the argument is of another type");
    return value;
}

std::string ScriptedCall::Text(std::size_t index) const {
    const VARIANT& value = Typed(index, VT_BSTR);
    return win32::Utf8({value.bstrVal, SysStringLen(value.bstrVal)});
}

bool ScriptedCall::Truth(std::size_t index) const {
    const VARIANT_BOOL truth = Typed(index, VT_BOOL).boolVal;
    if (truth != VARIANT_TRUE && truth != VARIANT_FALSE)
        throw TypeMismatch("neither true nor false");
    return truth == VARIANT_TRUE;
}

void ScriptedCall::AnswerRaw(const VARIANT& value) {
    if (answer_)
        *answer_ = value;
    else
        VariantClear(const_cast<VARIANT*>(&value));
}

void ScriptedCall::Answer(const std::string& text) {
    VARIANT value{};
    value.vt = VT_BSTR;
    value.bstrVal = Bstr(text).Detach();
    AnswerRaw(value);
}

void ScriptedCall::Answer(double number) {
    VARIANT value{};
    value.vt = VT_R8;
    value.dblVal = number;
    AnswerRaw(value);
}

void ScriptedCall::Answer(std::int32_t number) {
    VARIANT value{};
    value.vt = VT_I4;
    value.lVal = number;
    AnswerRaw(value);
}

void ScriptedCall::Answer(std::int16_t number) {
    VARIANT value{};
    value.vt = VT_I2;
    value.iVal = number;
    AnswerRaw(value);
}

void ScriptedCall::Answer(bool truth) {
    VARIANT value{};
    value.vt = VT_BOOL;
    value.boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
    AnswerRaw(value);
}

void ScriptedCall::Answer(const ComPtr<IDispatch>& object) {
    VARIANT value{};
    value.vt = VT_DISPATCH;
    value.pdispVal = ComPtr(object).Detach();
    AnswerRaw(value);
}

void ScriptedCall::Answer(const ComPtr<IUnknown>& object) {
    VARIANT value{};
    value.vt = VT_UNKNOWN;
    value.punkVal = ComPtr(object).Detach();
    AnswerRaw(value);
}

HRESULT ScriptedCall::Fail(const std::string& description, HRESULT code) {
    failure_->scode = code;
    failure_->bstrSource = Bstr("Scripted host").Detach();
    if (!description.empty()) failure_->bstrDescription = Bstr(description).Detach();
    return DISP_E_EXCEPTION;
}

int Script::Calls() const {
    int sum = 0;
    for (const auto& [member, count] : calls) sum += count;
    return sum;
}

DISPID Script::FirstIdOf(const std::string& type) {
    const auto next = static_cast<DISPID>(100 * (firstIds_.size() + 1));
    return firstIds_.emplace(type, next).first->second;
}

/// Tells that the object leaves an error object behind.
struct ScriptedDispatch::ErrorSupport final : ISupportErrorInfo {
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) noexcept override {
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return 2; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return 1; }
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID) noexcept override { return S_OK; }
};

ScriptedDispatch::ScriptedDispatch(ScriptPtr script, std::string type)
    : script_(std::move(script)), type_(std::move(type)), firstId_(script_->FirstIdOf(type_)) {
    ++script_->objects;
}

ScriptedDispatch::~ScriptedDispatch() { --script_->objects; }

HRESULT ScriptedDispatch::QueryInterface(REFIID id, void** object) noexcept {
    static ErrorSupport errorSupport;
    *object = nullptr;
    if (id == IID_IUnknown || id == IID_IDispatch) {
        AddRef();
        *object = this;
        return S_OK;
    }
    if (id == IID_ISupportErrorInfo && leavesErrorObject) {
        *object = &errorSupport;
        return S_OK;
    }
    return others ? others->QueryInterface(id, object) : E_NOINTERFACE;
}

ULONG ScriptedDispatch::AddRef() noexcept { return ++references_; }

ULONG ScriptedDispatch::Release() noexcept {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT ScriptedDispatch::GetTypeInfoCount(UINT* count) noexcept {
    *count = typeInfo ? 1 : 0;
    return S_OK;
}

HRESULT ScriptedDispatch::GetTypeInfo(UINT, LCID, ITypeInfo** type) noexcept {
    *type = ComPtr(typeInfo).Detach();
    return *type ? S_OK : E_NOTIMPL;
}

HRESULT ScriptedDispatch::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) noexcept {
    const std::string name = win32::Utf8(names[0]);
    ++script_->lookUps[type_ + "." + name];
    for (std::size_t i = 0; i < members_.size(); ++i)
        if (SameWord(members_[i].first, name)) {
            ids[0] = firstId_ + static_cast<DISPID>(i);
            return S_OK;
        }
    ids[0] = DISPID_UNKNOWN;
    return DISP_E_UNKNOWNNAME;
}

const std::pair<std::string, ScriptedHandler>* ScriptedDispatch::Find(DISPID id) const {
    if (id == DISPID_NEWENUM) {
        const auto found = std::find_if(members_.begin(), members_.end(),
                                        [](const auto& one) { return one.first == "_NewEnum"; });
        return found == members_.end() ? nullptr : &*found;
    }
    const auto index = static_cast<std::size_t>(id - firstId_);
    return index < members_.size() ? &members_[index] : nullptr;
}

HRESULT ScriptedDispatch::Run(const std::pair<std::string, ScriptedHandler>& member,
                              ScriptedCall& call) {
    ++script_->calls[type_ + (call.IsPut() ? ".Put" : ".") + member.first];
    const auto override = script_->overrides.find(type_ + "." + member.first);
    const ScriptedHandler handler =
        override != script_->overrides.end() ? override->second : member.second;
    try {
        return handler(call);
    } catch (const TypeMismatch&) {
        return DISP_E_TYPEMISMATCH;
    } catch (const HostError& error) {
        return call.Fail(error.what());
    }
}

HRESULT ScriptedDispatch::Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags,
                                 DISPPARAMS* parameters, VARIANT* answer, EXCEPINFO* failure,
                                 UINT*) noexcept {
    const ComPtr<IDispatch> untilTheEnd(this);
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (locale != 0x0409) return DISP_E_UNKNOWNLCID;
    const bool namesValue =
        parameters->cNamedArgs == 1 && parameters->rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
    if ((flags == DISPATCH_PROPERTYPUT) != namesValue) return DISP_E_PARAMNOTOPTIONAL;
    const auto* member = Find(id);
    if (!member) return DISP_E_MEMBERNOTFOUND;
    ScriptedCall call(flags, *parameters, answer, failure);
    return Run(*member, call);
}

ComPtr<IUnknown> MakeEnumerator(ScriptPtr script, std::vector<ComPtr<IDispatch>> elements) {
    return ComPtr<IUnknown>(new ScriptedEnumerator(std::move(script), std::move(elements)));
}

}  // namespace kestrel::test
