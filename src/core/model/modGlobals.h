#pragma once

#include <memory>

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

}  // namespace kestrel
