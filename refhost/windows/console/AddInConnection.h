#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "platform/win32/ComPtr.h"
#include "refhost/windows/automation/ActiveObject.h"
#include "refhost/windows/automation/AutomationServer.h"

namespace refhost {

/// The add-in in KestrelDll.dll and the host that it works for, connected through COM: the add-in
/// gets the host as its site, or finds it among the running objects, and talks to it through
/// Automation. COM must be started on this thread; host and program must outlive the connection.
class AddInConnection {
 public:
    AddInConnection(ReferenceHost& host, automation::HostProgram& program);
    /// Stops the add-in and lets it go.
    ~AddInConnection();
    AddInConnection(const AddInConnection&) = delete;
    AddInConnection& operator=(const AddInConnection&) = delete;

    /// Makes the add-in, unless it is there. Raises kestrel::HostError when that cannot be.
    void Connect();
    /// Calls one of its methods, connecting first. Its failure is raised as kestrel::HostError.
    void Call(const wchar_t* method);
    /// From now on it takes part in the host's analyses.
    void Start();

    /// Calls of the host's members that the add-in has made so far.
    std::uint64_t HostCalls() const { return server_->Calls(); }

 private:
    std::shared_ptr<automation::AutomationServer> server_;
    kestrel::win32::ComPtr<IDispatch> host_;
    std::optional<automation::ActiveObject> listed_;  ///< for an add-in that takes no site
    kestrel::win32::ComPtr<IDispatch> addIn_;
    bool started_ = false;
};

}  // namespace refhost
