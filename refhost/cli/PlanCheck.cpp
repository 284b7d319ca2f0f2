#include "refhost/cli/PlanCheck.h"

#include <set>

#include "base/Errors.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "core/model/clsRiskFactor.h"
#include "refhost/engine/LivePlan.h"
#include "store/RegisterDocument.h"
#include "store/TaskField.h"
#include "util/modXmlToolbox.h"

namespace refhost {
namespace {

using Complaints = std::vector<std::string>;
using Factors = std::vector<kestrel::clsRiskFactor>;

std::string Label(const TaskData& task) { return "Task " + task.id + " - " + task.name; }

/// Reads what can be read; a factor that cannot keeps its place, so that IDs stay right.
Factors ReadFactors(kestrel::Desktop& desktop, const PlanData& plan, Complaints& complaints) {
    Factors factors;
    const std::string* text = FindText(plan.texts, kestrel::kRegisterText);
    if (!text || text->empty()) return factors;
    kestrel::XmlDocument document;
    if (!kestrel::LoadXmlFromString(desktop, document, *text)) {
        complaints.push_back(
            "The register is not well-formed XML; load it again from a risk factors file.");
        return factors;
    }
    for (const kestrel::XmlNode* element : kestrel::SelectElements(document, "RiskFactor")) {
        factors.emplace_back();
        factors.back().strID = std::to_string(factors.size());
        try {
            factors.back().LoadRiskFromXML(*element);
        } catch (const kestrel::DataError& error) {
            complaints.push_back("Risk factor " + std::to_string(factors.size()) +
                                 " cannot be read: " + error.what());
        }
        factors.back().strID = std::to_string(factors.size());
    }
    return factors;
}

void CheckOrder(const std::string& who, const char* what, double minimum, double mostLikely,
                double maximum, Complaints& complaints) {
    if (minimum <= mostLikely && mostLikely <= maximum) return;
    complaints.push_back(who + ": minimum, most likely and maximum of its " + what +
                         " are out of order (" + kestrel::GeneralText(minimum) + ", " +
                         kestrel::GeneralText(mostLikely) + ", " + kestrel::GeneralText(maximum) +
                         "); put them in order.");
}

void CheckCorrelation(const Factors& factors, const kestrel::clsRiskFactor& factor,
                      const std::string& who, Complaints& complaints) {
    if (factor.CorrelatedTo == 0) return;
    const auto leader = static_cast<std::size_t>(factor.CorrelatedTo);
    if (factor.CorrelatedTo < 0 || leader > factors.size())
        complaints.push_back(who + " is correlated to risk factor " +
                             std::to_string(factor.CorrelatedTo) + ", but the register holds " +
                             std::to_string(factors.size()) + "; correct its correlation.");
    else if (std::to_string(leader) == factor.strID)
        complaints.push_back(who + " is correlated to itself; remove the correlation.");
    else if (factors[leader - 1].CorrelatedTo != 0)
        complaints.push_back(who + " is correlated to risk factor " + std::to_string(leader) +
                             ", which itself follows another; correlate both to the same one.");
}

void CheckRegister(const Factors& factors, Complaints& complaints) {
    for (const kestrel::clsRiskFactor& factor : factors) {
        const std::string who = "Risk factor " + factor.strID + " - " + factor.strDescription;
        if (kestrel::IsBlank(factor.strDescription))
            complaints.push_back("Risk factor " + factor.strID +
                                 " has no description; give it one.");
        if (!(factor.dblProb >= 0 && factor.dblProb <= 100))
            complaints.push_back(who + ": its probability of " +
                                 kestrel::GeneralText(factor.dblProb) +
                                 " is not between 0 and 100; correct it.");
        CheckOrder(who, "duration impact", factor.dblMin, factor.dblML, factor.dblMax, complaints);
        CheckOrder(who, "cost impact", factor.dblCostMin, factor.dblCostML, factor.dblCostMax,
                   complaints);
        CheckCorrelation(factors, factor, who, complaints);
    }
}

void CheckAssignments(const TaskData& task, const std::string& field, std::size_t held,
                      Complaints& complaints) {
    std::set<std::int32_t> seen;
    bool any = false;
    for (const bool inSeries : {true, false}) {
        const std::string list = kestrel::GetRiskList(field, inSeries);
        for (std::size_t start = 0; start <= list.size();) {
            const std::size_t comma = std::min(list.find(',', start), list.size());
            const std::string item = list.substr(start, comma - start);
            start = comma + 1;
            if (kestrel::IsBlank(item)) continue;
            any = true;
            const std::int32_t id = kestrel::ToInt32(kestrel::LeadingNumber(item)).value_or(0);
            if (id < 1 || static_cast<std::size_t>(id) > held)
                complaints.push_back(Label(task) + " carries '" + item +
                                     "', but the register holds " + std::to_string(held) +
                                     " risk factors; remove it from the task.");
            else if (!seen.insert(id).second)
                complaints.push_back(Label(task) + " carries risk factor " + std::to_string(id) +
                                     " twice; remove one.");
        }
    }
    if (!any && !field.empty())
        complaints.push_back(Label(task) + ": its field text '" + field +
                             "' names no risk factor; clear it, or the costs of later tasks are "
                             "mistaken in an analysis.");
}

void CheckTasks(const PlanData& plan, std::size_t held, Complaints& complaints) {
    for (const TaskData& task : plan.tasks) {
        if (const std::string* field = FindText(task.userValues, kestrel::kRiskFactorsField))
            CheckAssignments(task, *field, held, complaints);
        if (task.distribution)
            CheckOrder(Label(task), "duration distribution", task.distribution->minimum,
                       task.distribution->mostLikely, task.distribution->maximum, complaints);
        if (task.distribution && task.type != kOrdinary)
            complaints.push_back(Label(task) +
                                 " is a summary; its duration distribution has no effect.");
    }
}

void CheckNetwork(PlanData plan, Complaints& complaints) {
    try {
        LivePlan(std::move(plan)).FinishDate();
    } catch (const kestrel::DataError& error) {
        complaints.push_back(error.what());
    }
}

}  // namespace

std::vector<std::string> CheckPlan(kestrel::Desktop& desktop, PlanData plan) {
    Complaints complaints;
    const Factors factors = ReadFactors(desktop, plan, complaints);
    CheckRegister(factors, complaints);
    CheckTasks(plan, factors.size(), complaints);
    CheckNetwork(std::move(plan), complaints);
    return complaints;
}

}  // namespace refhost
