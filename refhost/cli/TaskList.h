#pragma once

#include <string>

#include "refhost/engine/PlanData.h"

namespace refhost {

/// A table of every task in plan order, for the program that a project file came from: UID, ID,
/// Name and RiskFactors, which is the text of the task's field. `separator` as in CsvLine.
std::string TaskListText(const PlanData& plan, char separator);

}  // namespace refhost
