#include "host/modMain.h"

#include <algorithm>

#include "base/Text.h"
#include "store/RegisterDocument.h"
#include "store/SaveLoadCommands.h"
#include "store/modSettings.h"
#include "ui/command_select/frmCommandSelect.h"
#include "ui/editor/frmEditRiskFactors.h"
#include "util/Trapped.h"
#include "util/modToolBox.h"

namespace kestrel {
namespace {

/// What a command works with.
struct Command {
    modGlobals& globals;
    ui::FormRunner& runner;
    const CommandWindows& windows;

    void Show(const CommandWindows::Show& window) const {
        if (window) window(globals, runner);
    }
};

void Edit(const Command& command) {
    command.globals.openedFromHost = true;
    ui::frmEditRiskFactors editor(command.globals);
    command.runner.ShowModal(editor);
}

void StoreDefaultFactors(modGlobals& globals) {
    if (GetOptionSetting(*globals.application) != "1")
        globals.desktop.ShowMessage("No Risk Factors have been loaded into the Plan.");
    globals.openedFromHost = false;
    TrappedAndTold(globals.desktop, "The default risk factors could not be loaded into the plan.",
                   [&] { ui::frmEditRiskFactors(globals).StoreDefaultFactors(); });
}

void OpenAssignment(const Command& command) {
    const std::string view = GetAssignView(*command.globals.application);
    if (view == "1") command.Show(command.windows.assign);
    if (view == "2") command.Show(command.windows.assignAdvanced);
}

void Assign(const Command& command) {
    modGlobals& globals = command.globals;
    const host::PlanPtr plan = OpenPlan(globals);
    if (plan->Tasks()->Count() == 0) {
        globals.desktop.ShowMessage("There are no tasks to assign risks to.");
    } else {
        if (plan->GetText(kRegisterText).empty()) StoreDefaultFactors(globals);
        OpenAssignment(command);
    }
    plan->Recalculate();
}

void ShowDrivingRisks(const Command& command) {
    modGlobals& globals = command.globals;
    const host::PlanPtr plan = OpenPlan(globals);
    if (!plan->RiskAnalysis()->IsUpToDate() &&
        globals.desktop.ShowMessage("The risk analysis is out of date.  To update the risk "
                                    "analysis you need to run it again.\r\n\r\n"
                                    "Do you wish to continue anyway?",
                                    MessageButtons::YesNo, "") != MessageAnswer::Yes)
        return;
    OpenRegister(globals, *plan);
    command.Show(command.windows.drivingRisks);
}

struct CommandEntry {
    const char* word;
    bool needsHostVersion;
    void (*run)(const Command&);
};

constexpr CommandEntry kCommands[] = {
    {"edit", true, Edit},
    {"assign", true, Assign},
    {"show", false, ShowDrivingRisks},
    {"save", true, [](const Command& c) { SaveRiskFactorsToFile(c.globals); }},
    {"load", true, [](const Command& c) { LoadRiskFactorsFromFile(c.globals); }},
    {"options", true, [](const Command& c) { c.Show(c.windows.options); }},
};

bool HostIsRecentEnough(modGlobals& globals) {
    return CheckHostVersion(*globals.application, globals.desktop, 8, 0, 100, true);
}

}  // namespace

void RunCommand(modGlobals& globals, ui::FormRunner& runner, const CommandWindows& windows,
                std::string command) {
    if (command.empty()) {
        ui::frmCommandSelect picker;
        runner.ShowModal(picker);
        if (!picker.Confirmed()) return;
        command = picker.Command();
    }
    command = Lowered(command);
    const auto entry = std::find_if(std::begin(kCommands), std::end(kCommands),
                                    [&](const CommandEntry& e) { return command == e.word; });
    if (entry == std::end(kCommands)) return;
    if (entry->needsHostVersion && !HostIsRecentEnough(globals)) return;
    entry->run({globals, runner, windows});
}

}  // namespace kestrel
