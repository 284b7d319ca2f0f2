#include <gtest/gtest.h>

#include <cmath>

#include "core/analysis/modPearsons.h"
#include "host/clsSchedulon.h"
#include "refhost/engine/Analysis.h"
#include "refhost/engine/NoSettings.h"
#include "refhost/engine/Statistics.h"
#include "store/RegisterDocument.h"
#include "support/FakeDesktop.h"

namespace refhost {
namespace {

constexpr std::int32_t kIterations = 20000;

/// Standard errors at that many iterations of figures whose distribution is far from normal,
/// measured on 120 samples of a separate simulation.
constexpr double kErrorOfDriversDeviation = 0.00081;
constexpr double kErrorOfRowDeviation = 0.0337;
constexpr double kErrorOfA = 0.0075;
constexpr double kErrorOfB = 0.00065;

std::shared_ptr<kestrel::clsRiskFactor> Factor(double probability, double low, double likely,
                                               double high) {
    auto factor = std::make_shared<kestrel::clsRiskFactor>();
    factor->dblProb = probability;
    factor->dblMin = low;
    factor->dblML = likely;
    factor->dblMax = high;
    return factor;
}

/// An analysis with the add-in attached, on a calendar that always works, so that a finish is
/// the plan's start plus its length.
class Experiment {
 public:
    Experiment() {
        plan_.start = 0;
        Calendar always;
        always.week.fill({{0, 1440}});
        plan_.calendar = always;
    }
    void AddTask(std::int32_t duration, const std::string& field,
                 std::optional<ThreePoint> points = {}) {
        TaskData task;
        task.id = task.name = std::to_string(plan_.tasks.size() + 1);
        task.duration = duration;
        task.distribution = points;
        if (!field.empty()) task.userValues.emplace_back("RiskFactors", field);
        plan_.tasks.push_back(task);
    }
    PlanData& Plan() { return plan_; }

    /// The plan's length in minutes, one element per iteration.
    std::vector<double> Run(std::vector<std::shared_ptr<kestrel::clsRiskFactor>> factors) {
        application_.Open(std::make_shared<HostPlan>(plan_));
        globals.application = host::ApplicationPtr(&application_, [](auto*) {});
        globals.RiskFactors = std::move(factors);
        SaveRegisterToPlan(globals.RiskFactors, *application_.OpenPlan());
        kestrel::clsSchedulon listener(globals);
        listener.StartSchedulon();
        AnalysisSettings settings;
        settings.iterations = kIterations;
        settings.seed = 20260105;
        std::vector<double> lengths = RunAnalysis(application_, settings).finish;
        for (double& finish : lengths) finish *= kMinutesPerDay;
        return lengths;
    }

    kestrel::test::FakeDesktop desktop;
    kestrel::modGlobals globals{desktop};

 private:
    NoSettings settings_;
    ReferenceHost application_{settings_, "."};
    PlanData plan_;
};

/// Four standard errors of a mean, and of a percentile by the spacing of order statistics.
double OfMean(const std::vector<double>& values) {
    return 4 * Summarise(values).sd / std::sqrt(static_cast<double>(values.size()));
}
void ExpectPercentile(std::vector<double> values, double share, double expected, double unit) {
    std::sort(values.begin(), values.end());
    const double off = 4 * std::sqrt(share * (1 - share) / static_cast<double>(values.size()));
    EXPECT_LE(Percentile(values, share - off), expected * unit + 0.5) << share;
    EXPECT_GE(Percentile(values, share + off), expected * unit - 0.5) << share;
}

TEST(PublishedFigures, OfOneTriangleAndOfTheLargerOfTwo) {
    constexpr double kUnit = 1e6;  // fine enough that rounding to minutes does not show
    const ThreePoint points{0, 8 * kUnit, 10 * kUnit, 14 * kUnit};
    Experiment one;
    one.AddTask(0, "", points);
    const auto single = one.Run({});
    EXPECT_NEAR(Summarise(single).mean, 10.666667 * kUnit, OfMean(single));
    ExpectPercentile(single, 0.5, 10.535898, kUnit);
    ExpectPercentile(single, 0.8, 11.809110, kUnit);
    ExpectPercentile(single, 0.9, 12.450807, kUnit);

    Experiment two;
    two.AddTask(0, "", points);
    two.AddTask(0, "", points);
    const auto larger = two.Run({});
    EXPECT_NEAR(Summarise(larger).mean, 11.377778 * kUnit, OfMean(larger));
    ExpectPercentile(larger, 0.8, 12.40823, kUnit);
    const auto early = std::count_if(larger.begin(), larger.end(),
                                     [](double length) { return length <= 10 * kUnit; });
    EXPECT_NEAR(static_cast<double>(early) / kIterations, 1.0 / 9,
                4 * std::sqrt(8.0 / 81 / kIterations));
}

TEST(PublishedFigures, OfFourDriversInSeriesAndInParallel) {
    constexpr std::int32_t kUnit = 1000000;
    const auto drivers = [] {
        return std::vector{Factor(80, 100, 105, 130), Factor(25, 100, 110, 125),
                           Factor(20, 90, 100, 115), Factor(15, 95, 110, 135)};
    };
    Experiment series;
    series.AddTask(kUnit, "(1,2,3,4)");
    const auto inSeries = series.Run(drivers());
    EXPECT_NEAR(Summarise(inSeries).mean, 1.15155242 * kUnit, OfMean(inSeries));
    EXPECT_NEAR(Summarise(inSeries).sd, 0.12353789 * kUnit, 4 * kErrorOfDriversDeviation * kUnit);
    ExpectPercentile(inSeries, 0.8, 1.2427, kUnit);

    Experiment parallel;
    parallel.AddTask(kUnit, "(1,2,3,4(P))");
    const auto inParallel = parallel.Run(drivers());
    EXPECT_NEAR(Summarise(inParallel).mean, 1.116104 * kUnit, OfMean(inParallel));
    ExpectPercentile(inParallel, 0.8, 1.18481, kUnit);
}

TEST(PublishedFigures, OfTwoTasksInARowWithAFactorEach) {
    constexpr std::int32_t kUnit = 1000000;
    Experiment experiment;
    experiment.AddTask(10 * kUnit, "1");
    experiment.AddTask(20 * kUnit, "2");
    experiment.Plan().tasks[1].links.push_back({"1", LinkType::FinishToStart, 0});
    const auto finish = experiment.Run({Factor(50, 100, 120, 160), Factor(30, 100, 150, 200)});
    EXPECT_NEAR(Summarise(finish).mean, 34.333333 * kUnit, OfMean(finish));
    EXPECT_NEAR(Summarise(finish).sd, 5.343740 * kUnit, 4 * kErrorOfRowDeviation * kUnit);
    EXPECT_NEAR(experiment.globals.analysis->factors[0]->dblDurSens, 0.299156, 4 * kErrorOfA);
    EXPECT_NEAR(experiment.globals.analysis->factors[1]->dblDurSens, 0.954204, 4 * kErrorOfB);
}

class Interrupting : public AnalysisWatcher {
 public:
    explicit Interrupting(std::int32_t after) : after_(after) {}
    bool AfterIteration(std::int32_t number, std::span<const std::int32_t>,
                        const AnalysisResults&) override {
        return number < after_;
    }

 private:
    std::int32_t after_;
};

TEST(Analysis, CancelledLeavesDurationsAndCostsAsTheyWereAndNoResults) {
    NoSettings settings;
    ReferenceHost application(settings, ".");
    PlanData plan;
    TaskData task;
    task.id = "1";
    task.duration = 100;
    task.distribution = ThreePoint{0, 50, 100, 400};
    plan.tasks.push_back(task);
    application.Open(std::make_shared<HostPlan>(plan));
    Interrupting after(3);
    const AnalysisResults results = RunAnalysis(application, {}, &after);
    EXPECT_TRUE(results.cancelled);
    EXPECT_EQ(results.finish.size(), 3u);
    EXPECT_EQ(application.OpenPlan()->Snapshot().tasks, plan.tasks);
    EXPECT_FALSE(application.OpenPlan()->ResultsUpToDate());
}

}  // namespace
}  // namespace refhost
