#include "ui/assignment/frmAssignRiskAdvanced.h"

#include <algorithm>

#include "ui/assignment/frmAssignRisk.h"

namespace kestrel::ui {
namespace {

constexpr int kWidth = 760, kHeight = 380, kMargin = kAssignmentMargin;
constexpr int kListWidth = (kWidth - 3 * kMargin) / 2;
constexpr int kListHeight = kHeight - kAssignmentTop - kAssignmentBottom;

/// The ID of the selected line; 0 for none.
std::int32_t SelectedID(const SelectionListView& list, const std::vector<std::int32_t>& ids) {
    return list.Selected() == 0 ? 0 : ids.at(static_cast<std::size_t>(list.Selected()) - 1);
}

void SelectID(SelectionListView& list, const std::vector<std::int32_t>& ids, std::int32_t id) {
    const auto found = std::find(ids.begin(), ids.end(), id);
    if (found != ids.end()) list.Select(static_cast<int>(found - ids.begin()) + 1);
}

/// The line, or the nearest one that the list has.
void SelectLine(SelectionListView& list, int line) {
    list.Select(std::clamp(line, std::min(1, list.Count()), list.Count()));
}

/// Enter, or Ctrl and the arrow that points to the other list.
bool MovesLine(const KeyEvent& event, Key arrow) {
    if (event.alt) return false;
    return event.ctrl ? event.key == arrow : event.key == Key::Enter;
}

}  // namespace

frmAssignRiskAdvanced::frmAssignRiskAdvanced(modGlobals& globals)
    : AssignmentForm(globals, kWidth, kHeight) {
    Add(lvwRisks, {kMargin, kAssignmentTop, kListWidth, kListHeight},
        kAnchorLeft | kAnchorTop | kAnchorBottom);
    Add(lvwChoices, {2 * kMargin + kListWidth, kAssignmentTop, kListWidth, kListHeight},
        kAnchorAll);
    AddButtons({&cmdNormalView, &cmdPrevious, &cmdNext, &cmdClose, &cmdHelp});
    ConnectHandlers();
}

void frmAssignRiskAdvanced::ConnectHandlers() {
    cmdNormalView.Click = [this] { cmdNormalView_Click(); };
    lvwRisks.OnKeyDown = [this](const KeyEvent& event) { return lvwRisks_KeyDown(event); };
    lvwRisks.DblClick = [this] { lvwRisks_DblClick(); };
    lvwChoices.OnKeyDown = [this](const KeyEvent& event) { return lvwChoices_KeyDown(event); };
    lvwChoices.DblClick = [this] { lvwChoices_DblClick(); };
}

void frmAssignRiskAdvanced::ShowTask(const ShownTask& task) {
    factors_.clear();
    for (const FactorState& state : task.factors) factors_.push_back({state, false});
    lvwRisks.SetEnabled(task.assignable);
    lvwChoices.SetEnabled(task.assignable);
    FillLists();
}

void frmAssignRiskAdvanced::FillLists() {
    const int riskLine = lvwRisks.Selected(), choiceLine = lvwChoices.Selected();
    lvwRisks.Clear();
    lvwChoices.Clear();
    riskIDs_.clear();
    choiceIDs_.clear();
    std::int32_t id = 0;
    for (const auto& [state, edited] : factors_) {
        ++id;
        SelectionListView& list = state.assigned ? lvwChoices : lvwRisks;
        (state.assigned ? choiceIDs_ : riskIDs_).push_back(id);
        list.Add(Line(id, state));
        if (state.mixedAssignment || state.mixedSeries)
            list.SetColour(list.Count(), kSystemButtonShadow);
    }
    SelectLine(lvwRisks, riskLine);
    SelectLine(lvwChoices, choiceLine);
}

std::string frmAssignRiskAdvanced::Line(std::int32_t id, const FactorState& state) const {
    std::string line = globals_.RiskFactors.at(static_cast<std::size_t>(id) - 1)->strDescription;
    if (!state.assigned) return line;
    line += state.mixedSeries ? " (in series and in parallel"
                              : (state.inSeries ? " (in series" : " (in parallel");
    return line + (state.mixedAssignment ? ", on some sub tasks)" : ")");
}

std::vector<FactorEdit> frmAssignRiskAdvanced::Edits() const {
    std::vector<FactorEdit> edits;
    std::int32_t id = 0;
    for (const auto& [state, edited] : factors_) {
        ++id;
        if (edited) edits.push_back({id, state.assigned, state.inSeries});
    }
    return edits;
}

Control& frmAssignRiskAdvanced::FactorList() {
    return FocusBefore() == &lvwChoices ? lvwChoices : lvwRisks;
}

void frmAssignRiskAdvanced::Assign(bool assigned) {
    const std::int32_t id =
        assigned ? SelectedID(lvwRisks, riskIDs_) : SelectedID(lvwChoices, choiceIDs_);
    if (id == 0) return;
    Edit(id, assigned, true);
    if (assigned)
        SelectID(lvwChoices, choiceIDs_, id);
    else
        SelectID(lvwRisks, riskIDs_, id);
}

void frmAssignRiskAdvanced::SwitchSeries() {
    const std::int32_t id = SelectedID(lvwChoices, choiceIDs_);
    if (id != 0) Edit(id, true, !factors_.at(static_cast<std::size_t>(id) - 1).state.inSeries);
}

void frmAssignRiskAdvanced::Edit(std::int32_t id, bool assigned, bool inSeries) {
    factors_.at(static_cast<std::size_t>(id) - 1) = {{assigned, inSeries, false, false}, true};
    FillLists();
}

bool frmAssignRiskAdvanced::lvwRisks_KeyDown(const KeyEvent& event) {
    if (!MovesLine(event, Key::Right)) return false;
    Assign(true);
    return true;
}

bool frmAssignRiskAdvanced::lvwChoices_KeyDown(const KeyEvent& event) {
    if (MovesLine(event, Key::Left)) {
        Assign(false);
        return true;
    }
    if (event.key != Key::Space || event.alt || event.ctrl) return false;
    SwitchSeries();
    return true;
}

void frmAssignRiskAdvanced::cmdNormalView_Click() {
    if (!SavedOrTold()) return;
    normalViewChosen_ = true;
    Close();
}

void ShowAdvancedAssignment(modGlobals& globals, FormRunner& runner) {
    frmAssignRiskAdvanced advanced(globals);
    runner.ShowModal(advanced);
    if (!advanced.NormalViewChosen()) return;
    frmAssignRisk normal(globals);
    runner.ShowModal(normal);
}

}  // namespace kestrel::ui
