// What the questions beside one analysis cost: prioritising by threads and factors (time per
// analysis of those that it makes, so that twice the threads should show half), and criticality
// beside the forward pass that it follows.

#include <benchmark/benchmark.h>

#include "platform/posix/PosixDesktop.h"
#include "refhost/engine/Criticality.h"
#include "refhost/engine/DurationSampler.h"
#include "refhost/results/Prioritise.h"
#include "support/GeneratedPlan.h"

namespace {

using namespace refhost;

void Prioritising(benchmark::State& state) {
    const PlanData plan = GeneratedPlan({1280, static_cast<int>(state.range(1)), 2});
    PriorityQuestion question;
    question.settings.iterations = 200;
    question.threads = static_cast<unsigned>(state.range(0));
    kestrel::PosixDesktop desktop;
    std::int32_t atMost = 1;
    for (auto _ : state)
        Prioritise(
            plan, question, desktop, [] { return std::make_unique<kestrel::PosixDesktop>(); },
            [&atMost](std::int32_t, std::int32_t most) {
                atMost = most;
                return true;
            });
    state.counters["s_per_analysis"] = benchmark::Counter(
        atMost, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(Prioritising)
    ->ArgNames({"threads", "factors"})
    ->ArgsProduct({{1, 2, 4}, {5, 20}})
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

/// Forward passes over durations that differ from pass to pass, as those of an analysis.
void RunPasses(benchmark::State& state, bool withCriticality) {
    const PlanData plan = GeneratedPlan({static_cast<std::size_t>(state.range(0)), 0, 1});
    LivePlan live(plan);
    Network network(plan, live.WorkingTime());
    Criticality criticality(plan);
    DurationSampler sampler(live);
    RandomStream stream;
    std::vector<std::vector<std::int32_t>> drawn;
    for (int i = 0; i < 100; ++i) {
        const auto durations = sampler.Draw(stream);
        drawn.emplace_back(durations.begin(), durations.end());
    }
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(network.Schedule(drawn[next++ % drawn.size()], {}));
        if (withCriticality) criticality.Note(network);
    }
    state.counters["s_per_task"] = benchmark::Counter(
        static_cast<double>(state.range(0)),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
void ForwardPass(benchmark::State& state) { RunPasses(state, false); }
void ForwardPassAndCriticality(benchmark::State& state) { RunPasses(state, true); }
BENCHMARK(ForwardPass)->Arg(100)->Arg(1280)->Arg(10000);
BENCHMARK(ForwardPassAndCriticality)->Arg(100)->Arg(1280)->Arg(10000);

}  // namespace

BENCHMARK_MAIN();
