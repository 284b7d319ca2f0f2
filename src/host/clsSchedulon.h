#pragma once

#include "core/model/modGlobals.h"
#include "host/HostModel.h"

namespace kestrel {

/// The add-in's ear for the host's three analysis events. Handlers trap no errors: a failure
/// travels back to the host. After one, the rest of that analysis is left alone, so that no
/// figure is made from half an iteration; the tasks' logs are still cleared at its end.
class clsSchedulon : private host::AnalysisEvents {
 public:
    /// `globals.application` must be set by the time StartSchedulon is called.
    explicit clsSchedulon(modGlobals& globals) : globals_(globals) {}
    ~clsSchedulon() override;
    clsSchedulon(const clsSchedulon&) = delete;
    clsSchedulon& operator=(const clsSchedulon&) = delete;

    /// Takes hold of the host application and subscribes to its events.
    void StartSchedulon();
    /// Ends the subscription and lets the host go.
    void StopSchedulon();

    void m_SchedyApp_PlanBeforeRiskAnalysis(const host::PlanPtr& plan);
    void m_SchedyApp_PlanAfterRiskIteration(const host::PlanPtr& plan);
    void m_SchedyApp_PlanAfterRiskAnalysis(const host::PlanPtr& plan);

 private:
    void PlanBeforeRiskAnalysis(const host::PlanPtr& plan) override {
        m_SchedyApp_PlanBeforeRiskAnalysis(plan);
    }
    void PlanAfterRiskIteration(const host::PlanPtr& plan) override {
        m_SchedyApp_PlanAfterRiskIteration(plan);
    }
    void PlanAfterRiskAnalysis(const host::PlanPtr& plan) override {
        m_SchedyApp_PlanAfterRiskAnalysis(plan);
    }

    modGlobals& globals_;
    host::ApplicationPtr m_SchedyApp;
};

}  // namespace kestrel
