#include "fuzz/Fuzz.h"
#include "host/clsKestrelDll.h"
#include "refhost/cli/PlanCheck.h"
#include "refhost/engine/Analysis.h"
#include "refhost/engine/NoSettings.h"
#include "refhost/files/PlanFile.h"
#include "support/ScriptedRunner.h"

/// A plan file or project file: read, written, scheduled, checked and analysed.
namespace kestrel::fuzz {
namespace {

using namespace refhost;

void CheckWriting(MemoryDesktop& desktop, const PlanData& plan) {
    const std::string text = WritePlan(plan);
    const PlanData again = ParsePlan(desktop, text, "again").plan;
    Require(again == plan, "a plan that is written reads the same");
    Require(WritePlan(again) == text, "and is written the same");
}

/// Durations, costs and everything else but what an analysis stores.
bool SamePlan(PlanData a, PlanData b) {
    for (PlanData* plan : {&a, &b}) {
        plan->texts.clear();
        plan->userFields.clear();
        plan->analysis = {};
        for (TaskData& task : plan->tasks) task.userValues.clear();
    }
    return a == b;
}

void CheckAnalysis(MemoryDesktop& desktop, const PlanData& data) {
    const auto plan = std::make_shared<HostPlan>(data);
    Require(SamePlan(plan->Snapshot(), data), "a plan at work is the plan that was read");
    NoSettings settings;
    ReferenceHost host(settings, ".");
    host.Open(plan);
    test::ScriptedRunner runner;
    clsKestrelDll addin([&] { return host::ApplicationPtr(&host, [](auto*) {}); }, desktop, runner);
    addin.LaunchStartSchedulon();
    AnalysisSettings analysis = data.analysis;
    analysis.iterations = 3;
    try {
        RunAnalysis(host, analysis);
    } catch (const DataError&) {
    } catch (const HostError&) {
    }
    addin.LaunchStopSchedulon();
    const PlanData after = plan->Snapshot();
    Require(SamePlan(after, data), "an analysis puts durations and costs back");
    CheckWriting(desktop, after);
}

}  // namespace
}  // namespace kestrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kestrel::fuzz;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    MemoryDesktop desktop;
    refhost::PlanData plan;
    try {
        plan = refhost::ParsePlan(desktop, bytes, "plan").plan;
    } catch (const kestrel::DataError& error) {
        Require(std::string_view(error.what()).starts_with("plan"), "a refusal names the file");
        return 0;
    }
    CheckWriting(desktop, plan);
    for (const std::string& sentence : refhost::CheckPlan(desktop, plan))
        Require(!sentence.empty(), "a check says something");
    try {
        CheckAnalysis(desktop, plan);
    } catch (const kestrel::DataError&) {  // no schedule
    }
    return 0;
}
