#include "ui/assignment/frmAssignRisk.h"

namespace kestrel::ui {
namespace {

constexpr int kWidth = 530, kHeight = 380, kMargin = kAssignmentMargin;

enum Column : int { kAssigned, kDescription, kInSeries, kColumns };

struct ColumnLayout {
    const char* header;
    int width;
};
constexpr ColumnLayout kLayout[kColumns] = {
    {"Assigned", 60}, {"Risk Factor", 250}, {"In Series", 60}};

/// Row 0 of the grid holds the headers.
constexpr int GridRow(int row) { return row + 1; }

}  // namespace

frmAssignRisk::frmAssignRisk(modGlobals& globals) : AssignmentForm(globals, kWidth, kHeight) {
    Add(TabulonRF,
        {kMargin, kAssignmentTop, kWidth - 2 * kMargin,
         kHeight - kAssignmentTop - kAssignmentBottom},
        kAnchorAll);
    AddButtons({&cmdPrevious, &cmdNext, &cmdOk, &cmdClose, &cmdHelp});
    SetDefaultButton(cmdOk);
    cmdOk.Click = [this] { cmdOk_Click(); };
    TabulonRF.AfterEdit = [this](int gridRow, int) { TabulonRF_AfterEdit(gridRow); };
}

void frmAssignRisk::ShowRegister() {
    TabulonRF.Clear(kColumns, 1, false);
    for (int column = 0; column < kColumns; ++column) {
        TabulonRF.SetText(0, column, kLayout[column].header);
        TabulonRF.Geometry().SetColumnWidth(column, kLayout[column].width);
    }
    TabulonRF.Geometry().SetStretchColumn(kDescription);
    for (const auto& factor : globals_.RiskFactors) {
        const int gridRow = TabulonRF.AddRow();
        TabulonRF.SetText(gridRow, kDescription, factor->strDescription);
        TabulonRF.SetEditable(gridRow, kDescription, false);
        TabulonRF.SetCheckCell(gridRow, kAssigned, true);
    }
    if (!globals_.RiskFactors.empty()) TabulonRF.SetCurrentCell(GridRow(0), kAssigned);
}

void frmAssignRisk::ShowTask(const ShownTask& task) {
    const RedrawPause pause(TabulonRF);
    changedRows_.clear();
    int row = 0;
    for (const FactorState& state : task.factors) ShowFactor(row++, state, task.assignable);
}

void frmAssignRisk::ShowFactor(int row, const FactorState& state, bool assignable) {
    const int gridRow = GridRow(row);
    TabulonRF.SetEditable(gridRow, kAssigned, assignable);
    TabulonRF.SetCellColour(gridRow, kAssigned,
                            state.mixedAssignment ? kSystemButtonShadow : kWhite);
    TabulonRF.SetCellColour(gridRow, kInSeries, state.mixedSeries ? kSystemButtonShadow : kWhite);
    SetRow(row, state.assigned, state.inSeries, "");
}

void frmAssignRisk::SetRow(int row, bool assigned, bool inSeries, const std::string& text) {
    const int gridRow = GridRow(row);
    TabulonRF.SetChecked(gridRow, kAssigned, assigned);
    ApplyRowState(gridRow);
    if (assigned) TabulonRF.SetChecked(gridRow, kInSeries, inSeries);
    if (!text.empty()) TabulonRF.SetText(gridRow, kDescription, text);
}

void frmAssignRisk::ApplyRowState(int gridRow) {
    const bool assigned = TabulonRF.Checked(gridRow, kAssigned);
    TabulonRF.SetCheckCell(gridRow, kInSeries, assigned);
    TabulonRF.SetEditable(gridRow, kInSeries, assigned);
    if (!assigned)
        TabulonRF.SetText(gridRow, kInSeries, "");
    else if (TabulonRF.Text(gridRow, kInSeries).empty())
        TabulonRF.SetChecked(gridRow, kInSeries, true);  // what an untouched cell stands for
}

void frmAssignRisk::TabulonRF_AfterEdit(int gridRow) {
    ApplyRowState(gridRow);
    // Saved as it now stands the row holds for all tasks below.
    TabulonRF.SetCellColour(gridRow, kAssigned, kWhite);
    TabulonRF.SetCellColour(gridRow, kInSeries, kWhite);
    changedRows_.push_back(gridRow - GridRow(0));
}

std::vector<FactorEdit> frmAssignRisk::Edits() const {
    std::vector<FactorEdit> edits;
    for (const int row : changedRows_)
        edits.push_back({row + 1, TabulonRF.Checked(GridRow(row), kAssigned),
                         TabulonRF.Checked(GridRow(row), kInSeries)});
    return edits;
}

void frmAssignRisk::cmdOk_Click() {
    if (SavedOrTold()) Close();
}

}  // namespace kestrel::ui
