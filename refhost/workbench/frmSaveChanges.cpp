#include "refhost/workbench/frmSaveChanges.h"

namespace refhost {
namespace {

constexpr int kWidth = 400, kHeight = 110, kMargin = 12, kButtonWidth = 100, kButtonHeight = 26;

}  // namespace

frmSaveChanges::frmSaveChanges(const std::string& planName) : Form("Kestrel", kWidth, kHeight) {
    using namespace kestrel::ui;
    std::string name;
    for (const char c : planName) name += c == '&' ? std::string("&&") : std::string(1, c);
    lblQuestion.SetCaption("Save the changes to '" + name + "'?");
    Add(lblQuestion, {kMargin, kMargin, kWidth - 2 * kMargin, 44},
        kAnchorLeft | kAnchorTop | kAnchorRight);
    int left = kWidth - kMargin - 3 * kButtonWidth - 2 * 8;
    for (Button* button : {&cmdSave, &cmdDiscard, &cmdCancel}) {
        Add(*button, {left, kHeight - kMargin - kButtonHeight, kButtonWidth, kButtonHeight},
            kAnchorRight | kAnchorBottom);
        left += kButtonWidth + 8;
    }
    cmdSave.Click = [this] { AnswerWith(Answer::Save); };
    cmdDiscard.Click = [this] { AnswerWith(Answer::Discard); };
    cmdCancel.Click = [this] { AnswerWith(Answer::Cancel); };
    SetDefaultButton(cmdSave);
    SetCancelButton(cmdCancel);
}

void frmSaveChanges::AnswerWith(Answer answer) {
    result_ = answer;
    Close();
}

}  // namespace refhost
