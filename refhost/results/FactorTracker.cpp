#include "refhost/results/FactorTracker.h"

#include "base/Errors.h"
#include "core/analysis/modAnalysis.h"
#include "core/model/Occurrence.h"
#include "store/RegisterDocument.h"
#include "store/TaskField.h"

namespace refhost {
namespace {

void LoadRegister(kestrel::modGlobals& globals, ReferenceHost& application) {
    globals.application = std::shared_ptr<host::Application>(&application, [](auto*) {});
    kestrel::OpenRegister(globals, *application.OpenPlan());
}

}  // namespace

FactorTracker::FactorTracker(ReferenceHost& application, kestrel::Desktop& desktop)
    : application_(application), globals_(desktop) {
    LoadRegister(globals_, application);
    carried_.assign(Register().size(), false);
    occurred_.assign(Register().size(), false);
    occurrences_.assign(Register().size(), 0);
    durationImpacts_.resize(Register().size());
    costImpacts_.resize(Register().size());
    FindCarryingTasks();
}

void FactorTracker::FindCarryingTasks() {
    const PlanData& plan = application_.OpenPlan()->Live().Data();
    for (std::size_t i = 0; i < plan.tasks.size(); ++i) {
        const std::string* field = FindText(plan.tasks[i].userValues, kestrel::kRiskFactorsField);
        if (!field) continue;
        bool any = false;
        for (const bool inSeries : {true, false})
            for (const std::int32_t id :
                 kestrel::ListedIDs(kestrel::GetRiskList(*field, inSeries))) {
                any = true;
                if (id >= 1 && static_cast<std::size_t>(id) <= carried_.size())
                    carried_[static_cast<std::size_t>(id) - 1] = true;
            }
        if (any && plan.tasks[i].type == kOrdinary && !Register().empty())
            carryingTasks_.push_back(i);
    }
}

void FactorTracker::Follow() {
    const std::vector<double>& drawn = application_.OpenPlan()->NumbersHandedOut();
    if (drawn.size() != Register().size()) return;  // no add-in, or one that ended early
    for (const auto& factor : Register()) factor->ResetRisk();
    kestrel::ShareRandomNumbers(Register(), drawn);
    for (std::size_t i = 0; i < Register().size(); ++i) {
        occurred_[i] = carried_[i] && kestrel::Occurs(*Register()[i]);
        if (occurred_[i]) ++occurrences_[i];
    }
    NoteImpacts(kestrel::kDurationGroup, durationImpacts_);
    NoteImpacts(kestrel::kCostGroup, costImpacts_);
}

void FactorTracker::NoteImpacts(const char* group, std::vector<std::vector<double>>& impacts) {
    const auto found = application_.OpenPlan()->GroupList().Item(group);
    if (!found) return;
    const auto members = found->Members();
    for (std::size_t i = 0; i < impacts.size(); ++i) {
        const auto member = members->Item(static_cast<std::int32_t>(i) + 1);
        impacts[i].push_back(member && occurred_[i] ? member->SampledValue() / 10000 : 1.0);
    }
}

FactorTracker::Factors FactorTracker::ReadRegister(ReferenceHost& application,
                                                   kestrel::Desktop& desktop) {
    kestrel::modGlobals globals(desktop);
    LoadRegister(globals, application);
    return globals.RiskFactors;
}

}  // namespace refhost
