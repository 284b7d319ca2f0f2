#pragma once

#include <cstdint>
#include <initializer_list>
#include <vector>

#include "core/model/modGlobals.h"
#include "ui/assignment/TaskAssignments.h"
#include "ui/controls/Button.h"
#include "ui/controls/Form.h"
#include "ui/controls/Label.h"

namespace kestrel::ui {

/// What the two assignment windows share: the register and the host's selected task, walking
/// from task to task, the window's stored place. How factors are shown and edited is left to the
/// derived form. Edits reach the plan when the user goes to another task or confirms.
class AssignmentForm : public Form {
 public:
    Label Label1{"Label1", "Selected task:"};
    Label lblSelectedTask{"lblSelectedTask"};
    Button cmdPrevious{"cmdPrevious", "<< &Previous"};
    Button cmdNext{"cmdNext", "&Next >>"};
    Button cmdHelp{"cmdHelp", "&Help"};
    Button cmdClose{"cmdClose", "Cancel"};

    /// Shows the task that is selected in the host and forgets all edits. When the host fails the
    /// form stays as it was.
    void LoadTask();
    /// Writes the edits made since LoadTask into the task that it showed.
    void SaveTask();

    /// Shows a neighbour of the task and gives the keyboard back to the factors.
    ///@{
    void cmdNext_Click() { MoveBy(1); }
    void cmdPrevious_Click() { MoveBy(-1); }
    ///@}
    void cmdHelp_Click();
    void cmdClose_Click();

 protected:
    AssignmentForm(modGlobals& globals, int designWidth, int designHeight);

    /// Adds the buttons in a row at the lower edge, after all other controls.
    void AddButtons(std::initializer_list<Button*> buttons);

    /// Called once, when the register has been loaded.
    virtual void ShowRegister() {}
    virtual void ShowTask(const ShownTask& task) = 0;
    virtual std::vector<FactorEdit> Edits() const = 0;
    /// The control in which the user goes through the factors.
    virtual Control& FactorList() = 0;

    /// SaveTask for a button: a failure is told.
    bool SavedOrTold();

    /// Closes the form when register or task cannot be read.
    void Form_Load() override;
    void Form_Unload() override;

    modGlobals& globals_;

 private:
    void RestorePosition();
    void MoveBy(std::int32_t rows);
    void ShowNeighbour(host::Plan& plan, std::int32_t rows);

    ShownTask shown_;
};

/// Of what both windows place: margin, and top and height of what lies between label and buttons.
inline constexpr int kAssignmentMargin = 10;
inline constexpr int kAssignmentTop = 36;
inline constexpr int kAssignmentBottom = 46;  ///< from the lower edge of the form

}  // namespace kestrel::ui
