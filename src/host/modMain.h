#pragma once

#include <functional>
#include <string>

#include "core/model/modGlobals.h"
#include "ui/controls/Form.h"

/// The dispatcher: what each command word runs, and under which preconditions.
namespace kestrel {

/// Windows that commands open; one that is not there is not opened.
struct CommandWindows {
    using Show = std::function<void(modGlobals&, ui::FormRunner&)>;
    Show assign;          ///< the task's factors in one grid
    Show assignAdvanced;  ///< the same as two lists
    Show drivingRisks;    ///< of the register in `globals.RiskFactors`
    Show options;
};

/// Runs "edit", "assign", "show", "save", "load" or "options", in any letter case; an empty word
/// lets the user pick one, any other does nothing. Failures travel to the caller.
void RunCommand(modGlobals& globals, ui::FormRunner& runner, const CommandWindows& windows,
                std::string command);

}  // namespace kestrel
