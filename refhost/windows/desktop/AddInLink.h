#pragma once

#include "refhost/windows/console/AddInConnection.h"
#include "refhost/workbench/AddInCommands.h"

namespace refhost::win32 {

/// The add-in's commands for the window, through COM; the add-in is made when it is first called.
class AddInLink : public AddInCommands {
 public:
    /// Both must outlive the link.
    AddInLink(ReferenceHost& host, automation::HostProgram& program) : connection_(host, program) {}

    void LaunchEdit() override { connection_.Call(L"LaunchEdit"); }
    void LaunchAssign() override { connection_.Call(L"LaunchAssign"); }
    void LaunchShow() override { connection_.Call(L"LaunchShow"); }
    void LaunchSave() override { connection_.Call(L"LaunchSave"); }
    void LaunchLoad() override { connection_.Call(L"LaunchLoad"); }
    void LaunchOptions() override { connection_.Call(L"LaunchOptions"); }
    void LaunchStartSchedulon() override { connection_.Start(); }

 private:
    AddInConnection connection_;
};

}  // namespace refhost::win32
