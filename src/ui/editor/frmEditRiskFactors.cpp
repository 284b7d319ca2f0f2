#include "ui/editor/frmEditRiskFactors.h"

#include "store/TaskField.h"
#include "ui/editor/RiskGrid.h"
#include "util/Trapped.h"
#include "util/modeHelp.h"

namespace kestrel::ui {
namespace {

constexpr int kWidth = 860, kHeight = 440, kMargin = 10, kButtonWidth = 104, kButtonHeight = 26;
constexpr const char* kNotLoaded =
    "The risk factors file could not be loaded; the rows in this window are as they were.";
constexpr const char* kNotSaved =
    "The risk factors could not be saved to a file; they are still in this window.";
constexpr const char* kNotStored =
    "The risk factors could not be stored in the plan; they are still in this window.";

}  // namespace

frmEditRiskFactors::frmEditRiskFactors(modGlobals& globals)
    : Form("Edit Risk Factors", kWidth, kHeight),
      globals_(globals),
      files_(globals),
      rows_(Tabulon1, globals.desktop),
      keys_(Tabulon1, rows_, globals.desktop) {
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
    Tabulon1.BeforeLeaveCell = [this] { return rows_.LeaveCell(); };
    keys_.Delete = [this] { cmdDeleteRisk_Click(); };
    keys_.Cancel = [this] { cmdCancelRisk_Click(); };
}

void frmEditRiskFactors::Form_Load() {
    userLanguage_ = globals_.desktop.UserLanguage();
    bool loaded = false;
    TrappedAndTold(globals_.desktop, "The risk factors could not be shown.",
                   [&] { loaded = LoadData(); });
    if (!loaded) Close();
}

bool frmEditRiskFactors::LoadData() { return Show(files_.ToStartWith()); }

bool frmEditRiskFactors::Show(const std::optional<RiskRegister>& factors) {
    if (factors) rows_.Fill(*factors);
    return factors.has_value();
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

bool frmEditRiskFactors::Tabulon1_KeyDown(const KeyEvent& event) { return keys_.KeyDown(event); }

bool frmEditRiskFactors::Tabulon1_KeyPress(char32_t code) { return keys_.KeyPress(code); }

bool frmEditRiskFactors::Tabulon1_Paste(const std::string& text) { return keys_.Paste(text); }

void frmEditRiskFactors::cmdDeleteRisk_Click() {
    if (globals_.desktop.ShowMessage("Do you want to delete the selected Risk?",
                                     MessageButtons::YesNo, "") == MessageAnswer::Yes)
        rows_.DeleteSelected();
}

void frmEditRiskFactors::cmdLoadFile_Click() {
    TrappedAndTold(globals_.desktop, kNotLoaded, [this] {
        EnsureTextField(*OpenPlan(globals_), kRiskFactorsField);
        const int row = Tabulon1.CurrentRow(), column = Tabulon1.CurrentColumn();
        if (FactorsAreAssigned()) {
            globals_.desktop.ShowMessage(
                "This file cannot be used to replace the existing risk Risk Factors as some of the "
                "existing risk Risk Factors have been assigned to tasks");
            return;
        }
        if (Show(files_.Chosen()) && Tabulon1.IsDataCell(row, column)) rows_.GoTo(row, column);
    });
}

bool frmEditRiskFactors::FactorsAreAssigned() {
    for (const host::TaskPtr& task : OpenPlan(globals_)->Tasks()->Enumerate())
        if (!task->UserValues()->Item(kRiskFactorsField).empty()) return true;
    return false;
}

bool frmEditRiskFactors::RowsAreComplete() {
    return !rows_.CheckDescriptions() && !rows_.CheckNumbers();
}

void frmEditRiskFactors::cmdSave_Click() {
    TrappedAndTold(globals_.desktop, kNotSaved, [this] {
        if (!RowsAreComplete()) return;
        rows_.NormaliseRow();
        rows_.CompleteEntryRow();
        files_.SaveTemplate(Tabulon1);
    });
}

void frmEditRiskFactors::cmdOKRisk_Click() {
    TrappedAndTold(globals_.desktop, kNotStored, [this] {
        if (!RowsAreComplete()) return;
        // Ahead of the checks below: after their refusal the tasks are renumbered all the same,
        // and a second OK hands over the same numbers again.
        RenumberTaskRiskFactors(globals_, rows_.DeletedNumbers());
        rows_.NormaliseRow();
        rows_.CompleteEntryRow();
        if (const auto refused = StoreGridAsRegister(globals_, Tabulon1))
            return rows_.Refuse(*refused);
        registerChanged_ = true;
        Close();
    });
}

}  // namespace kestrel::ui
