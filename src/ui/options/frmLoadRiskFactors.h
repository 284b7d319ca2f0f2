#pragma once

#include "core/model/modGlobals.h"
#include "ui/controls/Button.h"
#include "ui/controls/CheckBox.h"
#include "ui/controls/Form.h"
#include "ui/controls/Label.h"
#include "ui/controls/OptionButton.h"
#include "ui/controls/TextBox.h"

namespace kestrel::ui {

/// The user's options: what the editor starts with when the plan has no factors, how several
/// factors on one task are calculated, and whether iterations are logged. Read afresh on each
/// opening, stored on OK only. A stored choice that is none of those offered selects none, and
/// then stays as it is.
class frmLoadRiskFactors : public Form {
 public:
    explicit frmLoadRiskFactors(modGlobals& globals);

 private:
    OptionGroup startChoices_;
    OptionGroup calculations_;

 public:
    Frame Frame1{"Frame1", "Default Risk Factors"};
    Label Label1{
        "Label1",
        "If the Risk Factor dialog has no risks entered then perform the following action:"};
    OptionButton OptionButton1{startChoices_, "OptionButton1",
                               "&Automatically load risks from the file:"};
    TextBox txtFileName{"txtFileName"};
    Button cmdBrowse{"cmdBrowse", "..."};
    OptionButton OptionButton2{startChoices_, "OptionButton2",
                               "&Display a browse dialog to locate an existing Risk Factor file"};
    OptionButton OptionButton3{startChoices_, "OptionButton3", "Display an &empty grid"};
    Frame Frame2{"Frame2", "Distribution calculation for tasks with multiple risks"};
    OptionButton OptionSimple{
        calculations_, "OptionSimple",
        "Create distributions for multiple risk assignments by &multiplying percentages"};
    /// Stored and shown; analyses run the same way whichever calculation is selected.
    OptionButton OptionAdvanced{
        calculations_, "OptionAdvanced",
        "Create distributions for multiple risk assignments using a Monte &Carlo simulation"};
    CheckBox chkIterations{"chkIterations", "&Show risk factors in iterations (slower analysis)"};
    Button cmdOk{"cmdOk", "&OK"};
    Button cmdCancel{"cmdCancel", "Cancel"};
    Button cmdHelp{"cmdHelp", "&Help"};

    void OptionButton1_Click() { EnableFile(true); }
    void OptionButton2_Click() { EnableFile(false); }
    void OptionButton3_Click() { EnableFile(false); }
    void cmdBrowse_Click();
    void cmdOk_Click();
    void cmdCancel_Click();
    void cmdHelp_Click();

 protected:
    /// Closes the form when an option cannot be read: what it would store is not the user's.
    void Form_Load() override;

 private:
    void PlaceControls();
    void ConnectHandlers();
    void ReadOptions();
    void StoreOptions();
    void EnableFile(bool enabled);

    modGlobals& globals_;
};

}  // namespace kestrel::ui
