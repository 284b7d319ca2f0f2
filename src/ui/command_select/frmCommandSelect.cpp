#include "ui/command_select/frmCommandSelect.h"

#include "platform/Desktop.h"

namespace kestrel::ui {

frmCommandSelect::frmCommandSelect() : Form(kApplicationTitle, 230, 82) {
    Add(cboCommand, {10, 10, 210, 23}, kAnchorLeft | kAnchorTop | kAnchorRight);
    Add(cmdOK, {50, 46, 80, 26}, kAnchorRight | kAnchorBottom);
    Add(cmdCancel, {140, 46, 80, 26}, kAnchorRight | kAnchorBottom);
    for (const char* word : {"edit", "assign", "show", "save", "load", "options"})
        cboCommand.AddItem(word);
    SetDefaultButton(cmdOK);
    SetCancelButton(cmdCancel);
    cmdOK.Click = [this] { cmdOK_Click(); };
    cmdCancel.Click = [this] { cmdCancel_Click(); };
}

void frmCommandSelect::Form_Load() {
    confirmed_ = false;
    cboCommand.SetListIndex(0);
}

void frmCommandSelect::Form_Unload() { command_ = cboCommand.Text(); }

void frmCommandSelect::cmdOK_Click() {
    confirmed_ = true;
    Close();
}

void frmCommandSelect::cmdCancel_Click() { Close(); }

}  // namespace kestrel::ui
