#pragma once

#include <cstdint>
#include <memory>

#include "refhost/engine/ReferenceHost.h"
#include "refhost/windows/automation/HostProgram.h"
#include "refhost/windows/automation/TypeLibrary.h"

namespace refhost::automation {

class ApplicationObject;
class OfferedPlan;

/// The host as Automation sees it: what all its objects share. Objects keep the server, so it
/// outlives the host when a client holds one longer; it then answers calls for the host with an
/// error. To be used on one thread, whose COM apartment is single-threaded.
class AutomationServer : public std::enable_shared_from_this<AutomationServer> {
 public:
    AutomationServer(ReferenceHost& host, HostProgram& program, TypeLibrary types = {});
    ~AutomationServer();
    AutomationServer(const AutomationServer&) = delete;
    AutomationServer& operator=(const AutomationServer&) = delete;

    /// The Application object: one, as long as somebody holds it.
    kestrel::win32::ComPtr<IDispatch> Application();
    /// The Plan object of the open plan; nothing when none is open.
    kestrel::win32::ComPtr<IDispatch> ActivePlan();
    /// Ends the link to the host and its program, which are about to go.
    void Disconnect();

    /// Raise kestrel::HostError after Disconnect.
    ReferenceHost& Host() const;
    HostProgram& Program() const;
    TypeLibrary& Types() { return types_; }

    /// Every object given out, and every lock of the class object, keeps the program running.
    void AddUse() { ++uses_; }
    void DropUse();

    /// Calls of members that clients have made so far.
    std::uint64_t Calls() const { return calls_; }
    void CountCall() { ++calls_; }

 private:
    friend class ApplicationObject;

    ReferenceHost* host_;
    HostProgram* program_;
    TypeLibrary types_;
    ApplicationObject* application_ = nullptr;  ///< while somebody holds it
    std::weak_ptr<OfferedPlan> activePlan_;
    std::uint64_t calls_ = 0;
    std::int64_t uses_ = 0;
};

}  // namespace refhost::automation
