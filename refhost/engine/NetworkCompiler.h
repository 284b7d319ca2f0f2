#pragma once

#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "refhost/engine/Network.h"

namespace refhost {

/// Builds the steps of a Network: lists what each step waits for, sorts them so that each comes
/// after all of those, and turns the dependencies into slots.
class NetworkCompiler {
 public:
    NetworkCompiler(const PlanData& plan, WorkCalendar& calendar);
    void CompileInto(Network& network);

 private:
    static constexpr std::uint32_t kNone = ~0u;

    /// One dependency on a time of another node: 2 x node for its start, + 1 for its finish.
    struct Wait {
        std::uint32_t time;
        std::int32_t lag;
        std::uint32_t Node() const { return time / 2; }
    };
    struct Node {
        Network::Kind kind;
        std::uint32_t task;
        std::int64_t floor = 0;
        std::uint32_t startBounds = 0;  ///< how many
        std::uint32_t finishBounds = 0;
    };
    /// A bound as it is found; GatherWaits puts those of a node together.
    struct Bound {
        std::uint32_t node;
        bool onStart;
        Wait wait;
    };

    std::uint32_t AddNode(Network::Kind kind, std::size_t task);
    void AddTaskNodes();
    void AddBound(std::uint32_t node, bool onStart, Wait wait);
    void AddLinks(std::size_t task);
    void PassDownGate(std::size_t task);
    /// The node that a link from the task reads; made on demand for a summary.
    std::uint32_t SourceNode(std::size_t task);
    std::uint32_t ResultNode(std::size_t summary);
    void GatherWaits();
    /// What the node waits for: the bounds of its start, then those of its finish.
    std::span<const Wait> Waits(std::uint32_t node) const {
        return {waits_.data() + firstWait_[node], waits_.data() + firstWait_[node + 1]};
    }
    std::vector<std::uint32_t> Sorted() const;
    [[noreturn]] void RefuseLoop(const std::vector<std::uint32_t>& waiting) const;
    static bool IsSimple(const Network::Step& step, std::span<const Network::Source> bounds);
    static void AddToStretch(Network& network);
    std::string Label(std::size_t task) const;

    const PlanData& plan_;
    WorkCalendar& calendar_;
    std::unordered_map<std::string_view, std::size_t> taskByID_;
    std::vector<std::vector<std::size_t>> children_;
    std::vector<Node> nodes_;
    std::vector<Bound> bounds_;  ///< in the order of finding
    std::vector<Wait> waits_;    ///< node by node
    std::vector<std::size_t> firstWait_;
    std::vector<std::uint32_t> ownNode_;     ///< per task: its ordinary node or gate
    std::vector<std::uint32_t> resultNode_;  ///< per summary
};

}  // namespace refhost
