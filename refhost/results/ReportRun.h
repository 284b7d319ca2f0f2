#pragma once

#include <functional>
#include <optional>
#include <string>

#include "refhost/results/ReportPage.h"

namespace refhost {

/// Hears what is being analysed ("With every risk factor") and how much of it is done; false
/// cancels.
using ReportProgress = std::function<bool(const char* what, std::int32_t done, std::int32_t of)>;

/// Makes the analyses that a report tells of, on copies of the plan, and writes the page; nothing
/// when cancelled. The question's outcome is not read: a report has both. Warnings about the plan
/// are told once, to `desktop`. Raises what an analysis raises.
std::optional<std::string> MakeReportPage(const PlanData& plan, PriorityQuestion question,
                                          const ReportAssumptions& assumptions,
                                          kestrel::Desktop& desktop, const DesktopMaker& desktops,
                                          const ReportProgress& progress);

}  // namespace refhost
