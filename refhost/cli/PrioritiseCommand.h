#pragma once

#include "refhost/cli/Arguments.h"
#include "refhost/cli/Session.h"
#include "refhost/results/Prioritise.h"

namespace refhost {

/// What --iterations, --seed, --percentile, --cost and --threads ask. Raises UsageError.
PriorityQuestion QuestionOf(const Arguments& arguments, Session& session);

}  // namespace refhost
