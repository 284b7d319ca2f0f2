#pragma once

#include <string>

#include "refhost/engine/HostPlan.h"

namespace refhost::automation {

/// What the Automation objects ask of the program that offers them. Failures are raised as
/// kestrel::HostError or kestrel::DataError and reach the caller with their sentence.
class HostProgram {
 public:
    virtual ~HostProgram() = default;

    /// Opens a plan or project file in place of the open plan.
    virtual void OpenPlan(const std::string& path) = 0;
    /// Writes the plan; an empty path stands for the file that it came from.
    virtual void SavePlan(HostPlan& plan, const std::string& path) = 0;
    /// Whether the file that the plan came from holds it as it is.
    virtual bool IsSaved(HostPlan& plan) = 0;
    /// Runs an analysis of the open plan (refhost::RunAnalysis).
    virtual void Analyse(const AnalysisSettings& settings) = 0;

    virtual bool Visible() = 0;
    virtual void PutVisible(bool visible) = 0;
    /// Ends the program once the call has come back.
    virtual void Quit() = 0;

    /// The last object that was given out is released, and nobody keeps the program from ending.
    virtual void Unused() = 0;
};

}  // namespace refhost::automation
