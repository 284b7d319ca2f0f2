#pragma once

#include "refhost/workbench/Workbench.h"

namespace refhost {

/// *Risk > Report...*: asks what the report tells and where it goes, analyses copies of the plan
/// with the settings that the plan holds, and writes the page. The plan stays as it is.
void WriteReportByDialog(const Workbench::Parts& parts, const PlanDocument& document);

}  // namespace refhost
