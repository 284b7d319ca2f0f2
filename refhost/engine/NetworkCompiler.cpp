#include "refhost/engine/NetworkCompiler.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <queue>

#include "base/Errors.h"

namespace refhost {

NetworkCompiler::NetworkCompiler(const PlanData& plan, WorkCalendar& calendar)
    : plan_(plan),
      calendar_(calendar),
      children_(plan.tasks.size()),
      ownNode_(plan.tasks.size(), kNone),
      resultNode_(plan.tasks.size(), kNone) {
    for (std::size_t i = 0; i < plan.tasks.size(); ++i) {
        taskByID_.emplace(plan.tasks[i].id, i);
        const std::int32_t parent = plan.tasks[i].parent;
        if (parent >= 0) children_[static_cast<std::size_t>(parent)].push_back(i);
    }
    AddTaskNodes();
    for (std::size_t i = 0; i < plan.tasks.size(); ++i) {
        AddLinks(i);
        PassDownGate(i);
    }
    GatherWaits();
}

std::uint32_t NetworkCompiler::AddNode(Network::Kind kind, std::size_t task) {
    nodes_.push_back({kind, static_cast<std::uint32_t>(task)});
    return static_cast<std::uint32_t>(nodes_.size() - 1);
}

void NetworkCompiler::AddBound(std::uint32_t node, bool onStart, Wait wait) {
    ++(onStart ? nodes_[node].startBounds : nodes_[node].finishBounds);
    bounds_.push_back({node, onStart, wait});
}

/// Ordinary tasks, and gates for those summaries that are constrained or stand below one.
void NetworkCompiler::AddTaskNodes() {
    for (std::size_t i = 0; i < plan_.tasks.size(); ++i) {
        const TaskData& task = plan_.tasks[i];
        const bool ordinary = task.type == kOrdinary;
        const bool constrained = task.noEarlierThan || !task.links.empty();
        const bool belowGate =
            task.parent >= 0 && ownNode_[static_cast<std::size_t>(task.parent)] != kNone;
        if (!ordinary && !constrained && !belowGate) continue;
        ownNode_[i] = AddNode(ordinary ? Network::Kind::Ordinary : Network::Kind::Gate, i);
        if (task.noEarlierThan)
            nodes_.back().floor = calendar_.WorkingMinutesUntil(*task.noEarlierThan);
    }
}

void NetworkCompiler::AddLinks(std::size_t task) {
    for (const Link& link : plan_.tasks[task].links) {
        const auto from = taskByID_.find(link.from);
        if (from == taskByID_.end())
            throw kestrel::DataError("Task " + Label(task) + " has a link from task " + link.from +
                                     ", which the plan lacks; remove the link.");
        const std::uint32_t source = SourceNode(from->second);
        const bool onFinish =
            link.type == LinkType::FinishToStart || link.type == LinkType::FinishToFinish;
        const bool boundsStart =
            link.type == LinkType::FinishToStart || link.type == LinkType::StartToStart;
        AddBound(ownNode_[task], boundsStart, {2 * source + (onFinish ? 1u : 0u), link.lag});
    }
}

void NetworkCompiler::PassDownGate(std::size_t task) {
    const std::int32_t parent = plan_.tasks[task].parent;
    if (parent < 0 || ownNode_[static_cast<std::size_t>(parent)] == kNone) return;
    const std::uint32_t gate = ownNode_[static_cast<std::size_t>(parent)];
    AddBound(ownNode_[task], true, {2 * gate, 0});
    // The gate, which stands earlier in the plan, has all its bounds by now.
    if (nodes_[gate].finishBounds > 0) AddBound(ownNode_[task], false, {2 * gate + 1, 0});
}

std::uint32_t NetworkCompiler::SourceNode(std::size_t task) {
    return plan_.tasks[task].type == kOrdinary ? ownNode_[task] : ResultNode(task);
}

/// A summary's result waits for the results and tasks directly below it. Summaries that hold no
/// ordinary task at any depth add nothing.
std::uint32_t NetworkCompiler::ResultNode(std::size_t summary) {
    if (resultNode_[summary] != kNone) return resultNode_[summary];
    const std::uint32_t result = AddNode(Network::Kind::Result, summary);
    resultNode_[summary] = result;
    for (const std::size_t child : children_[summary]) {
        const std::uint32_t below = SourceNode(child);
        if (nodes_[below].kind == Network::Kind::Result && nodes_[below].startBounds == 0) continue;
        AddBound(result, true, {2 * below, 0});
        AddBound(result, false, {2 * below + 1, 0});
    }
    return result;
}

void NetworkCompiler::GatherWaits() {
    firstWait_.assign(nodes_.size() + 1, 0);
    for (std::size_t n = 0; n < nodes_.size(); ++n)
        firstWait_[n + 1] = firstWait_[n] + nodes_[n].startBounds + nodes_[n].finishBounds;
    waits_.resize(bounds_.size());
    std::vector<std::uint32_t> starts(nodes_.size(), 0), finishes(nodes_.size(), 0);
    for (const Bound& bound : bounds_)
        waits_[firstWait_[bound.node] + (bound.onStart ? starts[bound.node]++
                                                       : nodes_[bound.node].startBounds +
                                                             finishes[bound.node]++)] = bound.wait;
    bounds_ = {};
}

/// Nodes in an order in which each comes after all that it waits for, otherwise as near to plan
/// order as can be.
std::vector<std::uint32_t> NetworkCompiler::Sorted() const {
    std::vector<std::uint32_t> waiting(nodes_.size(), 0);
    std::vector<std::size_t> firstFollower(nodes_.size() + 2, 0);  // filled one place ahead
    for (const Wait& wait : waits_) ++firstFollower[wait.Node() + 2];
    std::partial_sum(firstFollower.begin(), firstFollower.end(), firstFollower.begin());
    std::vector<std::uint32_t> followers(waits_.size());
    for (std::uint32_t n = 0; n < nodes_.size(); ++n)
        for (const Wait& wait : Waits(n)) {
            followers[firstFollower[wait.Node() + 1]++] = n;
            ++waiting[n];
        }
    using Entry = std::pair<std::uint32_t, std::uint32_t>;  // task, node
    std::priority_queue<Entry, std::vector<Entry>, std::greater<>> ready;
    for (std::uint32_t n = 0; n < nodes_.size(); ++n)
        if (waiting[n] == 0) ready.emplace(nodes_[n].task, n);
    std::vector<std::uint32_t> order;
    order.reserve(nodes_.size());
    while (!ready.empty()) {
        const std::uint32_t n = ready.top().second;
        ready.pop();
        order.push_back(n);
        for (std::size_t f = firstFollower[n]; f < firstFollower[n + 1]; ++f)
            if (--waiting[followers[f]] == 0)
                ready.emplace(nodes_[followers[f]].task, followers[f]);
    }
    if (order.size() < nodes_.size()) RefuseLoop(waiting);
    return order;
}

/// Walks backwards among the nodes that are still waiting until one comes round again.
void NetworkCompiler::RefuseLoop(const std::vector<std::uint32_t>& waiting) const {
    const auto blocker = [&](std::uint32_t n) {
        for (const Wait& wait : Waits(n))
            if (waiting[wait.Node()] > 0) return wait.Node();
        return kNone;
    };
    const auto first = std::find_if(waiting.begin(), waiting.end(), [](auto w) { return w > 0; });
    auto node = static_cast<std::uint32_t>(first - waiting.begin());
    for (std::size_t i = 0; i < nodes_.size(); ++i) node = blocker(node);
    std::vector<std::uint32_t> tasks;
    const std::uint32_t start = node;
    do {
        if (tasks.empty() || tasks.back() != nodes_[node].task) tasks.push_back(nodes_[node].task);
        node = blocker(node);
    } while (node != start);
    if (tasks.size() > 1 && tasks.back() == tasks.front()) tasks.pop_back();
    std::reverse(tasks.begin(), tasks.end());
    std::string chain;
    for (const std::uint32_t task : tasks) chain += Label(task) + " -> ";
    throw kestrel::DataError("The links form a loop: " + chain + Label(tasks.front()) +
                             "; remove one of these links.");
}

void NetworkCompiler::CompileInto(Network& network) {
    const std::vector<std::uint32_t> order = Sorted();
    std::vector<std::uint32_t> stepOfNode(nodes_.size());
    for (std::uint32_t i = 0; i < order.size(); ++i) stepOfNode[order[i]] = i;
    const auto append = [&](std::span<const Wait> waits) {
        for (const Wait& wait : waits)
            network.sources_.push_back({2 * stepOfNode[wait.Node()] + wait.time % 2, wait.lag});
        return static_cast<std::uint32_t>(network.sources_.size());
    };
    network.steps_.reserve(order.size());
    network.simple_.reserve(order.size());
    network.sources_.reserve(waits_.size());
    network.stepOf_.assign(plan_.tasks.size(), 0);
    network.times_.assign(2 * order.size() + 1, 0);  // the last: the first floor, 0
    for (const std::uint32_t n : order) {
        const Node& node = nodes_[n];
        Network::Step step;
        step.floor = static_cast<double>(node.floor);
        step.task = node.task;
        step.kind = node.kind;
        step.startEnd = append(Waits(n).first(node.startBounds));
        step.finishEnd = append(Waits(n).subspan(node.startBounds));
        if (step.kind == Network::Kind::Ordinary)
            network.stepOf_[step.task] = static_cast<std::uint32_t>(network.steps_.size());
        network.steps_.push_back(step);
        AddToStretch(network);
    }
}

/// Two bounds without a lag, its floor counted as one, and none on its finish.
bool NetworkCompiler::IsSimple(const Network::Step& step, std::span<const Network::Source> bounds) {
    return step.kind == Network::Kind::Ordinary && step.startEnd == step.finishEnd &&
           bounds.size() + (step.floor > 0 ? 1 : 0) <= 2 &&
           std::all_of(bounds.begin(), bounds.end(),
                       [](const Network::Source& source) { return source.lag == 0; });
}

/// Puts the last step into the last stretch, or into a new one.
void NetworkCompiler::AddToStretch(Network& network) {
    const Network::Step& step = network.steps_.back();
    const auto here = static_cast<std::uint32_t>(network.steps_.size() - 1);
    const std::uint32_t sources = here == 0 ? 0 : network.steps_[here - 1].finishEnd;
    const std::span<const Network::Source> bounds(network.sources_.begin() + sources,
                                                  network.sources_.end());
    const bool simple = IsSimple(step, bounds);
    const auto slot = [&](std::size_t bound) {
        if (bound < bounds.size()) return bounds[bound].slot;
        if (network.times_.back() != step.floor) network.times_.push_back(step.floor);
        return static_cast<std::uint32_t>(network.times_.size() - 1);
    };
    network.simple_.push_back(simple ? Network::SimpleStep{slot(0), slot(1)}
                                     : Network::SimpleStep{});

    std::vector<Network::Stretch>& stretches = network.stretches_;
    const bool goesOn =
        !stretches.empty() && (!simple || (stretches.back().simpleEnd == here &&
                                           network.steps_[here - 1].task + 1 == step.task));
    if (!goesOn) stretches.push_back({step.task, here, here});
    if (simple) stretches.back().simpleEnd = here + 1;
    stretches.back().end = here + 1;
}

std::string NetworkCompiler::Label(std::size_t task) const {
    return plan_.tasks[task].id + " - " + plan_.tasks[task].name;
}

}  // namespace refhost
