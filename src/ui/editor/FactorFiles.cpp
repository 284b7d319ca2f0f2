#include "ui/editor/FactorFiles.h"

#include "base/Text.h"
#include "store/GridRegister.h"
#include "store/RegisterDocument.h"
#include "store/modRegistry.h"
#include "store/modSettings.h"
#include "util/frmBrowse.h"
#include "util/modToolBox.h"
#include "util/modXmlToolbox.h"

namespace kestrel::ui {
namespace {

constexpr const char* kOpenFilter = "Risk Factors (*.xml)";
constexpr const char* kLoadFromFileFilter = "RiskFactors (*.xml)";

const std::string* Version(const XmlDocument& document) {
    for (const XmlNode* root : SelectElements(document, "RiskFactors"))
        if (const std::string* version = root->Attribute("Version")) return version;
    return nullptr;
}

XmlDocument TemplateDocument(const GridTable& grid) {
    XmlDocument document = NewRegisterDocument();
    for (int row = 1; row <= LastRiskRow(grid); ++row) {
        if (IsBlank(grid.Text(row, kDescriptionColumn))) continue;
        XmlNode& factor = document.root.Append(CreateXmlElement("RiskFactor"));
        for (int column = 0; column < kRiskColumns; ++column)
            factor.Append(CreateXmlElement(ElementOfColumn(column).name, grid.Text(row, column)));
    }
    return document;
}

}  // namespace

std::optional<RiskRegister> FactorFiles::ToStartWith() {
    const std::string text = OpenPlan(globals_)->GetText(kRegisterText);
    const std::string fault = RegisterFault(globals_.desktop, text);
    if (!fault.empty() && !UserReplaces(fault)) return std::nullopt;
    XmlDocument stored;
    if (fault.empty()) LoadXmlFromString(globals_.desktop, stored, text);
    if (RiskRegister factors = FactorsOf(stored); !factors.empty()) return factors;
    const std::string path = ExistingFile(DefaultFile());
    return path.empty() ? RiskRegister() : Read(path);
}

bool FactorFiles::UserReplaces(const std::string& fault) {
    return globals_.desktop.ShowMessage("The risk factors could not be edited.\r\n\r\n" + fault +
                                            "\r\n\r\nDo you wish to replace them by new ones?",
                                        MessageButtons::YesNo, "") == MessageAnswer::Yes;
}

std::string FactorFiles::DefaultFile() {
    const std::string option = GetOptionSetting(*globals_.application);
    if (option == "1") return GetFileLocation(*globals_.application);
    if (option == "2") return BrowseForFactors(kOpenFilter, PlanFolder());
    return {};
}

std::optional<RiskRegister> FactorFiles::Chosen() {
    return Named(BrowseForFactors(kLoadFromFileFilter, PlanFolder()));
}

std::optional<RiskRegister> FactorFiles::Named(const std::string& path) {
    const std::string existing = ExistingFile(path);
    if (existing.empty()) return std::nullopt;
    return Read(existing);
}

/// The path itself or, after telling that there is no such file, the one that the user names in
/// its place; empty for none.
std::string FactorFiles::ExistingFile(const std::string& path) {
    if (path.empty() || FileExists(globals_.desktop, path, true)) return path;
    const std::string other = BrowseForFactors(kOpenFilter, SamplesFolder());
    if (!FileExists(globals_.desktop, other, false)) return {};
    SaveFileLocation(*globals_.application, other);
    return other;
}

std::optional<RiskRegister> FactorFiles::Read(const std::string& path) {
    XmlDocument document;
    LoadXmlFromFile(globals_.desktop, document, path);
    const std::string* version = Version(document);
    if (!version) {
        globals_.desktop.ShowMessage("The file '" + path + "' is not a valid Risk Factors file.");
        return std::nullopt;
    }
    if (*version > kHighestRegisterVersion) {
        globals_.desktop.ShowMessage("The file " + path +
                                     " is not a valid Risk Factors file or may be "
                                     "corrupted and cannot be loaded into Quillon Risk Analysis");
        return std::nullopt;
    }
    return FactorsOf(document);
}

void FactorFiles::SaveTemplate(const GridTable& grid) {
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
    const XmlDocument document = TemplateDocument(grid);
    globals_.desktop.WriteFile(browse.FileName, SerialiseXmlFile(document.root));
}

std::string FactorFiles::BrowseForFactors(const std::string& filter, const std::string& folder) {
    return BrowseForFile(globals_.desktop, "Risk Factors", {{filter, "*.xml"}}, folder);
}

std::string FactorFiles::SamplesFolder() { return globals_.application->Path() + "\\Samples\\"; }

std::string FactorFiles::PlanFolder() {
    return GetRegValue(globals_.desktop, kHostOptionsKey, kPlanPathValue, SamplesFolder());
}

}  // namespace kestrel::ui
