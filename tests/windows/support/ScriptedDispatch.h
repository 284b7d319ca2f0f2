#pragma once

#include <windows.h>
// windows.h first
#include <ocidl.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/win32/ComPtr.h"

/// A host made of objects that do what a test says: named members with handlers, called through
/// IDispatch like any host's.
namespace kestrel::test {

using win32::ComPtr;

/// One call of a member. Arguments count from 0 in the order in which they are written; for a put
/// the new value is the last. An argument of another type than the one asked for makes the call
/// answer DISP_E_TYPEMISMATCH: the add-in is to pass the very types of the model.
class ScriptedCall {
 public:
    ScriptedCall(WORD flags, const DISPPARAMS& parameters, VARIANT* answer, EXCEPINFO* failure)
        : flags_(flags), parameters_(parameters), answer_(answer), failure_(failure) {}

    bool IsPut() const { return flags_ == DISPATCH_PROPERTYPUT; }
    std::size_t Count() const { return parameters_.cArgs; }
    const VARIANT& At(std::size_t index) const;

    std::string Text(std::size_t index) const;
    double Number(std::size_t index) const { return Typed(index, VT_R8).dblVal; }
    std::int32_t Int32(std::size_t index) const { return Typed(index, VT_I4).lVal; }
    std::int16_t Int16(std::size_t index) const { return Typed(index, VT_I2).iVal; }
    bool Truth(std::size_t index) const;

    void Answer(const std::string& text);
    void Answer(double number);
    void Answer(std::int32_t number);
    void Answer(std::int16_t number);
    void Answer(bool truth);
    /// An object, or none.
    void Answer(const ComPtr<IDispatch>& object);
    void Answer(const ComPtr<IUnknown>& object);
    /// Takes the value over.
    void AnswerRaw(const VARIANT& value);

    /// Answers DISP_E_EXCEPTION with a description (none when empty) and a code.
    HRESULT Fail(const std::string& description, HRESULT code = E_FAIL);
    EXCEPINFO& Failure() { return *failure_; }

 private:
    const VARIANT& Typed(std::size_t index, VARTYPE type) const;

    WORD flags_;
    const DISPPARAMS& parameters_;
    VARIANT* answer_;
    EXCEPINFO* failure_;
};

using ScriptedHandler = std::function<HRESULT(ScriptedCall&)>;

/// What all objects of one scripted host share.
struct Script {
    /// By "Type.Member": runs in place of what the object itself would do.
    std::map<std::string, ScriptedHandler> overrides;

    std::map<std::string, int> calls;    ///< by "Type.Member"; a put as "Type.PutMember"
    std::map<std::string, int> lookUps;  ///< GetIDsOfNames, by "Type.Member"
    int objects = 0;                     ///< alive

    int Calls() const;
    /// Dispatch ids of different types differ.
    DISPID FirstIdOf(const std::string& type);

 private:
    std::map<std::string, DISPID> firstIds_;
};
using ScriptPtr = std::shared_ptr<Script>;

class ScriptedDispatch final : public IDispatch {
 public:
    /// With no reference yet.
    ScriptedDispatch(ScriptPtr script, std::string type);

    /// Adds a member; "_NewEnum" gets its usual id. A handler may answer nothing for S_OK, and may
    /// raise HostError for an exception with that description.
    template <class Handler>
    void On(const std::string& member, Handler handler) {
        if constexpr (std::is_void_v<std::invoke_result_t<Handler, ScriptedCall&>>)
            members_.emplace_back(member, [handler](ScriptedCall& call) {
                handler(call);
                return S_OK;
            });
        else
            members_.emplace_back(member, std::move(handler));
    }

    /// Asked for interfaces that the object itself has not.
    ComPtr<IUnknown> others;
    /// What GetTypeInfo answers; may be nothing.
    ComPtr<ITypeInfo> typeInfo;
    /// Says that failures leave an error object.
    bool leavesErrorObject = false;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override;
    ULONG STDMETHODCALLTYPE Release() noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale,
                                          ITypeInfo** type) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count,
                                            LCID locale, DISPID* ids) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* answer, EXCEPINFO* failure,
                                     UINT* wrongArgument) noexcept override;

 private:
    struct ErrorSupport;
    ~ScriptedDispatch();
    const std::pair<std::string, ScriptedHandler>* Find(DISPID id) const;
    HRESULT Run(const std::pair<std::string, ScriptedHandler>& member, ScriptedCall& call);

    ULONG references_ = 0;
    ScriptPtr script_;
    std::string type_;
    DISPID firstId_;
    std::vector<std::pair<std::string, ScriptedHandler>> members_;
};

/// An IEnumVARIANT over these objects.
ComPtr<IUnknown> MakeEnumerator(ScriptPtr script, std::vector<ComPtr<IDispatch>> elements);

}  // namespace kestrel::test
