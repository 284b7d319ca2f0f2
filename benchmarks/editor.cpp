#include <benchmark/benchmark.h>

#include "host/clsKestrelDll.h"
#include "store/RegisterDocument.h"
#include "support/FakeDesktop.h"
#include "support/FakeHost.h"
#include "support/ScriptedRunner.h"

/// The editor on long registers. Each figure should grow in proportion to the rows.
namespace kestrel {
namespace {

class EditorBench {
 public:
    explicit EditorBench(int factors)
        : addin_([this] { return host_.application; }, desktop_, runner_) {
        modGlobals globals(desktop_);
        for (int i = 1; i <= factors; ++i) {
            auto factor = std::make_shared<clsRiskFactor>();
            factor->strDescription = "Late delivery of part " + std::to_string(i);
            factor->dblMax = 100 + i % 50;
            factor->CorrelatedTo = i % 10 == 0 ? i - 1 : 0;
            globals.RiskFactors.push_back(std::move(factor));
        }
        SaveRegisterToPlan(globals.RiskFactors, *host_.plan);
    }

    void Run(std::function<void(test::User&)> script) {
        host_.log.calls.clear();
        runner_.script = std::move(script);
        addin_.LaunchEdit();
    }

 private:
    test::FakeHost host_;
    test::FakeDesktop desktop_;
    test::ScriptedRunner runner_;
    clsKestrelDll addin_;
};

void OpenAndCancel(benchmark::State& state) {
    EditorBench bench(static_cast<int>(state.range(0)));
    for (auto _ : state) bench.Run([](test::User&) {});
    state.SetComplexityN(state.range(0));
}

void OpenEnterAFactorAndStore(benchmark::State& state) {
    EditorBench bench(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        bench.Run([](test::User& user) {
            user.PressCtrl(ui::Key::End);
            user.Press(ui::Key::Home);
            user.Type("Frost");
            user.Press(ui::Key::Down);
            user.Click("cmdOKRisk");
            if (user.TheForm().IsOpen()) std::abort();
        });
    }
    state.SetComplexityN(state.range(0));
}

/// One row further: what a key press costs in a long register.
void OneRowDown(benchmark::State& state) {
    EditorBench bench(static_cast<int>(state.range(0)));
    bench.Run([&](test::User& user) {
        for (auto _ : state) user.Press(ui::Key::Down);
    });
    state.SetComplexityN(state.range(0));
}

BENCHMARK(OpenAndCancel)
    ->Unit(benchmark::kMillisecond)
    ->RangeMultiplier(2)
    ->Range(1250, 10000)
    ->Complexity(benchmark::oN);
BENCHMARK(OpenEnterAFactorAndStore)
    ->Unit(benchmark::kMillisecond)
    ->RangeMultiplier(2)
    ->Range(1250, 10000)
    ->Complexity(benchmark::oN);
BENCHMARK(OneRowDown)
    ->Unit(benchmark::kMicrosecond)
    ->RangeMultiplier(2)
    ->Range(1250, 10000)
    ->Complexity(benchmark::oN);

}  // namespace
}  // namespace kestrel

BENCHMARK_MAIN();
