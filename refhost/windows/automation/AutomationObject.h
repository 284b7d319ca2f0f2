#pragma once

#include <memory>
#include <span>

#include "platform/win32/ComObject.h"
#include "platform/win32/Variant.h"
#include "refhost/windows/automation/AutomationServer.h"
#include "refhost/windows/automation/Invocation.h"

namespace refhost::automation {

/// How a member may be called: the flags of IDispatch::Invoke.
inline constexpr WORD kCall = DISPATCH_METHOD;
inline constexpr WORD kGet = DISPATCH_PROPERTYGET;
inline constexpr WORD kPut = DISPATCH_PROPERTYPUT;

/// A member of an object, as a row of its table.
template <class Object>
struct Member {
    DISPID id;
    WORD kind;
    unsigned required;  ///< parameters that must be given, a put's value included
    unsigned most;
    void (*run)(Object& object, Invocation& call);
};

/// An object of the host: a dispatch interface described in the type library. Calls go through
/// the object's own table, as ITypeInfo::Invoke would cost several times as much. What a member
/// raises becomes DISP_E_EXCEPTION with its sentence.
class AutomationObject : public kestrel::win32::ComObject<IDispatch, ISupportErrorInfo> {
 public:
    // IDispatch
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID, WORD kinds,
                                     DISPPARAMS* arguments, VARIANT* answer, EXCEPINFO* failure,
                                     UINT* badArgument) noexcept override;

    // ISupportErrorInfo
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) noexcept override;

    IDispatch* AsDispatch() { return this; }

 protected:
    AutomationObject(std::shared_ptr<AutomationServer> server, const IID& iid);
    ~AutomationObject() override;

    /// The object's own dispatch interface.
    IUnknown* OtherInterface(REFIID iid) noexcept override;
    /// Finds the member and runs it; CallFailure when it cannot be called so.
    virtual void Run(DISPID id, WORD kinds, Invocation& call) = 0;
    /// `plan.Tasks(3)`: a call with arguments of a property that takes none goes to the default
    /// member of `object`, which the property has answered.
    static void RunDefault(const VARIANT& object, WORD kinds, Invocation& call);

    AutomationServer& Server() const { return *server_; }

    /// Runs the row of the table that has the id and one of the kinds.
    template <class Object>
    static void RunMember(std::span<const Member<Object>> table, Object& object, DISPID id,
                          WORD kinds, Invocation& call) {
        for (const Member<Object>& member : table) {
            if (member.id != id) continue;
            const bool answersObject = member.kind == kGet && member.most == 0;
            if (answersObject && call.HasArguments() && (kinds & (kGet | kPut)) != 0) {
                kestrel::win32::Variant answered;
                Invocation bare({}, &answered);
                member.run(object, bare);
                if (answered.vt == VT_DISPATCH) return RunDefault(answered, kinds, call);
            }
            if ((member.kind & kinds) == 0) continue;
            call.Bind(member.required, member.most, member.kind == kPut);
            return member.run(object, call);
        }
        throw CallFailure{DISP_E_MEMBERNOTFOUND};
    }

 private:
    const std::shared_ptr<AutomationServer> server_;
    const IID& iid_;
};

}  // namespace refhost::automation
