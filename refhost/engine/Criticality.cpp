#include "refhost/engine/Criticality.h"

#include <algorithm>
#include <limits>
#include <string>
#include <unordered_map>

namespace refhost {
namespace {

constexpr std::int64_t kUnknown = std::numeric_limits<std::int64_t>::min();

}  // namespace

Criticality::Criticality(const PlanData& plan)
    : critical_(plan.tasks.size(), 0),
      parent_(plan.tasks.size(), kNone),
      linked_(plan.tasks.size(), kNone),
      end_(plan.tasks.size(), 0),
      isSummary_(plan.tasks.size(), false),
      marks_(plan.tasks.size(), 0),
      times_(plan.tasks.size(), {kUnknown, kUnknown}) {
    for (std::uint32_t i = 0; i < plan.tasks.size(); ++i) {
        const TaskData& task = plan.tasks[i];
        isSummary_[i] = task.type != kOrdinary;
        if (!isSummary_[i]) ordinary_.push_back(i);
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
        for (const Link& link : task.links)
            bounds_.push_back(
                {byID.at(link.from), link.lag,
                 link.type == LinkType::FinishToStart || link.type == LinkType::FinishToFinish,
                 link.type == LinkType::FinishToFinish || link.type == LinkType::StartToFinish});
        boundEnd_.push_back(static_cast<std::uint32_t>(bounds_.size()));
    }
}

void Criticality::Note(const Network& network) {
    ++iterations_;
    std::int64_t last = kUnknown;
    for (const std::uint32_t task : ordinary_) last = std::max(last, network.Finish(task));
    for (const std::uint32_t task : ordinary_)
        if (network.Finish(task) == last) MarkTask(task, kFinish);
    while (!waiting_.empty()) {
        const std::uint32_t task = waiting_.back();
        waiting_.pop_back();
        FollowBounds(network, task);
    }
    CountMarked();
}

void Criticality::MarkTask(std::uint32_t task, End end) {
    if (marks_[task] == 0) touched_.push_back(task);
    if ((marks_[task] & kStart) == 0) waiting_.push_back(task);
    // A binding finish makes the start binding and has no other effect.
    marks_[task] = static_cast<std::uint8_t>(marks_[task] | end | kStart);
}

void Criticality::FollowBounds(const Network& network, std::uint32_t task) {
    const std::int64_t start = network.Start(task);
    const std::int64_t duration = network.Finish(task) - start;
    for (std::uint32_t holder = task; holder != kNone; holder = linked_[holder]) {
        const std::uint32_t first = holder == 0 ? 0 : boundEnd_[holder - 1];
        for (std::uint32_t b = first; b < boundEnd_[holder]; ++b) {
            const Bound& bound = bounds_[b];
            const std::int64_t made = isSummary_[bound.from]
                                          ? SummaryTime(network, bound.from, bound.fromFinish)
                                      : bound.fromFinish ? network.Finish(bound.from)
                                                         : network.Start(bound.from);
            if (made + bound.lag - (bound.onFinish ? duration : 0) == start)
                MarkSource(network, bound, made);
        }
    }
}

void Criticality::MarkSource(const Network& network, const Bound& bound, std::int64_t time) {
    const End end = bound.fromFinish ? kFinish : kStart;
    if (!isSummary_[bound.from]) return MarkTask(bound.from, end);
    for (std::uint32_t task = bound.from + 1; task < end_[bound.from]; ++task)
        if (!isSummary_[task] &&
            (bound.fromFinish ? network.Finish(task) : network.Start(task)) == time)
            MarkTask(task, end);
}

std::int64_t Criticality::SummaryTime(const Network& network, std::uint32_t summary, bool finish) {
    auto& [earliest, latest] = times_[summary];
    if (earliest == kUnknown) {
        timed_.push_back(summary);
        bool any = false;
        earliest = latest = 0;  // of a summary without ordinary tasks
        for (std::uint32_t task = summary + 1; task < end_[summary]; ++task) {
            if (isSummary_[task]) continue;
            earliest = any ? std::min(earliest, network.Start(task)) : network.Start(task);
            latest = any ? std::max(latest, network.Finish(task)) : network.Finish(task);
            any = true;
        }
    }
    return finish ? latest : earliest;
}

/// Counts the critical tasks and the summaries above them, and forgets the iteration's marks.
void Criticality::CountMarked() {
    for (std::size_t i = 0; i < touched_.size(); ++i)  // summaries are added meanwhile
        for (std::uint32_t t = touched_[i]; t != kNone && (marks_[t] & kCounted) == 0;
             t = parent_[t]) {
            if (marks_[t] == 0) touched_.push_back(t);
            marks_[t] |= kCounted;
            ++critical_[t];
        }
    for (const std::uint32_t task : touched_) marks_[task] = 0;
    for (const std::uint32_t summary : timed_) times_[summary] = {kUnknown, kUnknown};
    touched_.clear();
    timed_.clear();
}

double Criticality::Of(std::size_t task) const {
    if (iterations_ == 0) return 0;
    return static_cast<double>(critical_[task]) / static_cast<double>(iterations_);
}

}  // namespace refhost
