#pragma once

namespace refhost {

/// The add-in as the host's menus call it. Commands run modally and come back when their window is
/// closed. Every call raises kestrel::HostError when the add-in cannot be reached or fails.
class AddInCommands {
 public:
    virtual ~AddInCommands() = default;
    virtual void LaunchEdit() = 0;
    virtual void LaunchAssign() = 0;
    virtual void LaunchShow() = 0;
    virtual void LaunchSave() = 0;
    virtual void LaunchLoad() = 0;
    virtual void LaunchOptions() = 0;
    /// From here on the add-in takes part in analyses; a second call does nothing.
    virtual void LaunchStartSchedulon() = 0;
};

}  // namespace refhost
