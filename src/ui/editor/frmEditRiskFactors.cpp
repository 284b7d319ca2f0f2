#include "ui/editor/frmEditRiskFactors.h"

#include "store/OpenPlan.h"
#include "store/TaskField.h"
#include "ui/editor/CellRules.h"
#include "ui/editor/RiskGrid.h"
#include "util/Trapped.h"
#include "util/modeHelp.h"

namespace kestrel::ui {
namespace {

constexpr int kWidth = 860, kHeight = 440, kMargin = 10, kButtonWidth = 104, kButtonHeight = 26;
constexpr const char* kNotStored =
    "The risk factors could not be stored in the plan; they are still in this window.";

}  // namespace

frmEditRiskFactors::frmEditRiskFactors(modGlobals& globals)
    : Form("Edit Risk Factors", kWidth, kHeight), globals_(globals) {
    PlaceControls();
    ConnectHandlers();
    SetUpRiskGrid(Tabulon1);
}

void frmEditRiskFactors::PlaceControls() {
    const int buttonsTop = kHeight - kMargin - kButtonHeight;
    Add(Tabulon1, {kMargin, kMargin, kWidth - 2 * kMargin, buttonsTop - 2 * kMargin}, kAnchorAll);

    int left = kMargin;
    for (Button* button : {&cmdDeleteRisk, &cmdLoadFile, &cmdSave}) {
        Add(*button, {left, buttonsTop, kButtonWidth, kButtonHeight}, kAnchorLeft | kAnchorBottom);
        left += kButtonWidth + kMargin;
    }
    left = kWidth - 3 * (kButtonWidth + kMargin);
    for (Button* button : {&cmdOKRisk, &cmdCancelRisk, &cmdHelp}) {
        Add(*button, {left, buttonsTop, kButtonWidth, kButtonHeight}, kAnchorRight | kAnchorBottom);
        left += kButtonWidth + kMargin;
    }
    SetDefaultButton(cmdOKRisk);
    SetCancelButton(cmdCancelRisk);
}

void frmEditRiskFactors::ConnectHandlers() {
    cmdDeleteRisk.Click = [this] { cmdDeleteRisk_Click(); };
    cmdLoadFile.Click = [this] { cmdLoadFile_Click(); };
    cmdSave.Click = [this] { cmdSave_Click(); };
    cmdHelp.Click = [this] { cmdHelp_Click(); };
    cmdCancelRisk.Click = [this] { cmdCancelRisk_Click(); };
    cmdOKRisk.Click = [this] { cmdOKRisk_Click(); };
    Tabulon1.OnKeyDown = [this](const KeyEvent& event) { return Tabulon1_KeyDown(event); };
    Tabulon1.OnKeyPress = [this](char32_t code) { return Tabulon1_KeyPress(code); };
    Tabulon1.OnPaste = [this](const std::string& text) { return Tabulon1_Paste(text); };
    Tabulon1.BeforeLeaveCell = [this] { return LeaveCell(); };
}

void frmEditRiskFactors::Form_Load() {
    userLanguage_ = globals_.desktop.UserLanguage();
    bool loaded = false;
    TrappedAndTold(globals_.desktop, "The risk factors could not be shown.",
                   [&] { loaded = LoadData(); });
    deletedNumbers_.clear();
    if (!loaded) Close();
}

bool frmEditRiskFactors::StoreDefaultFactors() {
    if (!LoadData()) return false;
    const auto refused = StoreGridAsRegister(globals_, Tabulon1);
    if (refused) globals_.desktop.ShowMessage(refused->message);
    return !refused;
}

void frmEditRiskFactors::cmdHelp_Click() {
    ShowHelpOrTell(*globals_.application, globals_.desktop, kHelpEditor);
}

void frmEditRiskFactors::cmdCancelRisk_Click() { Close(); }

void frmEditRiskFactors::cmdOKRisk_Click() {
    TrappedAndTold(globals_.desktop, kNotStored, [this] {
        if (CheckDescriptions() || CheckNumbers()) return;
        // Ahead of the checks below: after their refusal the tasks are renumbered all the same,
        // and a second OK hands over the same numbers again.
        RenumberTaskRiskFactors(globals_, deletedNumbers_);
        NormaliseRow();
        CompleteEntryRow();
        if (const auto refused = StoreGridAsRegister(globals_, Tabulon1)) return Refuse(*refused);
        registerChanged_ = true;
        Close();
    });
}

}  // namespace kestrel::ui
