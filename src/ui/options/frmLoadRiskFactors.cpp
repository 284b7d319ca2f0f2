#include "ui/options/frmLoadRiskFactors.h"

#include <string>

#include "store/modSettings.h"
#include "util/Trapped.h"
#include "util/modToolBox.h"
#include "util/modeHelp.h"

namespace kestrel::ui {
namespace {

constexpr int kWidth = 560, kHeight = 320, kMargin = 10, kLine = 20, kButtonWidth = 90,
              kButtonHeight = 26;
constexpr int kInside = 2 * kMargin;  ///< left edge of what stands in a frame
constexpr int kInsideWidth = kWidth - 2 * kInside;
constexpr int kBrowseWidth = 30, kFileHeight = 23;

}  // namespace

frmLoadRiskFactors::frmLoadRiskFactors(modGlobals& globals)
    : Form("Options", kWidth, kHeight), globals_(globals) {
    PlaceControls();
    ConnectHandlers();
}

void frmLoadRiskFactors::PlaceControls() {
    Add(Frame1, {kMargin, kMargin, kWidth - 2 * kMargin, 158});
    Add(Label1, {kInside, 32, kInsideWidth, kLine});
    Add(OptionButton1, {kInside, 58, kInsideWidth, kLine});
    const int fileLeft = kInside + 20, browseLeft = kWidth - kInside - kBrowseWidth;
    Add(txtFileName, {fileLeft, 82, browseLeft - fileLeft - 6, kFileHeight});
    Add(cmdBrowse, {browseLeft, 82, kBrowseWidth, kFileHeight});
    Add(OptionButton2, {kInside, 112, kInsideWidth, kLine});
    Add(OptionButton3, {kInside, 138, kInsideWidth, kLine});

    Add(Frame2, {kMargin, 176, kWidth - 2 * kMargin, 76});
    Add(OptionSimple, {kInside, 198, kInsideWidth, kLine});
    Add(OptionAdvanced, {kInside, 222, kInsideWidth, kLine});
    Add(chkIterations, {kInside, 258, kInsideWidth, kLine});

    int left = kWidth - 3 * (kButtonWidth + kMargin);
    for (Button* button : {&cmdOk, &cmdCancel, &cmdHelp}) {
        Add(*button, {left, kHeight - kMargin - kButtonHeight, kButtonWidth, kButtonHeight});
        left += kButtonWidth + kMargin;
    }
    SetDefaultButton(cmdOk);
    SetCancelButton(cmdCancel);
}

void frmLoadRiskFactors::ConnectHandlers() {
    OptionButton1.Click = [this] { OptionButton1_Click(); };
    OptionButton2.Click = [this] { OptionButton2_Click(); };
    OptionButton3.Click = [this] { OptionButton3_Click(); };
    cmdBrowse.Click = [this] { cmdBrowse_Click(); };
    cmdOk.Click = [this] { cmdOk_Click(); };
    cmdCancel.Click = [this] { cmdCancel_Click(); };
    cmdHelp.Click = [this] { cmdHelp_Click(); };
}

void frmLoadRiskFactors::Form_Load() {
    if (!TrappedAndTold(globals_.desktop, "The options could not be read.",
                        [this] { ReadOptions(); }))
        Close();
}

void frmLoadRiskFactors::ReadOptions() {
    host::Application& application = *globals_.application;
    txtFileName.SetText(GetFileLocation(application));

    const std::string start = GetOptionSetting(application);
    if (start == "1") OptionButton1.Select();
    if (start == "2") OptionButton2.Select();
    if (start == "3") OptionButton3.Select();

    const std::string calculation = GetCalculationOption(application);
    if (calculation == "1") OptionSimple.Select();
    if (calculation == "2") OptionAdvanced.Select();

    chkIterations.SetChecked(GetShowIterations(application));
}

void frmLoadRiskFactors::StoreOptions() {
    host::Application& application = *globals_.application;
    SaveFileLocation(application, txtFileName.Text());

    if (OptionButton1.Selected()) SaveOptionSetting(application, "1");
    if (OptionButton2.Selected()) SaveOptionSetting(application, "2");
    if (OptionButton3.Selected()) SaveOptionSetting(application, "3");

    if (OptionSimple.Selected()) SaveCalculationOption(application, "1");
    if (OptionAdvanced.Selected()) SaveCalculationOption(application, "2");

    SaveShowIterations(application, chkIterations.Checked());
}

void frmLoadRiskFactors::EnableFile(bool enabled) {
    txtFileName.SetEnabled(enabled);
    cmdBrowse.SetEnabled(enabled);
}

void frmLoadRiskFactors::cmdBrowse_Click() {
    TrappedAndTold(globals_.desktop, "A file could not be chosen.", [this] {
        const std::string path =
            BrowseForFile(globals_.desktop, "Risk Factors", {{"Risk Factors (*.xml)", "*.xml"}},
                          globals_.application->Path() + "\\Samples\\");
        if (!path.empty()) txtFileName.SetText(path);
    });
}

void frmLoadRiskFactors::cmdOk_Click() {
    if (TrappedAndTold(globals_.desktop,
                       "The options could not be stored; they are still in this window.",
                       [this] { StoreOptions(); }))
        cmdCancel_Click();
}

void frmLoadRiskFactors::cmdCancel_Click() { Close(); }

void frmLoadRiskFactors::cmdHelp_Click() {
    ShowHelpOrTell(*globals_.application, globals_.desktop, kHelpOptions);
}

}  // namespace kestrel::ui
