#include "store/RegisterDocument.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "base/Errors.h"
#include "store/TaskField.h"
#include "util/modXmlToolbox.h"

namespace kestrel {
namespace {

std::shared_ptr<clsRiskFactor> ReadFactor(const XmlNode& element, const std::string& id) {
    auto factor = std::make_shared<clsRiskFactor>();
    try {
        factor->LoadRiskFromXML(element);
    } catch (const DataError& error) {
        throw DataError("Risk factor " + id + ": " + error.what());
    }
    factor->strID = id;
    return factor;
}

}  // namespace

bool IsRegisterRoot(const XmlNode& element) {
    return element.name == "RiskFactors" && element.uri.empty();
}

XmlDocument NewRegisterDocument() {
    XmlDocument document;
    document.root = CreateXmlElement("RiskFactors", {}, "Version", kRegisterVersion);
    return document;
}

RiskRegister FactorsOf(const XmlDocument& document) {
    RiskRegister factors;
    for (const XmlNode* element : SelectElements(document, "RiskFactor"))
        factors.push_back(ReadFactor(*element, std::to_string(factors.size() + 1)));
    return factors;
}

RiskRegister ReadRegister(Desktop& desktop, const std::string& text) {
    RiskRegister factors;
    if (text.empty()) return factors;
    try {
        const XmlDocument document = ParseXmlString(desktop, text);
        factors = FactorsOf(document);
        if (factors.empty() && !IsRegisterRoot(document.root))
            throw DataError("its root element is \"" + document.root.name + "\"");
    } catch (const DataError& error) {
        std::string why = error.what();
        if (why.ends_with('.')) why.pop_back();
        throw DataError(std::string("The plan's risk factors (its text \"") + kRegisterText +
                        "\") cannot be read: " + why + "; load them again from a file.");
    }
    return factors;
}

std::string RegisterFault(Desktop& desktop, const std::string& text) {
    try {
        ReadRegister(desktop, text);
        return {};
    } catch (const DataError& error) {
        return error.what();
    }
}

void SaveRegisterToPlan(const RiskRegister& factors, host::Plan& plan) {
    XmlDocument document = NewRegisterDocument();
    document.root.children.reserve(factors.size());
    std::size_t position = 0;
    for (const auto& factor : factors) {
        XmlNode& element = document.root.Append(
            CreateXmlElement("RiskFactor", {}, "ID", std::to_string(++position)));
        factor->SaveRiskToXML(element);
    }
    plan.SetText(kRegisterText, SerialiseXml(document.root));
}

void StoreSensitivities(Desktop& desktop, host::Plan& plan, const RiskRegister& analysed,
                        const std::string& analysedText) {
    const std::string text = plan.GetText(kRegisterText);
    if (text == analysedText) {
        SaveRegisterToPlan(analysed, plan);
        return;
    }
    if (text.empty() || !RegisterFault(desktop, text).empty()) return;
    const RiskRegister stored = ReadRegister(desktop, text);
    XmlDocument document = ParseXmlString(desktop, text);
    const std::vector<XmlNode*> elements = SelectElements(document, "RiskFactor");
    for (std::size_t i = 0; i < std::min(elements.size(), analysed.size()); ++i)
        if (stored[i]->IsDefinedAs(*analysed[i])) analysed[i]->SaveSensitivitiesToXML(*elements[i]);
    plan.SetText(kRegisterText, SerialiseXml(document.root));
}

void OpenRegister(modGlobals& globals, host::Plan& plan) {
    EnsureTaskFields(plan);
    globals.RiskFactors = ReadRegister(globals.desktop, plan.GetText(kRegisterText));
}

void LoadRegisterFromPlan(modGlobals& globals, host::Plan& plan) {
    EnsureTaskFields(plan);
    const std::string text = plan.GetText(kRegisterText);
    if (text.empty()) return;

    XmlDocument document;
    if (!LoadXmlFromString(globals.desktop, document, text)) return;
    for (auto& factor : FactorsOf(document)) {
        globals.RiskFactors.push_back(std::move(factor));
        globals.RiskFactors.back()->strID = std::to_string(globals.RiskFactors.size());
    }
}

void EnsureTaskFields(host::Plan& plan) {
    EnsureTextField(plan, kRiskFactorsField);
    EnsureTextField(plan, kIterationsField);
}

}  // namespace kestrel
