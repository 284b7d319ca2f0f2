#include <algorithm>
#include <optional>
#include <utility>

#include "base/Errors.h"
#include "base/NumberText.h"
#include "core/model/clsRiskFactor.h"
#include "util/modXmlToolbox.h"

namespace kestrel {
namespace {

enum class Presence { Required, Optional };

struct NumberElement {
    const char* name;
    double clsRiskFactor::*field;
    Presence presence;
    bool isSensitivity = false;
};

/// The numbers of a factor in the order in which documents hold them, between Name and
/// CorrelatedTo. Registers from before cost impacts lack all that is optional.
constexpr NumberElement kNumbers[] = {
    {"Minimum", &clsRiskFactor::dblMin, Presence::Required},
    {"MostLikely", &clsRiskFactor::dblML, Presence::Required},
    {"Maximum", &clsRiskFactor::dblMax, Presence::Required},
    {"CostMinimum", &clsRiskFactor::dblCostMin, Presence::Optional},
    {"CostMostLikely", &clsRiskFactor::dblCostML, Presence::Optional},
    {"CostMaximum", &clsRiskFactor::dblCostMax, Presence::Optional},
    {"Probability", &clsRiskFactor::dblProb, Presence::Required},
    {"DurSens", &clsRiskFactor::dblDurSens, Presence::Optional, true},
    {"CostSens", &clsRiskFactor::m_dCostSens, Presence::Optional, true},
};

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

void clsRiskFactor::LoadRiskFromXML(const XmlNode& element) {
    const clsRiskFactor fresh;
    strID = fresh.strID;
    CorrelatedTo = fresh.CorrelatedTo;
    m_dCorRandom = fresh.m_dCorRandom;
    for (const NumberElement& number : kNumbers) this->*number.field = fresh.*number.field;

    strDescription = RequiredName(element);
    for (const NumberElement& number : kNumbers) {
        if (number.presence == Presence::Required)
            this->*number.field = GetChildNumber(number.name, element);
        else if (const auto value = OptionalNumber(number.name, element))
            this->*number.field = *value;
    }
    if (const auto value = OptionalNumber("CorrelatedTo", element))
        CorrelatedTo = ToInt32(*value).value_or(fresh.CorrelatedTo);
}

void clsRiskFactor::SaveRiskToXML(XmlNode& element) const {
    element.Append(CreateXmlElement("Name", strDescription));
    for (const NumberElement& number : kNumbers)
        element.Append(CreateXmlElement(number.name, GeneralText(this->*number.field)));
    element.Append(CreateXmlElement("CorrelatedTo", std::to_string(CorrelatedTo)));
}

void clsRiskFactor::SaveSensitivitiesToXML(XmlNode& element) const {
    for (const NumberElement& number : kNumbers) {
        if (!number.isSensitivity) continue;
        XmlNode stored = CreateXmlElement(number.name, GeneralText(this->*number.field));
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
           std::all_of(std::begin(kNumbers), std::end(kNumbers), [&](const NumberElement& number) {
               return number.isSensitivity || this->*number.field == other.*number.field;
           });
}

}  // namespace kestrel
