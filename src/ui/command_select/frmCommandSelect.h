#pragma once

#include <string>

#include "ui/controls/Button.h"
#include "ui/controls/ComboBox.h"
#include "ui/controls/Form.h"

namespace kestrel::ui {

/// Asks which command to run. The answers are read after the form has closed.
class frmCommandSelect : public Form {
 public:
    frmCommandSelect();

    bool Confirmed() const { return confirmed_; }
    /// The word that the list showed when the form closed.
    const std::string& Command() const { return command_; }

    ComboBox cboCommand{"cboCommand"};
    Button cmdOK{"cmdOK", "OK"};
    Button cmdCancel{"cmdCancel", "Cancel"};

    void cmdOK_Click();
    void cmdCancel_Click();

 protected:
    void Form_Load() override;
    void Form_Unload() override;

 private:
    bool confirmed_ = false;
    std::string command_;
};

}  // namespace kestrel::ui
