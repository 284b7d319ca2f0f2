#include "ui/editor/FactorFiles.h"

#include "base/Text.h"
#include "store/GridRegister.h"
#include "store/RegisterDocument.h"
#include "ui/editor/CellRules.h"
#include "util/modXmlToolbox.h"

namespace kestrel::ui {
namespace {

constexpr const char* kChildren[kRiskColumns] = {"Name",        "Minimum",     "MostLikely",
                                                 "Maximum",     "CostMinimum", "CostMostLikely",
                                                 "CostMaximum", "Probability", "CorrelatedTo"};

const std::string* Version(const XmlDocument& document) {
    for (const XmlNode* root : SelectElements(document, "RiskFactors"))
        if (const std::string* version = root->Attribute("Version")) return version;
    return nullptr;
}

}  // namespace

Factors ReadFactors(const XmlDocument& document) {
    Factors factors;
    for (const auto& factor : FactorsOf(document)) factors.push_back(*factor);
    return factors;
}

std::optional<Factors> ReadFactorsFile(Desktop& desktop, const std::string& path) {
    XmlDocument document;
    LoadXmlFromFile(desktop, document, path);
    const std::string* version = Version(document);
    if (!version) {
        desktop.ShowMessage("The file '" + path + "' is not a valid Risk Factors file.");
        return std::nullopt;
    }
    if (*version > kHighestRegisterVersion) {
        desktop.ShowMessage("The file " + path +
                            " is not a valid Risk Factors file or may be "
                            "corrupted and cannot be loaded into Quillon Risk Analysis");
        return std::nullopt;
    }
    return ReadFactors(document);
}

XmlDocument TemplateDocument(const GridTable& grid) {
    XmlDocument document = NewRegisterDocument();
    for (int row = 1; row <= LastRiskRow(grid); ++row) {
        if (IsBlank(grid.Text(row, kDescriptionColumn))) continue;
        XmlNode& factor = document.root.Append(CreateXmlElement("RiskFactor"));
        for (int column = 0; column < kRiskColumns; ++column)
            factor.Append(CreateXmlElement(kChildren[column], grid.Text(row, column)));
    }
    return document;
}

}  // namespace kestrel::ui
