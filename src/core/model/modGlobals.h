#pragma once

#include <memory>

#include "base/Errors.h"
#include "core/model/AnalysisState.h"
#include "core/model/clsRiskFactor.h"
#include "host/HostModel.h"
#include "platform/Desktop.h"

namespace kestrel {

/// The state of one add-in: owned by its public class and handed down to everything that needs
/// it, so that two add-ins can live in one process.
struct modGlobals {
    explicit modGlobals(Desktop& theDesktop) : desktop(theDesktop) {}

    Desktop& desktop;
    host::ApplicationPtr application;  ///< set before any command or event runs

    /// The register that commands and windows work on. Replaced, never merged, on each load.
    RiskRegister RiskFactors;

    /// The latest analysis; nothing before the first. Whoever works on it holds it: while the host
    /// is called, the user may run a command or let the host go.
    std::shared_ptr<AnalysisState> analysis;

    /// Whether the editor was opened by the "edit" command, as against "assign".
    bool openedFromHost = true;
};

/// The host's active plan. Raises HostError when none is open.
inline host::PlanPtr OpenPlan(const modGlobals& globals) {
    if (host::PlanPtr plan = globals.application ? globals.application->ActivePlan() : nullptr)
        return plan;
    throw HostError("No plan is open in the host; open one and try again.");
}

}  // namespace kestrel
