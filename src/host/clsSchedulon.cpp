#include "host/clsSchedulon.h"

#include "base/Errors.h"
#include "core/analysis/modAnalysis.h"
#include "store/OpenPlan.h"
#include "store/RegisterDocument.h"
#include "store/TaskField.h"
#include "store/modSettings.h"

namespace kestrel {
namespace {

/// Runs one step of an analysis; when it fails, the analysis counts as broken from then on.
template <typename Step>
void RunStep(AnalysisState& state, Step step) {
    try {
        step();
    } catch (...) {
        state.broken = true;
        throw;
    }
}

void ClearIterationLogs(host::Plan& plan) {
    plan.PutAutoCalculate(false);
    for (const auto& task : plan.Tasks()->Enumerate())
        task->UserValues()->PutItem(kIterationsField, "");
    plan.PutAutoCalculate(true);
    plan.Recalculate();
}

}  // namespace

clsSchedulon::~clsSchedulon() {
    try {
        StopSchedulon();
    } catch (const HostError&) {
        // The host is gone or going; there is nobody left to unsubscribe from.
    }
}

void clsSchedulon::StartSchedulon() {
    globals_.application->Subscribe(*this);
    m_SchedyApp = globals_.application;
}

void clsSchedulon::StopSchedulon() {
    if (const host::ApplicationPtr application = std::move(m_SchedyApp)) {
        m_SchedyApp.reset();
        application->Unsubscribe(*this);
    }
}

void clsSchedulon::m_SchedyApp_PlanBeforeRiskAnalysis(const host::PlanPtr& plan) {
    AnalysisState& state = globals_.analysis;
    state.active = false;
    state.broken = false;
    if (plan && !plan->GetText(kRegisterText).empty()) state.active = true;
    RunStep(state, [&] {
        state.logIterations = GetShowIterations(*globals_.application);
        if (state.active) PrepareAnalysis(globals_, plan);
    });
}

void clsSchedulon::m_SchedyApp_PlanAfterRiskIteration(const host::PlanPtr&) {
    AnalysisState& state = globals_.analysis;
    if (state.active && !state.broken) RunStep(state, [&] { ApplyIteration(globals_); });
}

void clsSchedulon::m_SchedyApp_PlanAfterRiskAnalysis(const host::PlanPtr&) {
    AnalysisState& state = globals_.analysis;
    if (!state.active) return;
    const host::PlanPtr plan = OpenPlan(globals_);
    if (!state.broken && !state.ProjectFinishSamples.empty()) {
        CalculateSensitivities(globals_);
        SaveRegisterToPlan(globals_, *plan);
    }
    ClearIterationLogs(*plan);
}

}  // namespace kestrel
