#include "store/OpenPlan.h"
#include "store/RegisterDocument.h"
#include "store/TaskField.h"
#include "store/modRegistry.h"
#include "store/modSettings.h"
#include "ui/editor/RiskGrid.h"
#include "ui/editor/frmEditRiskFactors.h"
#include "util/Trapped.h"
#include "util/frmBrowse.h"
#include "util/modToolBox.h"
#include "util/modXmlToolbox.h"

/// Where the editor's rows come from and the files that they go to.
namespace kestrel::ui {
namespace {

constexpr const char* kOpenFilter = "Risk Factors (*.xml)";
constexpr const char* kLoadFromFileFilter = "RiskFactors (*.xml)";
constexpr const char* kNotLoaded =
    "The risk factors file could not be loaded; the rows in this window are as they were.";
constexpr const char* kNotSaved =
    "The risk factors could not be saved to a file; they are still in this window.";

}  // namespace

bool frmEditRiskFactors::LoadData() {
    const std::optional<Factors> factors =
        chosenFile_ ? FactorsOfFile(*chosenFile_) : FactorsToStartWith();
    if (factors) Fill(*factors);
    return factors.has_value();
}

std::optional<Factors> frmEditRiskFactors::FactorsToStartWith() {
    const std::string text = OpenPlan(globals_)->GetText(kRegisterText);
    const std::string fault = RegisterFault(globals_.desktop, text);
    if (!fault.empty() && !UserReplaces(fault)) return std::nullopt;
    XmlDocument stored;
    if (fault.empty()) LoadXmlFromString(globals_.desktop, stored, text);
    if (Factors factors = ReadFactors(stored); !factors.empty()) return factors;
    const std::string path = ExistingFile(DefaultFile());
    return path.empty() ? Factors() : ReadFactorsFile(globals_.desktop, path);
}

bool frmEditRiskFactors::UserReplaces(const std::string& fault) {
    return globals_.desktop.ShowMessage("The risk factors could not be edited.\r\n\r\n" + fault +
                                            "\r\n\r\nDo you wish to replace them by new ones?",
                                        MessageButtons::YesNo, "") == MessageAnswer::Yes;
}

std::optional<Factors> frmEditRiskFactors::FactorsOfFile(const std::string& path) {
    const std::string existing = ExistingFile(path);
    if (existing.empty()) return std::nullopt;
    return ReadFactorsFile(globals_.desktop, existing);
}

std::string frmEditRiskFactors::DefaultFile() {
    const std::string option = GetOptionSetting(*globals_.application);
    if (option == "1") return GetFileLocation(*globals_.application);
    if (option == "2") return BrowseForFactors(kOpenFilter, PlanFolder());
    return {};
}

/// The path itself or, after telling that there is no such file, the one that the user names in
/// its place; empty for none.
std::string frmEditRiskFactors::ExistingFile(const std::string& path) {
    if (path.empty() || FileExists(globals_.desktop, path, true)) return path;
    const std::string other = BrowseForFactors(kOpenFilter, SamplesFolder());
    if (!FileExists(globals_.desktop, other, false)) return {};
    SaveFileLocation(*globals_.application, other);
    return other;
}

std::string frmEditRiskFactors::BrowseForFactors(const std::string& filter,
                                                 const std::string& folder) {
    return BrowseForFile(globals_.desktop, "Risk Factors", {{filter, "*.xml"}}, folder);
}

std::string frmEditRiskFactors::SamplesFolder() {
    return globals_.application->Path() + "\\Samples\\";
}

std::string frmEditRiskFactors::PlanFolder() {
    return GetRegValue(globals_.desktop, kHostOptionsKey, kPlanPathValue, SamplesFolder());
}

void frmEditRiskFactors::Fill(const Factors& factors) {
    const RedrawPause pause(Tabulon1);
    SetUpRiskGrid(Tabulon1);
    for (const clsRiskFactor& factor : factors)
        FillRow(Tabulon1, AppendNumberedRow(Tabulon1), factor);
    AddBlankRow(false, true);
    FillBlankCells(Tabulon1);
    RefreshCellLocks(Tabulon1);
    GoTo(1, kDescriptionColumn);
}

void frmEditRiskFactors::cmdLoadFile_Click() {
    TrappedAndTold(globals_.desktop, kNotLoaded, [this] {
        EnsureTextField(*OpenPlan(globals_), kRiskFactorsField);
        const int row = Tabulon1.CurrentRow(), column = Tabulon1.CurrentColumn();
        if (FactorsAreAssigned()) {
            globals_.desktop.ShowMessage(
                "This file cannot be used to replace the existing risk Risk Factors as some of the "
                "existing risk Risk Factors have been assigned to tasks");
            return;
        }
        chosenFile_ = BrowseForFactors(kLoadFromFileFilter, PlanFolder());
        if (LoadData() && Tabulon1.IsDataCell(row, column)) GoTo(row, column);
    });
}

bool frmEditRiskFactors::FactorsAreAssigned() {
    for (const host::TaskPtr& task : OpenPlan(globals_)->Tasks()->Enumerate())
        if (!task->UserValues()->Item(kRiskFactorsField).empty()) return true;
    return false;
}

void frmEditRiskFactors::cmdSave_Click() {
    TrappedAndTold(globals_.desktop, kNotSaved, [this] {
        if (CheckDescriptions() || CheckNumbers()) return;
        NormaliseRow();
        CompleteEntryRow();
        frmBrowse browse(globals_.desktop);
        browse.DialogTitle = "Risk Factors Template File";
        browse.DefaultExt = "XML";
        browse.Filter = "Risk Factors (*.xml)|*.xml";
        browse.InitDir = SamplesFolder();
        browse.ShowSave();
        if (browse.FileName.empty()) {
            globals_.desktop.ShowMessage("Cannot create File as no File Name exists",
                                         MessageButtons::Ok, "Warning No File Name Assigned");
            return;
        }
        const XmlDocument document = TemplateDocument(Tabulon1);
        globals_.desktop.WriteFile(browse.FileName, SerialiseXmlFile(document.root));
    });
}

}  // namespace kestrel::ui
