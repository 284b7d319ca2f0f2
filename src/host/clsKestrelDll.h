#pragma once

#include <functional>
#include <memory>
#include <string>

#include "core/model/modGlobals.h"
#include "host/clsSchedulon.h"
#include "host/modMain.h"
#include "ui/controls/Form.h"

namespace kestrel {

/// The add-in's public class: the host makes one and calls its methods from menus and toolbar,
/// one at a time.
///
/// While a command runs the user's decimal separator is ".", for the whole desktop, and
/// afterwards their own again. A host call that fails, or a document that cannot be read, ends a
/// command with a message; only a programming fault leaves the separator at ".".
class clsKestrelDll {
 public:
    /// `attach` yields the host that runs the add-in; it is called when the host is first needed.
    clsKestrelDll(std::function<host::ApplicationPtr()> attach, Desktop& desktop,
                  ui::FormRunner& runner);

    void LaunchEdit() { Launch("edit", "The risk factors could not be edited."); }
    void LaunchAssign() { Launch("assign", "Risk factors could not be assigned."); }
    void LaunchShow() { Launch("show", "The driving risks could not be shown."); }
    void LaunchSave() { Launch("save", "The risk factors and assignments could not be saved."); }
    void LaunchLoad() { Launch("load", "The risk factors and assignments could not be loaded."); }
    void LaunchOptions() { Launch("options", "The options could not be changed."); }
    /// Begins to take part in the host's risk analyses; a second call does nothing. HostError
    /// when the host cannot be reached.
    void LaunchStartSchedulon();
    void LaunchStopSchedulon();

    modGlobals& Globals() { return globals_; }

 private:
    /// `undone` tells the user what a failure has left undone.
    void Launch(const char* command, const char* undone);
    void AttachHost();

    std::function<host::ApplicationPtr()> attach_;
    modGlobals globals_;
    ui::FormRunner& runner_;
    CommandWindows windows_;
    std::string decimalSeparator_;  ///< the user's, while a command runs
    std::unique_ptr<clsSchedulon> schedulon_;
};

}  // namespace kestrel
