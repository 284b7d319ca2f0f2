#include "refhost/workbench/frmRiskReportAssumptions.h"

#include <utility>

namespace refhost {
namespace {

using namespace kestrel::ui;

constexpr int kWidth = 420, kHeight = 168, kMargin = 12, kLine = 20;
constexpr int kButtonWidth = 90, kButtonHeight = 26, kGap = 8;

}  // namespace

frmRiskReportAssumptions::frmRiskReportAssumptions(std::function<void()> help)
    : Form("Risk Factors and Duration Distributions Report", kWidth, kHeight) {
    int top = kMargin;
    for (Control* control :
         {static_cast<Control*>(&lblHint), static_cast<Control*>(&chkPercentages),
          static_cast<Control*>(&chkDistributions), static_cast<Control*>(&chkAssignments)}) {
        Add(*control, {kMargin, top, kWidth - 2 * kMargin, kLine});
        top += kLine + 6;
    }
    int left = kWidth - kMargin - 3 * kButtonWidth - 2 * kGap;
    for (Button* button : {&cmdOk, &cmdCancel, &cmdHelp}) {
        Add(*button, {left, kHeight - kMargin - kButtonHeight, kButtonWidth, kButtonHeight});
        left += kButtonWidth + kGap;
    }
    for (CheckBox* option : {&chkPercentages, &chkDistributions, &chkAssignments})
        option->SetChecked(true);
    cmdOk.Click = [this] { cmdOk_Click(); };
    cmdCancel.Click = [this] { Close(); };
    cmdHelp.Click = std::move(help);
    SetDefaultButton(cmdOk);
    SetCancelButton(cmdCancel);
}

void frmRiskReportAssumptions::cmdOk_Click() {
    result_ = ReportAssumptions{chkPercentages.Checked(), chkDistributions.Checked(),
                                chkAssignments.Checked()};
    Close();
}

}  // namespace refhost
