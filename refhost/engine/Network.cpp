#include "refhost/engine/Network.h"

#include <algorithm>
#include <limits>

#include "refhost/engine/NetworkCompiler.h"

namespace refhost {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

}  // namespace

Network::Network(const PlanData& plan, WorkCalendar& calendar) {
    NetworkCompiler(plan, calendar).CompileInto(*this);
}

/// One walk over all steps.
class Network::Pass {
 public:
    Pass(Network& network, std::span<const std::int32_t> durations, std::span<const double> costs)
        : network_(network), durations_(durations), costs_(costs) {}

    void RunStretches() {
        for (const Stretch& stretch : network_.stretches_) {
            RunSimple(stretch);
            RunAny(stretch.end);
        }
    }

    /// The next steps up to `end`, each by all its bounds.
    void RunAny(std::size_t end) {
        if (next_ == end) return;
        source_ = next_ == 0 ? 0 : network_.steps_[next_ - 1].finishEnd;
        for (; next_ < end; ++next_) {
            const Step& step = network_.steps_[next_];
            double* const slot = network_.times_.data() + 2 * next_;
            switch (step.kind) {
                case Kind::Ordinary:
                    RunTask(step, slot);
                    break;
                case Kind::Gate:
                    slot[0] = Latest(step.startEnd, step.floor);
                    slot[1] = Latest(step.finishEnd, -kInfinity);
                    break;
                case Kind::Result:
                    RunResult(step, slot);
                    break;
            }
        }
    }

    double EarliestFinish() const { return earliestFinish_; }

    Totals Finish() {
        for (; costsAdded_ < costs_.size(); ++costsAdded_) cost_ += costs_[costsAdded_];
        network_.latestFinish_ = finish_;
        return {std::max(0.0, finish_), cost_};
    }

 private:
    /// Everything that the loops change is local, or the stores would be kept in order with it.
    void RunSimple(const Stretch& stretch) {
        const std::size_t steps = stretch.simpleEnd - next_;
        const std::size_t summed = std::min(steps, costs_.size() - costsAdded_);
        const std::int32_t* const durations = durations_.data() + stretch.task;
        const SimpleStep* const simple = network_.simple_.data() + next_;
        const double* const costs = costs_.data() + costsAdded_;
        const double* const times = network_.times_.data();
        double* const slots = network_.times_.data() + 2 * next_;
        double finish = finish_;
        double earliestFinish = earliestFinish_;
        double cost = cost_;
        const auto run = [&](std::size_t i) {
            const double start = std::max(times[simple[i].first], times[simple[i].second]);
            const double end = start + durations[i];
            slots[2 * i] = start;
            slots[2 * i + 1] = end;
            finish = std::max(finish, end);
            earliestFinish = std::min(earliestFinish, end);
        };
        for (std::size_t i = 0; i < summed; ++i) {
            run(i);
            cost += costs[i];
        }
        for (std::size_t i = summed; i < steps; ++i) run(i);
        finish_ = finish;
        earliestFinish_ = earliestFinish;
        cost_ = cost;
        costsAdded_ += summed;
        next_ = stretch.simpleEnd;
    }

    void RunTask(const Step& step, double* slot) {
        const double duration = durations_[step.task];
        double start = Latest(step.startEnd, step.floor);
        if (step.finishEnd != step.startEnd)
            start = std::max(start, Latest(step.finishEnd, -kInfinity) - duration);
        slot[0] = start;
        slot[1] = start + duration;
        finish_ = std::max(finish_, slot[1]);
        earliestFinish_ = std::min(earliestFinish_, slot[1]);
    }

    void RunResult(const Step& step, double* slot) {
        const bool empty = source_ == step.startEnd;
        double earliest = empty ? 0 : kInfinity;
        for (; source_ < step.startEnd; ++source_)
            earliest = std::min(earliest, network_.times_[network_.sources_[source_].slot]);
        slot[0] = earliest;
        slot[1] = empty ? 0 : Latest(step.finishEnd, -kInfinity);
    }

    /// The latest of `bound` and the next sources up to `end`.
    double Latest(std::size_t end, double bound) {
        for (; source_ < end; ++source_) {
            const Source& source = network_.sources_[source_];
            bound = std::max(bound, network_.times_[source.slot] + source.lag);
        }
        return bound;
    }

    Network& network_;
    const std::span<const std::int32_t> durations_;
    const std::span<const double> costs_;
    std::size_t next_ = 0;    ///< a step
    std::size_t source_ = 0;  ///< the next that RunAny reads
    std::size_t costsAdded_ = 0;
    double finish_ = -kInfinity;
    double earliestFinish_ = 0;
    double cost_ = 0;
};

Network::Totals Network::Schedule(std::span<const std::int32_t> durations,
                                  std::span<const double> costs) {
    Pass pass(*this, durations, costs);
    pass.RunStretches();
    if (pass.EarliestFinish() >= 0) return pass.Finish();
    // A simple step has no floor of 0 of its own: here one may have begun before the plan.
    Pass whole(*this, durations, costs);
    whole.RunAny(steps_.size());
    return whole.Finish();
}

}  // namespace refhost
