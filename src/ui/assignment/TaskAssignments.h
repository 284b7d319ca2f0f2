#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/HostModel.h"
#include "platform/Desktop.h"

/// Which factors a task carries, as both assignment windows read and write it. The text of the
/// task's field is taken apart and put together by store/RiskList.h alone.
namespace kestrel {

/// How one factor stands on a task, or on all the tasks below a summary task.
struct FactorState {
    bool assigned = false;
    bool inSeries = true;
    bool mixedAssignment = false;  ///< assigned to some of the sub-tasks only
    bool mixedSeries = false;      ///< in series on some of the sub-tasks only
};

/// What the user has made of one factor.
struct FactorEdit {
    std::int32_t id = 0;  ///< position in the register, from 1
    bool assigned = false;
    bool inSeries = true;
};

/// A task's field and those of the tasks below it, read from the host once. Tasks that are
/// neither ordinary nor summaries carry no factors and are left out.
struct TaskFields {
    host::TaskPtr task;
    bool isSummary = false;
    std::string text;        ///< of an ordinary task
    std::string seriesList;  ///< likewise
    std::vector<TaskFields> children;
};
TaskFields ReadTaskFields(const host::TaskPtr& task);

/// What the sub-tasks of a summary task have in common with regard to one factor.
struct SummaryAssignments {
    bool bAllAssignedSame = true;
    bool bAllSetTheSame = true;  ///< in series or not, among those that carry it
    bool bAssignedTo = false;    ///< at least one carries it
    bool bAtleastOneInSeries = false;
};

/// Sub-tasks are compared with the first one of their own level. A level that begins with a
/// summary has none to compare with, and any ordinary sub-task of it that carries the factor
/// counts as a difference.
SummaryAssignments GetSummaryAssignments(const TaskFields& summary, std::int32_t nRisk);

/// The task that a window shows.
struct ShownTask {
    host::TaskPtr task;
    std::string label;                 ///< "20 - Drawings", or why no factors can be assigned
    bool assignable = false;           ///< there is a task, and it is ordinary or a summary
    std::vector<FactorState> factors;  ///< by ID - 1
};
/// `task` may be nothing.
ShownTask ReadShownTask(const host::TaskPtr& task, std::int32_t factorCount);

/// The list with the ID as wanted: a new one goes to the end.
std::string SetMembership(std::string list, std::int32_t id, bool wanted);

/// Writes the edits into the task's field or, after asking the user once, into the field of every
/// ordinary task below a summary. IDs that were not edited stay, be they of factors or not.
/// Without edits nothing is asked or written; all texts are made before the first is written.
void SaveAssignments(Desktop& desktop, const host::TaskPtr& task,
                     const std::vector<FactorEdit>& edits);

}  // namespace kestrel
