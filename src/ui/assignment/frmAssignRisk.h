#pragma once

#include <string>
#include <vector>

#include "ui/assignment/AssignmentForm.h"
#include "ui/controls/Grid.h"

namespace kestrel::ui {

/// The assignment dialog: one row for each factor of the register, ticked when the selected task
/// carries it, and beside it whether it works in series with the task's other factors. For a
/// summary task a factor is ticked when any task below carries it; what the tasks below do not
/// agree on is greyed until the user edits the row.
class frmAssignRisk : public AssignmentForm {
 public:
    explicit frmAssignRisk(modGlobals& globals);

    Grid TabulonRF{"TabulonRF"};
    Button cmdOk{"cmdOk", "&OK"};

    /// Shows a factor's state in its row, counted from 0 without the header: factor ID - 1. An
    /// empty text leaves the description in place.
    void SetRow(int row, bool assigned, bool inSeries, const std::string& text);

    void cmdOk_Click();
    /// `gridRow` counts the header.
    void TabulonRF_AfterEdit(int gridRow);

 protected:
    void ShowRegister() override;
    void ShowTask(const ShownTask& task) override;
    std::vector<FactorEdit> Edits() const override;
    Control& FactorList() override { return TabulonRF; }

 private:
    void ApplyRowState(int gridRow);
    void ShowFactor(int row, const FactorState& state, bool assignable);

    std::vector<int> changedRows_;  ///< from 0, in the order of the edits; may repeat
};

}  // namespace kestrel::ui
