#include "refhost/results/Prioritise.h"

#include <algorithm>
#include <map>

#include "refhost/engine/Statistics.h"
#include "refhost/results/FactorTracker.h"
#include "refhost/results/SilencedRegister.h"
#include "store/RegisterDocument.h"

namespace refhost {
namespace {

class CancelWatcher : public AnalysisWatcher {
 public:
    explicit CancelWatcher(std::function<bool()> goesOn) : goesOn_(std::move(goesOn)) {}
    bool AfterIteration(std::int32_t, std::span<const std::int32_t>,
                        const AnalysisResults&) override {
        return goesOn_();
    }

 private:
    std::function<bool()> goesOn_;
};

/// Finds the percentile for sets of silent factors, each set once.
class Measurer {
 public:
    Measurer(const PlanData& plan, const PriorityQuestion& question, SilencedRegister reg,
             const DesktopMaker& desktops, std::int32_t atMost, const PriorityProgress& progress)
        : question_(question),
          register_(std::move(reg)),
          progress_(progress),
          atMost_(atMost),
          pool_(plan, desktops, question.threads) {}

    /// Makes At answer for these sets; false when cancelled.
    bool Measure(const std::vector<FactorSet>& sets) {
        std::vector<LaboratoryPool::Job> jobs;
        for (const FactorSet& set : sets) {
            const auto [entry, isNew] = known_.try_emplace(set);
            if (!isNew) continue;
            // Nodes of a map stay where they are.
            jobs.push_back([this, &set = entry->first, &value = entry->second](Laboratory& lab) {
                CancelWatcher watcher([this] { return !pool_.Cancelled(); });
                const AnalysisResults results =
                    lab.Run(register_.Without(set), question_.settings, &watcher);
                if (!results.cancelled) value = Figure(results);
            });
        }
        return pool_.Run(std::move(jobs),
                         [this](std::int32_t done) { return progress_(done, atMost_); });
    }

    double At(const FactorSet& set) const { return known_.at(set); }

    void Know(const FactorSet& set, const AnalysisResults& results) {
        known_[set] = Figure(results);
    }

 private:
    double Figure(const AnalysisResults& results) const {
        std::vector<double> values =
            question_.outcome == Outcome::Finish ? results.finish : results.cost;
        std::sort(values.begin(), values.end());
        return Percentile(values, question_.percentile / 100);
    }

    const PriorityQuestion& question_;
    const SilencedRegister register_;
    const PriorityProgress& progress_;
    const std::int32_t atMost_;
    std::map<FactorSet, double> known_;
    LaboratoryPool pool_;  ///< last: its threads end before what they use
};

FactorSet With(FactorSet set, std::int32_t id) {
    set.insert(std::lower_bound(set.begin(), set.end(), id), id);
    return set;
}

bool MeasureSingles(Measurer& measurer, const FactorSet& carried, Priorities& found) {
    std::vector<FactorSet> sets{carried};
    for (const std::int32_t id : carried) sets.push_back({id});
    if (!measurer.Measure(sets)) return false;
    found.none = measurer.At(carried);
    for (FactorCost& factor : found.factors) {
        factor.without = measurer.At({factor.id});
        factor.saved = found.all - factor.without;
    }
    return true;
}

bool MeasureSequence(Measurer& measurer, const FactorSet& carried, Priorities& found) {
    FactorSet silent;
    FactorSet left = carried;
    double before = found.all;
    while (!left.empty()) {
        std::vector<FactorSet> sets;
        for (const std::int32_t id : left) sets.push_back(With(silent, id));
        if (!measurer.Measure(sets)) return false;
        std::size_t best = 0;
        for (std::size_t i = 1; i < sets.size(); ++i)
            if (measurer.At(sets[i]) < measurer.At(sets[best])) best = i;
        const double after = measurer.At(sets[best]);
        if (after >= before) return true;
        found.sequence.push_back({left[best], after, before - after});
        before = after;
        silent = sets[best];
        left.erase(left.begin() + static_cast<std::ptrdiff_t>(best));
    }
    return true;
}

/// The factors that some task carries, nothing measured yet.
std::vector<FactorCost> CarriedFactors(const PlanData& plan, kestrel::Desktop& desktop) {
    NoSettings noSettings;
    ReferenceHost reader(noSettings, "");
    reader.Open(std::make_shared<HostPlan>(plan));
    const FactorTracker factors(reader, desktop);
    std::vector<FactorCost> carried;
    for (std::size_t i = 0; i < factors.Register().size(); ++i)
        if (factors.Carried()[i])
            carried.push_back(
                {static_cast<std::int32_t>(i + 1), factors.Register()[i]->strDescription, 0, 0});
    return carried;
}

FactorSet IdsOf(const std::vector<FactorCost>& factors) {
    FactorSet ids;
    for (const FactorCost& factor : factors) ids.push_back(factor.id);
    return ids;
}

std::string RegisterText(const PlanData& plan) {
    const std::string* text = FindText(plan.texts, kestrel::kRegisterText);
    return text ? *text : "";
}

}  // namespace

Priorities Prioritise(const PlanData& plan, const PriorityQuestion& question,
                      kestrel::Desktop& desktop, const DesktopMaker& desktops,
                      const PriorityProgress& progress) {
    Priorities found;
    found.planName = plan.name;
    found.question = question;

    found.factors = CarriedFactors(plan, desktop);
    const FactorSet carried = IdsOf(found.factors);

    const auto count = static_cast<std::int32_t>(carried.size());
    const std::int32_t atMost = 1 + count * (count + 1) / 2;
    const std::string original = RegisterText(plan);
    CancelWatcher watcher([&, asked = 0]() mutable {
        return (++asked & 63) != 0 || progress(0, atMost);  // asking costs more than an iteration
    });
    const AnalysisResults base =
        Laboratory(plan, desktop).Run(original, question.settings, &watcher);
    found.cancelled = base.cancelled;
    if (found.cancelled) return found;
    const bool finish = question.outcome == Outcome::Finish;
    found.planned = finish ? DateSerial(base.deterministicFinish) : base.deterministicCost;

    Measurer measurer(plan, found.question, SilencedRegister(desktop, original), desktops, atMost,
                      progress);
    measurer.Know({}, base);
    found.all = measurer.At({});
    found.cancelled =
        !MeasureSingles(measurer, carried, found) || !MeasureSequence(measurer, carried, found);
    return found;
}

AnalysisResults AnalyseWithoutFactors(const PlanData& plan, const AnalysisSettings& settings,
                                      kestrel::Desktop& desktop, AnalysisWatcher* watcher) {
    const FactorSet carried = IdsOf(CarriedFactors(plan, desktop));
    const SilencedRegister silenced(desktop, RegisterText(plan));
    return Laboratory(plan, desktop).Run(silenced.Without(carried), settings, watcher);
}

}  // namespace refhost
