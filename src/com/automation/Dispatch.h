#pragma once

#include <windows.h>
#include <oaidl.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "com/automation/HostFailure.h"
#include "com/automation/HostMembers.h"
#include "com/automation/HostValue.h"
#include "platform/win32/Bstr.h"
#include "platform/win32/ComPtr.h"
#include "platform/win32/FloatingPointBorder.h"
#include "platform/win32/Variant.h"

namespace kestrel::com {

/// What all objects of one host share.
class HostConnection {
 public:
    MemberIds ids;
    std::shared_ptr<win32::FloatingPointBorder> border =
        std::make_shared<win32::FloatingPointBorder>();

    /// Called at the start of each event; what it answers lives until the end of it.
    std::function<std::shared_ptr<void>()> enterEvent;

    /// The name of a text slot as the host takes it, made once and kept. Only for the few names
    /// that are asked for again and again.
    const win32::Bstr& SlotName(const std::string& name);

 private:
    std::map<std::string, win32::Bstr> slotNames_;
};
using ConnectionPtr = std::shared_ptr<HostConnection>;

/// An argument of a call, on the stack. Text and objects remain the caller's.
class Argument : public VARIANT {
 public:
    Argument(std::int16_t number) : VARIANT{} { vt = VT_I2, iVal = number; }
    Argument(std::int32_t number) : VARIANT{} { vt = VT_I4, lVal = number; }
    Argument(double number) : VARIANT{} { vt = VT_R8, dblVal = number; }
    Argument(bool truth) : VARIANT{} {
        vt = VT_BOOL;
        boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;  // VARIANT_TRUE is -1
    }
    Argument(const win32::Bstr& text) : VARIANT{} { vt = VT_BSTR, bstrVal = text.Get(); }
    template <class Any>
    Argument(Any*) = delete;  // would count as a truth value
};

/// One object of the host (or nothing), called by name. Numbers go and come without an allocation.
/// Every member raises HostError when the host fails or answers what the type cannot be made of.
class Dispatch {
 public:
    Dispatch() = default;
    Dispatch(win32::ComPtr<IDispatch> object, ConnectionPtr connection)
        : object_(std::move(object)), connection_(std::move(connection)) {}

    explicit operator bool() const { return static_cast<bool>(object_); }
    IDispatch* Object() const { return object_.Get(); }
    HostConnection& Connection() const { return *connection_; }
    const ConnectionPtr& SharedConnection() const { return connection_; }

    double Number(HostMember member) const;
    std::int32_t Int32(HostMember member) const;
    std::int16_t Int16(HostMember member) const;
    bool Truth(HostMember member) const;

    /// Properties, or functions with arguments, that answer text or an object.
    template <class... Arguments>
    std::string Text(HostMember member, const Arguments&... arguments) const {
        win32::Variant answer;
        Invoke(HostAction::Read, member, &answer, arguments...);
        return TextOf(answer, member);
    }
    template <class... Arguments>
    Dispatch Child(HostMember member, const Arguments&... arguments) const {
        win32::Variant answer;
        Invoke(HostAction::Read, member, &answer, arguments...);
        return Wrapped(ObjectOf(answer, member));
    }
    /// The same where the host must answer an object.
    template <class... Arguments>
    Dispatch Needed(HostMember member, const Arguments&... arguments) const {
        Dispatch child = Child(member, arguments...);
        if (!child) RaiseHostAnswer(member, "nothing where an object is needed");
        return child;
    }
    /// The object under a key; nothing when the host says, in an answer or a failure, that there
    /// is none.
    Dispatch Find(HostMember member, const Argument& key) const;

    /// Sets a property, or a part of one that has a key.
    void Put(HostMember member, const Argument& value) const;
    void Put(HostMember member, const Argument& key, const Argument& value) const;

    template <class... Arguments>
    void Run(HostMember member, const Arguments&... arguments) const {
        Invoke(HostAction::Run, member, nullptr, arguments...);
    }

    /// What _NewEnum answers; nothing from a host that cannot enumerate.
    win32::ComPtr<IEnumVARIANT> Enumerator(HostMember member) const;

    /// Another object of the same host.
    Dispatch Wrapped(win32::ComPtr<IDispatch> object) const {
        return {std::move(object), connection_};
    }

 private:
    template <class... Arguments>
    void Invoke(HostAction action, HostMember member, VARIANT* answer,
                const Arguments&... arguments) const {
        // The last argument comes first; the extra element is there for calls without any.
        Argument list[sizeof...(arguments) + 1] = {Argument(arguments)..., Argument(false)};
        std::reverse(list, list + sizeof...(arguments));
        Perform(action, member, answer, list, sizeof...(arguments));
    }
    void Perform(HostAction action, HostMember member, VARIANT* answer, VARIANT* arguments,
                 std::size_t count) const;
    HRESULT TryInvoke(HostAction action, HostMember member, VARIANT* answer, VARIANT* arguments,
                      std::size_t count, ExceptionInfo& info) const;

    win32::ComPtr<IDispatch> object_;
    ConnectionPtr connection_;
};

}  // namespace kestrel::com
