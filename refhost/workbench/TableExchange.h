#pragma once

#include "refhost/workbench/Workbench.h"

namespace refhost {

/// *Risk Factors > Import Table...*: asks for a table file and, where the plan has factors already,
/// whether it may replace them. What is wrong with the table is told, and then nothing is changed.
void ImportTableByDialog(const Workbench::Parts& parts);

/// *Risk Factors > Export Table...*
void ExportTableByDialog(const Workbench::Parts& parts, const PlanDocument& document);

}  // namespace refhost
