#pragma once

#include "refhost/files/project/LeftOutList.h"
#include "refhost/files/project/ProjectNode.h"

/// What a project file says that a plan has no place for. The parts that are carried over count
/// their own losses; these are the elements that nothing else looks at. Figures that follow from
/// others (starts, finishes, slack) and display settings are no loss.
namespace refhost {

void CountProjectLosses(const ProjectNode& project, LeftOutList& leftOut);

void CountTaskLosses(const ProjectNode& task, bool summary, LeftOutList& leftOut);

}  // namespace refhost
