#include "refhost/results/FactorTracker.h"

#include <algorithm>

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
    if (durationMembers_.empty()) {
        durationMembers_ = MembersOf(kestrel::kDurationGroup);
        costMembers_ = MembersOf(kestrel::kCostGroup);
    }
    NoteImpacts(durationMembers_, durationImpacts_);
    NoteImpacts(costMembers_, costImpacts_);
}

/// The group stands from the preparation, which is before the first iteration, to the next one.
std::vector<host::MemberPtr> FactorTracker::MembersOf(const char* group) const {
    const auto found = application_.OpenPlan()->GroupList().Item(group);
    std::vector<host::MemberPtr> members;
    if (found) members = found->Members()->Enumerate();
    return members;
}

void FactorTracker::NoteImpacts(const std::vector<host::MemberPtr>& members,
                                std::vector<std::vector<double>>& impacts) const {
    for (std::size_t i = 0; i < std::min(members.size(), impacts.size()); ++i) {
        const double multipliers[] = {1.0, members[i]->SampledValue() / 10000};
        impacts[i].push_back(multipliers[occurred_[i]]);
    }
}

FactorTracker::Factors FactorTracker::ReadRegister(ReferenceHost& application,
                                                   kestrel::Desktop& desktop) {
    kestrel::modGlobals globals(desktop);
    LoadRegister(globals, application);
    return globals.RiskFactors;
}

}  // namespace refhost
