#include "ui/progress/frmMessageBox.h"

namespace kestrel::ui {

frmMessageBox::frmMessageBox() : Form("Quillon Risk Analysis", 420, 120) {
    Add(lbMessage, {10, 10, 400, 60}, kAnchorAll);
    const struct {
        Button& button;
        Answer answer;
    } answers[] = {{cmdYes, kYes}, {cmdNo, kNo}, {cmdYesAll, kYesToAll}, {cmdNotoAll, kNoToAll}};
    int left = 10;
    for (const auto& [button, answer] : answers) {
        Add(button, {left, 84, 92, 26}, kAnchorRight | kAnchorBottom);
        button.Click = [this, result = answer] { AnswerWith(result); };
        left += 102;
    }
    SetDefaultButton(cmdYes);
    SetCancelButton(cmdNotoAll);
}

void frmMessageBox::AnswerWith(std::int16_t result) {
    result_ = result;
    Close();
}

}  // namespace kestrel::ui
