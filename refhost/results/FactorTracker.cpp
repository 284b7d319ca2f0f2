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
    const std::size_t tables =
        (Register().size() + kestrel::kSideBySide - 1) / kestrel::kSideBySide;
    durationImpacts_.resize(tables);
    costImpacts_.resize(tables);
    FindCarryingTasks();
}

void FactorTracker::FindCarryingTasks() {
    const PlanData& plan = application_.OpenPlan()->Data();
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
    if (!sharing_) {
        sharing_.emplace(Register());
        durationMembers_ = MembersOf(kestrel::kDurationGroup);
        costMembers_ = MembersOf(kestrel::kCostGroup);
    }
    sharing_->Share(drawn);
    for (std::size_t i = 0; i < Register().size(); ++i) {
        occurred_[i] = carried_[i] & kestrel::Occurs(*Register()[i]);
        occurrences_[i] += occurred_[i];
    }
    NoteImpacts(durationMembers_, durationImpacts_);
    NoteImpacts(costMembers_, costImpacts_);
}

/// The group stands from the preparation, which is before the first iteration, to the next one.
FactorTracker::Members FactorTracker::MembersOf(const char* group) const {
    const auto found = application_.OpenPlan()->GroupList().Find(group);
    if (!found || found->AllMembers().All().size() < Register().size()) return {};
    return found->AllMembers().All();
}

void FactorTracker::NoteImpacts(const Members& members, Impacts& impacts) const {
    if (members.empty()) return;
    for (std::size_t first = 0; first < occurred_.size(); first += kestrel::kSideBySide) {
        kestrel::SideBySide row{};
        const std::size_t count = std::min(kestrel::kSideBySide, occurred_.size() - first);
        for (std::size_t k = 0; k < count; ++k) {
            const double multipliers[] = {1.0, members[first + k]->Sample() / 10000};
            row[k] = multipliers[occurred_[first + k]];
        }
        impacts[first / kestrel::kSideBySide].push_back(row);
    }
}

FactorTracker::Factors FactorTracker::ReadRegister(ReferenceHost& application,
                                                   kestrel::Desktop& desktop) {
    kestrel::modGlobals globals(desktop);
    LoadRegister(globals, application);
    return globals.RiskFactors;
}

}  // namespace refhost
