#pragma once

#include "refhost/cli/Arguments.h"
#include "refhost/cli/Session.h"
#include "refhost/results/Prioritise.h"

namespace refhost {

/// What --iterations, --seed, --percentile, --cost and --threads ask. Raises UsageError.
PriorityQuestion QuestionOf(const Arguments& arguments, Session& session);

/// Prioritise with progress on a terminal, warnings told to `desktop`; kestrel::DataError when the
/// user cancels.
Priorities RunPrioritise(const PlanData& plan, const PriorityQuestion& question,
                         kestrel::Desktop& desktop);

}  // namespace refhost
