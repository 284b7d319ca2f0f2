#include "store/RegisterDocument.h"

#include <memory>
#include <string>
#include <vector>

#include "base/Errors.h"
#include "store/TaskField.h"
#include "util/modXmlToolbox.h"

namespace kestrel {

clsRiskFactor ReadRiskFactor(const XmlNode& element, const std::string& id) {
    clsRiskFactor factor;
    try {
        factor.LoadRiskFromXML(element);
    } catch (const DataError& error) {
        throw DataError("Risk factor " + id + ": " + error.what());
    }
    return factor;
}

XmlDocument NewRegisterDocument() {
    XmlDocument document;
    document.root = CreateXmlElement("RiskFactors", {}, "Version", kRegisterVersion);
    return document;
}

void SaveRegisterToPlan(modGlobals& globals, host::Plan& plan) {
    XmlDocument document = NewRegisterDocument();
    document.root.children.reserve(globals.RiskFactors.size());
    std::size_t position = 0;
    for (const auto& factor : globals.RiskFactors) {
        XmlNode& element = document.root.Append(
            CreateXmlElement("RiskFactor", {}, "ID", std::to_string(++position)));
        factor->SaveRiskToXML(element);
    }
    plan.SetText(kRegisterText, SerialiseXml(document.root));
}

void LoadRegisterFromPlan(modGlobals& globals, host::Plan& plan) {
    EnsureTextField(plan, kRiskFactorsField);
    EnsureTextField(plan, kIterationsField);
    const std::string text = plan.GetText(kRegisterText);
    if (text.empty()) return;

    XmlDocument document;
    if (!LoadXmlFromString(globals.desktop, document, text)) return;
    // All are read before one is added, so that a bad factor leaves the register as it was.
    std::vector<std::shared_ptr<clsRiskFactor>> factors = globals.RiskFactors;
    for (const XmlNode* element : SelectElements(document, "RiskFactor")) {
        const std::string id = std::to_string(factors.size() + 1);
        factors.push_back(std::make_shared<clsRiskFactor>(ReadRiskFactor(*element, id)));
        factors.back()->strID = id;
    }
    globals.RiskFactors = std::move(factors);
}

}  // namespace kestrel
