// The whole analysis and the reference host's share of it, on generated plans with 20 factors on
// a third of the tasks. Counters: nanoseconds per task and iteration, host calls per iteration
// beside the least that the add-in could do with, peak memory.

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include "core/model/modGlobals.h"
#include "host/clsSchedulon.h"
#include "platform/posix/PosixDesktop.h"
#include "refhost/engine/Analysis.h"
#include "refhost/engine/NoSettings.h"
#include "support/FakeHost.h"
#include "support/GeneratedPlan.h"

namespace {

using namespace refhost;

PlanRecipe RecipeOf(const benchmark::State& state) {
    return {static_cast<std::size_t>(state.range(0)), 20, static_cast<int>(state.range(1))};
}

void RunAnalyses(benchmark::State& state, bool withAddIn) {
    const PlanRecipe recipe = RecipeOf(state);
    NoSettings settings;
    ReferenceHost application(settings, ".");
    application.Open(std::make_shared<HostPlan>(GeneratedPlan(recipe)));
    kestrel::PosixDesktop desktop;
    kestrel::modGlobals globals(desktop);
    globals.application = std::shared_ptr<host::Application>(&application, [](auto*) {});
    kestrel::clsSchedulon listener(globals);
    if (withAddIn) listener.StartSchedulon();

    AnalysisSettings run;
    run.iterations = static_cast<std::int32_t>(state.range(2));
    for (auto _ : state) benchmark::DoNotOptimize(RunAnalysis(application, run));

    const double pairs = static_cast<double>(recipe.tasks) * run.iterations;
    state.counters["s_per_task_iteration"] = benchmark::Counter(
        pairs, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    state.counters["peak_MiB"] = static_cast<double>(usage.ru_maxrss) / 1024;
}

void Whole(benchmark::State& state) { RunAnalyses(state, true); }
void HostAlone(benchmark::State& state) { RunAnalyses(state, false); }

/// Tasks, one task of so many drawn, iterations.
void Sizes(benchmark::internal::Benchmark* b) {
    for (const std::int64_t drawnOf : {1, 2})
        for (const auto& [tasks, iterations] : {std::pair{100, 20000}, {1280, 4000}, {10000, 500}})
            b->Args({tasks, drawnOf, iterations});
    b->Args({1280, 2, 16000})->Unit(benchmark::kMillisecond);
}
BENCHMARK(Whole)->Apply(Sizes);
BENCHMARK(HostAlone)->Apply(Sizes);

/// The generated plan on a host that counts calls.
void HostCalls(benchmark::State& state) {
    const PlanData plan = GeneratedPlan({static_cast<std::size_t>(state.range(0)), 20, 1});
    kestrel::test::FakeHost host;
    host.plan->texts["RiskFactors"] = plan.texts[0].second;
    std::size_t carrying = 0;
    for (const TaskData& data : plan.tasks) {
        const std::string* field = FindText(data.userValues, "RiskFactors");
        host.AddTask(data.id, data.name, field ? *field : "")->AddCost(data.costItems[0].cost);
        if (field) ++carrying;
    }
    kestrel::PosixDesktop desktop;
    kestrel::modGlobals globals(desktop);
    globals.application = host.application;
    kestrel::clsSchedulon listener(globals);
    listener.m_SchedyApp_PlanBeforeRiskAnalysis(host.plan);
    std::size_t calls = 0;
    for (auto _ : state) {
        host.plan->randoms.assign(20, 0.5);
        const std::size_t before = host.log.calls.size();
        listener.m_SchedyApp_PlanAfterRiskIteration(host.plan);
        calls = host.log.calls.size() - before;
    }
    state.counters["calls"] = static_cast<double>(calls);
    state.counters["least"] = static_cast<double>(2 + 20 + 2 * 20 + 3 * carrying + 2 + 3);
}
BENCHMARK(HostCalls)->Arg(100)->Arg(1280)->Iterations(3);

}  // namespace

BENCHMARK_MAIN();
