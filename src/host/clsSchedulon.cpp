#include "host/clsSchedulon.h"

#include "base/Errors.h"
#include "core/analysis/modAnalysis.h"
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
    } catch (...) {
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
    const auto state = globals_.analysis = std::make_shared<AnalysisState>();
    state->plan = plan;
    if (plan) state->registerText = plan->GetText(kRegisterText);
    state->active = !state->registerText.empty();
    RunStep(*state, [&] {
        state->logIterations = GetShowIterations(*globals_.application);
        if (state->active) PrepareAnalysis(globals_, *state);
    });
}

void clsSchedulon::m_SchedyApp_PlanAfterRiskIteration(const host::PlanPtr&) {
    const auto state = globals_.analysis;
    if (state && state->active && !state->broken) RunStep(*state, [&] { ApplyIteration(*state); });
}

void clsSchedulon::m_SchedyApp_PlanAfterRiskAnalysis(const host::PlanPtr&) {
    const auto state = globals_.analysis;
    if (!state || !state->active) return;
    const host::PlanPtr activePlan = OpenPlan(globals_);
    if (!state->broken && !state->ProjectFinishSamples.empty()) {
        const host::ApplicationPtr application = globals_.application;
        CalculateSensitivities(*application, *state);
        StoreSensitivities(globals_.desktop, *state->plan, state->factors, state->registerText);
    }
    ClearIterationLogs(*activePlan);
    if (state->plan != activePlan) ClearIterationLogs(*state->plan);
}

}  // namespace kestrel
