#pragma once

#include "base/Errors.h"
#include "core/model/modGlobals.h"

namespace kestrel {

/// The host's active plan. Raises HostError when none is open.
inline host::PlanPtr OpenPlan(const modGlobals& globals) {
    if (host::PlanPtr plan = globals.application ? globals.application->ActivePlan() : nullptr)
        return plan;
    throw HostError("No plan is open in the host; open one and try again.");
}

}  // namespace kestrel
