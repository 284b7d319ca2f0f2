#pragma once

#include <memory>
#include <vector>

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

    /// The register in its order: the factor with ID n stands at index n - 1. Replaced, never
    /// merged, on each load.
    std::vector<std::shared_ptr<clsRiskFactor>> RiskFactors;

    AnalysisState analysis;

    /// Whether the editor was opened by the "edit" command, as against "assign".
    bool openedFromHost = true;
};

}  // namespace kestrel
