#pragma once

#include <windows.h>
#include <ocidl.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "platform/win32/ComPtr.h"

/// A host's Automation objects with a test in between: the client's calls pass here on their way.
namespace kestrel::test {

using win32::ComPtr;

/// One call on its way to the host.
struct PassingCall {
    const std::string name;   ///< "Task.Duration", put "Task.PutDuration", look-up "Task.Name?";
                              ///< "Tasks.Next" of a list; "Advise"
    const VARIANT& argument;  ///< the first as written; a put's value where it has no other
    VARIANT* answer;          ///< empty as yet; null where the client wants none
    EXCEPINFO& failure;
    const std::function<HRESULT()> Pass;  ///< lets it through: the host answers

    /// Answers DISP_E_EXCEPTION with a description (none when empty) and a code.
    HRESULT Fail(const std::string& description, HRESULT code = E_FAIL);
    /// Answers this in place of the host. A value without anything to free, or handed over.
    HRESULT Answer(const VARIANT& value);
};

/// Stands before one host, of which it shows every object that a client comes by: those that
/// members answer, elements of lists, the plans of events. To be made shared.
class Interception : public std::enable_shared_from_this<Interception> {
 public:
    using Handler = std::function<HRESULT(PassingCall&)>;

    /// What happens to a call; the handler of its member, else of all, else it passes.
    std::map<std::string, Handler> members;
    Handler all;
    /// Interfaces of objects that are asked for here before the host is; a null one is not there.
    std::function<bool(REFIID id, void** object)> onQuery = [](REFIID, void**) { return false; };

    /// What objects answer for their type, if not the host's own.
    std::optional<ComPtr<ITypeInfo>> typeInfo;

    std::map<std::string, int> calls;          ///< by name
    int objects = 0;                           ///< alive: all that the client holds of the host
    std::map<DWORD, ComPtr<IDispatch>> sinks;  ///< of the client, by cookie
    std::optional<HRESULT> unadvise;           ///< what Unadvise answers, if not the host's own

    /// The object as the client is to see it: always the same for the same object.
    ComPtr<IDispatch> Over(IDispatch* object);
    /// Objects in the value are replaced by what the client is to see.
    void Replace(VARIANT& value, const std::string& type);
    HRESULT Run(PassingCall& call);
    /// Of a call without argument, answer or place for a failure.
    HRESULT RunPlain(const std::string& name, const std::function<HRESULT()>& pass);

 private:
    friend class InterceptedObject;
    std::map<IDispatch*, IDispatch*> shown_;
};

}  // namespace kestrel::test
