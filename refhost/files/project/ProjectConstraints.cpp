#include "refhost/files/project/ProjectConstraints.h"

#include <algorithm>

namespace refhost {
namespace {

enum Constraint { kAsSoonAsPossible = 0, kMustStartOn = 2, kStartNoEarlierThan = 4 };

std::string_view KindOf(std::int64_t constraint) {
    switch (constraint) {
        case 1:
            return "constraints \"as late as possible\" (no earlier than the file's start)";
        case kMustStartOn:
            return "constraints \"must start on\" (no earlier than the file's start)";
        case 3:
            return "constraints \"must finish on\" (no earlier than the file's start)";
        case 5:
            return "constraints \"start no later than\" (no earlier than the file's start)";
        case 6:
            return "constraints \"finish no earlier than\" (no earlier than the file's start)";
        case 7:
            return "constraints \"finish no later than\" (no earlier than the file's start)";
        default:
            return "constraints of unknown type (no earlier than the file's start)";
    }
}

/// The date of a constraint on the start.
std::optional<Minute> ConstraintDate(const ProjectSource& source, const ProjectNode& node) {
    const std::string word = node.Word("ConstraintDate");
    source.leftOut.AddMovingIf(word.empty(), "constraints on a start without a date");
    if (word.empty()) return std::nullopt;
    const auto date = ReadProjectInstant(word);
    if (!date) node.FailValue("ConstraintDate", "a date from 1900 to 9999");
    source.leftOut.AddMovingIf(!date->exact, kPartsOfMinutes);
    return date->minutes;
}

bool HasProgress(const ProjectNode& node) {
    for (const char* child :
         {"PercentComplete", "PercentWorkComplete", "PhysicalPercentComplete", "ActualStart",
          "ActualFinish", "ActualDuration", "ActualWork", "ActualCost"})
        if (node.Says(child)) return true;
    return false;
}

/// Whether the file's program keeps the task where no forward pass would put it; tells each reason.
bool IsHeld(const ProjectSource& source, const ProjectNode& node, std::int64_t constraint) {
    const bool manual = node.Flag("Manual");
    const bool progress = HasProgress(node);
    const bool delayed = node.Says("LevelingDelay");
    const bool constrained = constraint != kAsSoonAsPossible && constraint != kStartNoEarlierThan;
    source.leftOut.AddMovingIf(manual,
                               "manually scheduled tasks (no earlier than the file's start)");
    source.leftOut.AddMovingIf(progress,
                               "started and finished tasks (without their progress, no earlier "
                               "than the file's start)");
    source.leftOut.AddMovingIf(delayed, "levelling delays (no earlier than the file's start)");
    if (constrained) source.leftOut.AddMoving(KindOf(constraint));
    return manual || progress || delayed || constrained || source.fromFinish;
}

std::optional<Minute> OfOrdinary(const ProjectSource& source, std::size_t index) {
    const ProjectNode& node = source.outline.rows[index].node;
    const std::optional<Minute> shown = source.dates.rows[index].start;
    const std::int64_t constraint = node.Integer("ConstraintType").value_or(kAsSoonAsPossible);
    if (IsHeld(source, node, constraint) && shown) return shown;
    if (constraint == kStartNoEarlierThan || constraint == kMustStartOn)
        if (const auto date = ConstraintDate(source, node)) return date;
    const Minute projectStart = source.dates.projectStart;
    if (source.dates.planStart == projectStart) return std::nullopt;
    return std::min(shown.value_or(projectStart), projectStart);
}

}  // namespace

std::optional<Minute> ReadNoEarlierThan(const ProjectSource& source, const RowLinks& links,
                                        std::size_t index) {
    const OutlineRow& row = source.outline.rows[index];
    const RowDates& dates = source.dates.rows[index];
    if (!row.summary && row.external) {
        source.leftOut.AddMoving("tasks of other projects (fixed milestones)");
        const bool atStart = links.startDrives && !links.finishDrives;
        return atStart || !dates.finish ? dates.start : dates.finish;
    }
    if (!row.summary) return OfOrdinary(source, index);
    const std::int64_t constraint = row.node.Integer("ConstraintType").value_or(kAsSoonAsPossible);
    if (constraint == kStartNoEarlierThan) return ConstraintDate(source, row.node);
    // Its tasks, which have dates of their own, hold a summary where it is.
    source.leftOut.AddMovingIf(constraint != kAsSoonAsPossible,
                               "constraints of summaries other than \"start no earlier than\"");
    source.leftOut.AddMovingIf(row.node.Flag("Manual"), "manually scheduled summaries");
    return std::nullopt;
}

}  // namespace refhost
