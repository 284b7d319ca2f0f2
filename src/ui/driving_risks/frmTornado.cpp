#include "ui/driving_risks/frmTornado.h"

#include <algorithm>
#include <string>

#include "base/NumberText.h"
#include "store/modSettings.h"
#include "util/Trapped.h"
#include "util/modGridCopy.h"
#include "util/modeHelp.h"

namespace kestrel::ui {
namespace {

constexpr int kWidth = 1000, kHeight = 500, kMargin = 10;
constexpr int kGridWidth = 440, kRowHeight = 23, kButtonHeight = 26;
constexpr std::int32_t kUsualTopRisks = 10;

/// What the user has stored, from 0; the usual number for a text that is no number.
std::int32_t StoredTopRisks(host::Application& application) {
    const std::string text = GetShowTopRisks(application);
    std::int32_t count = kUsualTopRisks;
    Trapped([&] { count = ToInt32(ParseNumber(text)).value_or(kUsualTopRisks); });
    return std::max(0, count);
}

}  // namespace

frmTornado::frmTornado(modGlobals& globals)
    : Form("Driving Risks", kWidth, kHeight), globals_(globals) {
    OptionDuration.Select();
    txtTopRisks.SetReadOnly(true);
    PlaceControls();
    ConnectHandlers();
}

void frmTornado::PlaceControls() {
    const int buttonsTop = kHeight - kMargin - kButtonHeight;
    const int bodyTop = 2 * kMargin + kRowHeight;
    const int bodyHeight = buttonsTop - kMargin - bodyTop;
    const int gridLeft = kWidth - kMargin - kGridWidth;

    Add(OptionDuration, {kMargin, kMargin, 90, kRowHeight});
    Add(OptionCost, {kMargin + 100, kMargin, 90, kRowHeight});
    Add(lblTopRisks, {kMargin + 220, kMargin, 70, kRowHeight});
    Add(txtTopRisks, {kMargin + 294, kMargin, 44, kRowHeight});
    Add(SpinButton1, {kMargin + 340, kMargin, 18, kRowHeight});
    Add(plotDur, {kMargin, bodyTop, gridLeft - 2 * kMargin, bodyHeight}, kAnchorAll);
    for (Grid* grid : {&gridDur, &gridCost})
        Add(*grid, {gridLeft, bodyTop, kGridWidth, bodyHeight},
            kAnchorTop | kAnchorRight | kAnchorBottom);
    Add(cmdCopyToClip, {kMargin, buttonsTop, 170, kButtonHeight}, kAnchorLeft | kAnchorBottom);
    Add(cmdOK, {kWidth - 2 * (kMargin + 100), buttonsTop, 100, kButtonHeight},
        kAnchorRight | kAnchorBottom);
    Add(cmdHelp, {kWidth - kMargin - 100, buttonsTop, 100, kButtonHeight},
        kAnchorRight | kAnchorBottom);
    SetDefaultButton(cmdOK);
    SetCancelButton(cmdOK);
}

void frmTornado::ConnectHandlers() {
    OptionDuration.Click = [this] { OptionDuration_Click(); };
    OptionCost.Click = [this] { OptionCost_Click(); };
    SpinButton1.SpinUp = [this] { SpinButton1_SpinUp(); };
    SpinButton1.SpinDown = [this] { SpinButton1_SpinDown(); };
    cmdCopyToClip.Click = [this] { cmdCopyToClip_Click(); };
    cmdHelp.Click = [this] { cmdHelp_Click(); };
    cmdOK.Click = [this] { cmdOK_Click(); };
}

void frmTornado::Form_Load() {
    TrappedAndTold(globals_.desktop, "The driving risks could not be shown.", [&] {
        topRisks_ = StoredTopRisks(*globals_.application);
        FillGrids();
        DrawChart();
    });
}

void frmTornado::FillGrids() {
    FillRankedGrid(gridDur, globals_.RiskFactors, Measure::Duration);
    FillRankedGrid(gridCost, globals_.RiskFactors, Measure::Cost);
    riskCount_ = static_cast<std::int32_t>(globals_.RiskFactors.size());
    ShowTopRisks(std::min(topRisks_, riskCount_));
}

void frmTornado::DrawChart() {
    gridDur.SetVisible(OptionDuration.Selected());
    gridCost.SetVisible(!OptionDuration.Selected());
    DrawRankedChart(plotDur, ChosenGrid(), globals_.RiskFactors, ChosenMeasure(), topRisks_,
                    OpenPlan(globals_)->Name());
}

void frmTornado::ShowTopRisks(std::int32_t count) {
    topRisks_ = count;
    txtTopRisks.SetText(std::to_string(count));
}

void frmTornado::RedrawChart() {
    TrappedAndTold(globals_.desktop, "The chart could not be drawn.", [&] { DrawChart(); });
}

void frmTornado::OptionDuration_Click() { RedrawChart(); }

void frmTornado::OptionCost_Click() { RedrawChart(); }

void frmTornado::SpinButton1_SpinUp() {
    if (topRisks_ >= riskCount_) return;
    ShowTopRisks(topRisks_ + 1);
    RedrawChart();
}

void frmTornado::SpinButton1_SpinDown() {
    if (topRisks_ <= 1) return;
    ShowTopRisks(topRisks_ - 1);
    RedrawChart();
}

void frmTornado::cmdCopyToClip_Click() {
    TrappedAndTold(globals_.desktop, "The table could not be copied.", [&] {
        bool leadingLine = false;
        CopyGridToClipboard(globals_.desktop, ChosenGrid(), leadingLine);
    });
}

void frmTornado::cmdHelp_Click() {
    ShowHelpOrTell(*globals_.application, globals_.desktop, kHelpDrivingRisks);
}

void frmTornado::cmdOK_Click() { Close(); }

}  // namespace kestrel::ui
