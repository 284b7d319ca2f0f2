#pragma once

#include <memory>
#include <optional>

#include "platform/win32/ComPtr.h"
#include "refhost/gantt/AddInCommands.h"
#include "refhost/windows/automation/ActiveObject.h"
#include "refhost/windows/automation/AutomationServer.h"

namespace refhost::win32 {

/// The add-in in KestrelDll.dll, made through COM when it is first called. It gets the host as its
/// site and talks to it through Automation. COM must be started on this thread.
class AddInLink : public AddInCommands {
 public:
    /// Both must outlive the link.
    AddInLink(ReferenceHost& host, automation::HostProgram& program);
    ~AddInLink() override;
    AddInLink(const AddInLink&) = delete;
    AddInLink& operator=(const AddInLink&) = delete;

    void LaunchEdit() override { Call(L"LaunchEdit"); }
    void LaunchAssign() override { Call(L"LaunchAssign"); }
    void LaunchShow() override { Call(L"LaunchShow"); }
    void LaunchSave() override { Call(L"LaunchSave"); }
    void LaunchLoad() override { Call(L"LaunchLoad"); }
    void LaunchOptions() override { Call(L"LaunchOptions"); }
    void LaunchStartSchedulon() override;

 private:
    void Call(const wchar_t* method);
    void Connect();

    std::shared_ptr<automation::AutomationServer> server_;
    kestrel::win32::ComPtr<IDispatch> host_;
    std::optional<automation::ActiveObject> listed_;  ///< for an add-in that takes no site
    kestrel::win32::ComPtr<IDispatch> addIn_;
    bool started_ = false;
};

}  // namespace refhost::win32
