#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ui/assignment/AssignmentForm.h"
#include "ui/controls/Form.h"
#include "ui/controls/SelectionListView.h"

namespace kestrel::ui {

/// The assignment dialog as two lists: factors that the selected task does not carry, and those
/// that it carries with their group. Enter, a double click, Ctrl+Right and Ctrl+Left move the
/// selected factor to the other list; Space switches a carried one between series and parallel.
/// For a summary task a factor that any task below carries counts as carried; what the tasks
/// below do not agree on is said and greyed until the user edits the factor.
class frmAssignRiskAdvanced : public AssignmentForm {
 public:
    explicit frmAssignRiskAdvanced(modGlobals& globals);

    SelectionListView lvwRisks{"lvwRisks", "Risk Factors"};
    SelectionListView lvwChoices{"lvwChoices", "Assigned Risk Factors"};
    Button cmdNormalView{"cmdNormalView", "Normal &View"};

    /// Whether the user left for the other assignment dialog.
    bool NormalViewChosen() const { return normalViewChosen_; }

    /// Keeps the changes and closes; whoever shows the form then shows the other one.
    void cmdNormalView_Click();
    bool lvwRisks_KeyDown(const KeyEvent& event);
    bool lvwChoices_KeyDown(const KeyEvent& event);
    void lvwRisks_DblClick() { Assign(true); }
    void lvwChoices_DblClick() { Assign(false); }

 protected:
    void ShowTask(const ShownTask& task) override;
    std::vector<FactorEdit> Edits() const override;
    Control& FactorList() override;

 private:
    struct Factor {
        FactorState state;
        bool edited = false;
    };

    void ConnectHandlers();
    void Assign(bool assigned);
    void SwitchSeries();
    void Edit(std::int32_t id, bool assigned, bool inSeries);
    /// Each list keeps its selected line, or selects its first.
    void FillLists();
    std::string Line(std::int32_t id, const FactorState& state) const;

    std::vector<Factor> factors_;          ///< by ID - 1
    std::vector<std::int32_t> riskIDs_;    ///< of the lines of lvwRisks, ascending
    std::vector<std::int32_t> choiceIDs_;  ///< likewise of lvwChoices
    bool normalViewChosen_ = false;
};

/// Shows the dialog, and after "Normal View" the other one.
void ShowAdvancedAssignment(modGlobals& globals, FormRunner& runner);

}  // namespace kestrel::ui
