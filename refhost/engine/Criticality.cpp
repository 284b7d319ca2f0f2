#include "refhost/engine/Criticality.h"

#include <algorithm>
#include <limits>
#include <string>
#include <unordered_map>

namespace refhost {
namespace {

constexpr double kUnknown = -std::numeric_limits<double>::infinity();

}  // namespace

Criticality::Criticality(const PlanData& plan)
    : counts_(plan.tasks.size(), 0),
      parent_(plan.tasks.size(), kNone),
      linked_(plan.tasks.size(), kNone),
      end_(plan.tasks.size(), 0),
      marked_(plan.tasks.size(), 0),
      times_(plan.tasks.size(), {kUnknown, kUnknown}) {
    for (std::uint32_t i = 0; i < plan.tasks.size(); ++i) {
        const TaskData& task = plan.tasks[i];
        if (task.parent >= 0) {
            const auto parent = static_cast<std::uint32_t>(task.parent);
            parent_[i] = parent;
            linked_[i] = plan.tasks[parent].links.empty() ? linked_[parent] : parent;
        }
        for (std::uint32_t t = i; t != kNone; t = parent_[t]) end_[t] = i + 1;
    }
    AddBounds(plan);
}

void Criticality::AddBounds(const PlanData& plan) {
    std::unordered_map<std::string, std::uint32_t> byID;
    for (std::uint32_t i = 0; i < plan.tasks.size(); ++i) byID.emplace(plan.tasks[i].id, i);
    for (const TaskData& task : plan.tasks) {
        for (const Link& link : task.links) {
            const std::uint32_t from = byID.at(link.from);
            bounds_.push_back(
                {static_cast<double>(link.lag), from, kNone,
                 link.type == LinkType::FinishToStart || link.type == LinkType::FinishToFinish,
                 link.type == LinkType::FinishToFinish || link.type == LinkType::StartToFinish,
                 plan.tasks[from].type != kOrdinary});
        }
        boundEnd_.push_back(static_cast<std::uint32_t>(bounds_.size()));
    }
}

/// The plan's network stays the same through an analysis.
void Criticality::FindSlots(const Network& network) {
    slot_.assign(counts_.size(), kNone);
    for (std::uint32_t i = 0; i < network.Steps().size(); ++i)
        if (network.Steps()[i].kind == Network::Kind::Ordinary)
            slot_[network.Steps()[i].task] = 2 * i;
    for (Bound& bound : bounds_) bound.slot = slot_[bound.from] + (bound.fromFinish ? 1 : 0);
}

void Criticality::Note(const Network& network) {
    if (slot_.empty()) FindSlots(network);
    ++iterations_;
    const double last = network.LatestFinish();
    std::uint32_t finish = 1;
    for (const Network::Step& step : network.Steps()) {
        if (network.Time(finish) == last && step.kind == Network::Kind::Ordinary) Mark(step.task);
        finish += 2;
    }
    // A binding finish makes the task's start binding and does nothing else.
    for (std::size_t i = 0; i < critical_.size(); ++i) FollowBounds(network, critical_[i]);
    CountCritical();
}

void Criticality::FollowBounds(const Network& network, std::uint32_t task) {
    const double start = network.Time(slot_[task]);
    const double duration = network.Time(slot_[task] + 1) - start;
    for (std::uint32_t holder = task; holder != kNone; holder = linked_[holder]) {
        const std::uint32_t first = holder == 0 ? 0 : boundEnd_[holder - 1];
        for (std::uint32_t b = first; b < boundEnd_[holder]; ++b) {
            const Bound& bound = bounds_[b];
            const double made = bound.fromSummary
                                    ? SummaryTime(network, bound.from, bound.fromFinish)
                                    : network.Time(bound.slot);
            if (made + bound.lag - (bound.onFinish ? duration : 0) != start) continue;
            if (bound.fromSummary)
                MarkBelow(network, bound, made);
            else
                Mark(bound.from);
        }
    }
}

void Criticality::MarkBelow(const Network& network, const Bound& bound, double time) {
    const std::uint32_t end = bound.fromFinish ? 1 : 0;
    for (std::uint32_t task = bound.from + 1; task < end_[bound.from]; ++task)
        if (slot_[task] != kNone && network.Time(slot_[task] + end) == time) Mark(task);
}

double Criticality::SummaryTime(const Network& network, std::uint32_t summary, bool finish) {
    auto& [earliest, latest] = times_[summary];
    if (earliest == kUnknown) {
        timed_.push_back(summary);
        bool any = false;
        earliest = latest = 0;  // of a summary without ordinary tasks
        for (std::uint32_t task = summary + 1; task < end_[summary]; ++task) {
            if (slot_[task] == kNone) continue;
            const double start = network.Time(slot_[task]), end = network.Time(slot_[task] + 1);
            earliest = any ? std::min(earliest, start) : start;
            latest = any ? std::max(latest, end) : end;
            any = true;
        }
    }
    return finish ? latest : earliest;
}

/// Counts the critical tasks and the summaries above them, and forgets the iteration's marks.
void Criticality::CountCritical() {
    for (std::size_t i = 0; i < critical_.size(); ++i) {  // the summaries join the list meanwhile
        ++counts_[critical_[i]];
        const std::uint32_t above = parent_[critical_[i]];
        if (above != kNone) Mark(above);
    }
    for (const std::uint32_t task : critical_) marked_[task] = 0;
    for (const std::uint32_t summary : timed_) times_[summary] = {kUnknown, kUnknown};
    critical_.clear();
    timed_.clear();
}

double Criticality::Of(std::size_t task) const {
    if (iterations_ == 0) return 0;
    return static_cast<double>(counts_[task]) / static_cast<double>(iterations_);
}

}  // namespace refhost
