#include "refhost/files/ProjectTask.h"

#include <optional>
#include <utility>

namespace refhost {
namespace {

constexpr std::int64_t kStartNoEarlierThan = 4;

/// Formats of durations and lags, a code per unit; from 35 on the same units, estimated.
constexpr bool IsPercentage(std::int64_t format) {
    return format == 19 || format == 20 || format == 51 || format == 52;
}
constexpr bool IsElapsed(std::int64_t format) {
    return format % 2 == 0 && ((format >= 4 && format <= 12) || (format >= 36 && format <= 44));
}

std::int32_t ReadDuration(const ProjectNode& task, const DurationUnits& units,
                          LeftOutList& leftOut) {
    const std::string word = task.Word("Duration");
    if (word.empty()) {
        leftOut.Add("missing durations (0 taken instead)");
        return 0;
    }
    const auto duration = ReadProjectDuration(word, units);
    if (!duration)
        task.FailValue("Duration", "a duration from PT0H0M0S to 2147483647 minutes, like PT8H0M0S");
    leftOut.AddIf(!duration->exact, kPartsOfMinutes);
    leftOut.AddIf(IsElapsed(task.Integer("DurationFormat").value_or(0)),
                  "elapsed durations (taken as working time)");
    return static_cast<std::int32_t>(duration->minutes);
}

std::string_view ConstraintKind(std::int64_t type) {
    switch (type) {
        case 1:
            return "constraints \"as late as possible\"";
        case 2:
            return "constraints \"must start on\"";
        case 3:
            return "constraints \"must finish on\"";
        case 5:
            return "constraints \"start no later than\"";
        case 6:
            return "constraints \"finish no earlier than\"";
        case 7:
            return "constraints \"finish no later than\"";
        default:
            return "constraints of unknown type";
    }
}

std::optional<Minute> ReadNoEarlierThan(const ProjectNode& task, LeftOutList& leftOut) {
    const std::int64_t type = task.Integer("ConstraintType").value_or(0);
    if (type == 0) return std::nullopt;  // as soon as possible
    if (type != kStartNoEarlierThan) {
        leftOut.Add(ConstraintKind(type));
        return std::nullopt;
    }
    const std::string word = task.Word("ConstraintDate");
    if (word.empty()) {
        leftOut.Add("constraints \"start no earlier than\" without a date");
        return std::nullopt;
    }
    const auto date = ReadProjectInstant(word);
    if (!date) task.FailValue("ConstraintDate", "a date from 1900 to 9999");
    leftOut.AddIf(!date->exact, kPartsOfMinutes);
    return date->minutes;
}

LinkType ReadLinkType(const ProjectNode& link) {
    switch (link.Integer("Type").value_or(1)) {
        case 0:
            return LinkType::FinishToFinish;
        case 1:
            return LinkType::FinishToStart;
        case 2:
            return LinkType::StartToFinish;
        case 3:
            return LinkType::StartToStart;
        default:
            link.FailValue("Type", "0 (FF), 1 (FS), 2 (SF) or 3 (SS)");
    }
}

std::int32_t ReadLag(const ProjectNode& link, LeftOutList& leftOut) {
    const double tenths = link.Number("LinkLag").value_or(0);
    if (tenths == 0) return 0;
    const std::int64_t format = link.Integer("LagFormat").value_or(0);
    if (IsPercentage(format)) {
        leftOut.Add("percentage lags (no lag taken instead)");
        return 0;
    }
    const auto lag = LagMinutes(tenths);
    if (!lag) link.FailValue("LinkLag", "a lag in tenths of a minute");
    leftOut.AddIf(!lag->exact, kPartsOfMinutes);
    leftOut.AddIf(IsElapsed(format), "elapsed lags (taken as working time)");
    return static_cast<std::int32_t>(lag->minutes);
}

std::vector<Link> ReadLinks(const ProjectNode& task, const ProjectOutline& outline,
                            LeftOutList& leftOut) {
    std::vector<Link> links;
    for (const ProjectNode& node : task.Children("PredecessorLink")) {
        const std::string uid = node.Word("PredecessorUID");
        const auto from = outline.byUid.find(uid);
        if (node.Flag("CrossProject")) {
            leftOut.Add("links to other projects");
        } else if (from != outline.byUid.end()) {
            const OutlineRow& row = outline.rows[static_cast<std::size_t>(from->second)];
            links.push_back({row.id, ReadLinkType(node), ReadLag(node, leftOut)});
        } else {
            leftOut.Add(outline.leftOutUids.contains(uid)
                            ? "links from tasks that are left out"
                            : "links from tasks that the file does not hold");
        }
    }
    return links;
}

}  // namespace

TaskData ReadProjectTask(const OutlineRow& row, const ProjectOutline& outline,
                         const DurationUnits& units, LeftOutList& leftOut) {
    const ProjectNode& node = row.node;
    TaskData task;
    task.id = row.id;
    task.name = node.Text("Name");
    task.type = row.summary ? kSummary : kOrdinary;
    task.parent = row.parent;
    if (!row.summary) task.duration = ReadDuration(node, units, leftOut);
    task.noEarlierThan = ReadNoEarlierThan(node, leftOut);
    task.links = ReadLinks(node, outline, leftOut);
    if (const double cost = node.Number("FixedCost").value_or(0); cost != 0)
        task.costItems.push_back({"Fixed cost", cost});
    return task;
}

}  // namespace refhost
