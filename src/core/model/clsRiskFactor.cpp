#include "core/model/clsRiskFactor.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/Checked.h"
#include "base/Errors.h"
#include "base/NumberText.h"
#include "core/model/Occurrence.h"
#include "core/model/RiskElements.h"
#include "util/modXmlToolbox.h"

namespace kestrel {
namespace {

std::optional<double> OptionalNumber(const char* name, const XmlNode& element) {
    try {
        return GetChildNumber(name, element);
    } catch (const DataError&) {
        return std::nullopt;
    }
}

std::string RequiredName(const XmlNode& element) {
    for (const XmlNode& child : element.children)
        if (child.name == "Name") return child.TextContent();
    throw DataError("Name is missing.");
}

}  // namespace

void clsRiskFactor::PrepObjForAnalysis() {
    m_colTasks.clear();
    m_colValues.Clear();
    m_colValuesC.Clear();
    ResetRisk();
}

void clsRiskFactor::ResetRisk() {
    m_dCorRandom = 0;
    applied_ = false;
    durationMultiplier_ = 1.0;
    costMultiplier_ = 1.0;
}

void clsRiskFactor::ApplyRiskData(std::int32_t visits) {
    const double durations[] = {1.0, Checked(durationMember->SampledValue() / 10000)};
    const double costs[] = {1.0, Checked(costMember->SampledValue() / 10000)};
    // Chosen by position: whether a factor occurs is chance, and no branch may hang on it.
    applied_ = Occurs(*this) & !m_colTasks.empty();
    durationMultiplier_ = durations[applied_];
    costMultiplier_ = costs[applied_];
    m_colValues.Append(durationMultiplier_, visits);
    m_colValuesC.Append(costMultiplier_, visits);
}

void clsRiskFactor::LoadRiskFromXML(const XmlNode& element) {
    const clsRiskFactor fresh;
    strID = fresh.strID;
    CorrelatedTo = fresh.CorrelatedTo;
    m_dCorRandom = fresh.m_dCorRandom;
    for (const RiskElement& number : kRiskFigures) this->*number.figure = fresh.*number.figure;

    strDescription = RequiredName(element);
    for (const RiskElement& number : kRiskFigures) {
        if (number.required)
            this->*number.figure = GetChildNumber(number.name, element);
        else if (const auto value = OptionalNumber(number.name, element))
            this->*number.figure = *value;
    }
    if (const auto value = OptionalNumber("CorrelatedTo", element))
        CorrelatedTo = ToInt32(*value).value_or(fresh.CorrelatedTo);
}

void clsRiskFactor::SaveRiskToXML(XmlNode& element) const {
    element.Append(CreateXmlElement("Name", strDescription));
    for (const RiskElement& number : kRiskFigures)
        element.Append(CreateXmlElement(number.name, GeneralText(this->*number.figure)));
    element.Append(CreateXmlElement("CorrelatedTo", std::to_string(CorrelatedTo)));
}

void clsRiskFactor::SaveSensitivitiesToXML(XmlNode& element) const {
    for (const RiskElement& number : kRiskFigures.subspan(kRiskPercentages.size())) {
        XmlNode stored = CreateXmlElement(number.name, GeneralText(this->*number.figure));
        const auto found = std::find_if(element.children.begin(), element.children.end(),
                                        [&](const XmlNode& n) { return n.name == number.name; });
        if (found == element.children.end())
            element.Append(std::move(stored));
        else
            *found = std::move(stored);
    }
}

bool clsRiskFactor::IsDefinedAs(const clsRiskFactor& other) const {
    return strDescription == other.strDescription && CorrelatedTo == other.CorrelatedTo &&
           std::ranges::all_of(kRiskPercentages, [&](const RiskElement& number) {
               return this->*number.figure == other.*number.figure;
           });
}

}  // namespace kestrel
