#include <gmock/gmock.h>

#include "core/AnalysisFixture.h"
#include "core/analysis/modPearsons.h"

namespace kestrel::test {
namespace {

TEST(Pearson, CorrelatesAndGivesTheFixedAnswersOfDegenerateSeries) {
    struct Row {
        std::vector<double> x, y;
        double expected;
    };
    const Row rows[] = {
        {{1, 2, 3}, {2, 4, 7}, 2.5 / std::sqrt(19.0 / 3)},
        {{1, 2, 4}, {10, 20, 40}, 1},
        {{1, 2, 4}, {-1, -2, -4}, -1},
        {{1, 2, 3}, {5, 5, 5}, 0},
        {{5, 5, 5}, {1, 2, 3}, 0},
        {{3}, {9}, 1},
        {{}, {}, 1},
    };
    for (const Row& row : rows) {
        double mean = 0, deviation = 0;
        EXPECT_NEAR(ArrayPearson(row.x, row.y, row.x.size(), false, mean, deviation), row.expected,
                    1e-12);
    }
    double mean = 0, deviation = 4;
    EXPECT_DOUBLE_EQ(ArrayPearson({1, 2, 3}, {2, 4, 6}, 3, true, mean, deviation), 0.25)
        << "a deviation that is known is not computed again";
}

TEST(Pearson, OfHistoriesSideBySideIsThatOfEachAlone) {
    const std::vector<double> finish{46040.7, 46041.3, 46055.1, 46043.9, 46040.2};
    std::array<ImpactHistory, kSideBySide> histories;
    std::array<std::vector<double>, kSideBySide> elements;
    for (std::size_t k = 0; k < kSideBySide; ++k)
        for (std::size_t i = 0; k != 2 && elements[k].size() < finish.size(); ++i) {
            const double value = 1 + 0.1 * static_cast<double>((7 * i + k) % 5);
            histories[k].Append(value, static_cast<std::int32_t>(k) + 1);
            elements[k].insert(elements[k].end(), k + 1, value);
        }
    std::array<const ImpactHistory*, kSideBySide> block;
    for (std::size_t k = 0; k < kSideBySide; ++k) block[k] = &histories[k];
    double mean = ArrayMean(finish, 5), deviation = ArrayStdDev(finish, 5, mean);
    std::vector<SideBySide> rows;
    const auto sums = CollectionPearson(finish, block, mean, rows);
    for (const std::size_t k : {0, 1, 3})
        EXPECT_EQ(sums[k].Correlation(5, deviation),
                  ArrayPearson(finish, elements[k], 5, true, mean, deviation))
            << k;
}

TEST(Pearson, RaisesInsteadOfLettingGoAFigureThatIsNotFinite) {
    EXPECT_THROW(ArrayMean({}, 0), ArithmeticError);
    EXPECT_THROW(ArrayMean({1e308, 1e308}, 2), ArithmeticError);
    EXPECT_THROW(ArrayStdDev({1e200, -1e200}, 2, 0), ArithmeticError);
    ImpactHistory history;
    history.Append(1.1, 2);
    const ImpactHistory* const histories[] = {&history};
    std::vector<SideBySide> rows;
    EXPECT_THROW(CollectionPearson({1, 2, 3}, histories, 2, rows), std::out_of_range);
}

/// Three iterations with factor 1 on two tasks, factor 2 on none.
void RunThree(AnalysisFixture& fixture) {
    for (const double finish : {10.0, 20.0, 40.0}) {
        fixture.host.plan->finish = finish;
        fixture.Iterate({0.5, 0.5}, {100 + finish, 100}, {100, 100});
    }
}

TEST(Completion, CorrelatesHistoriesAsTheyStandOneElementPerVisit) {
    AnalysisFixture fixture;
    fixture.StoreRegister({Factor("A", 100), Factor("Unused", 100)});
    for (const char* id : {"1", "2"}) fixture.host.AddTask(id, "Dig", "1");
    fixture.Before();
    RunThree(fixture);
    const ImpactHistory& history = fixture.globals.analysis->factors[0]->m_colValues;
    ASSERT_EQ(history.Count(), 6u);
    EXPECT_EQ(history.At(1), 1.1);
    EXPECT_EQ(history.At(2), 1.2);
    fixture.After();

    double mean = 0, deviation = 0;
    const double expected = ArrayPearson({10, 20, 40}, {1.1, 1.1, 1.2}, 3, false, mean, deviation);
    EXPECT_EQ(fixture.globals.analysis->factors[0]->dblDurSens, expected);
    EXPECT_EQ(fixture.globals.analysis->factors[0]->m_dCostSens, 0) << "the cost never varies";
    EXPECT_EQ(fixture.globals.analysis->factors[1]->dblDurSens, 0) << "no task carries it";
    EXPECT_EQ(fixture.host.application->busy, (std::vector<bool>{true, false}));
    EXPECT_EQ(fixture.host.application->statusTexts, (std::vector<std::string>{"A", "Unused"}));

    fixture.globals.RiskFactors.clear();
    LoadRegisterFromPlan(fixture.globals, *fixture.host.plan);
    EXPECT_NEAR(fixture.globals.RiskFactors[0]->dblDurSens, expected, 1e-14);
}

TEST(Completion, GoesIntoThePlanThatWasAnalysed) {
    AnalysisFixture fixture;
    fixture.StoreRegister({Factor("A", 100)});
    const auto task = fixture.host.AddTask("1", "Dig", "1");
    const auto other = fixture.host.application->plan =
        std::make_shared<FakePlan>(fixture.host.log);
    other->randoms = {0.5, 0.5, 0.5};
    fixture.Before();
    for (int i = 0; i < 3; ++i)
        fixture.listener.m_SchedyApp_PlanAfterRiskIteration(fixture.host.plan);
    task->texts["Risk Factors Iterations"] = "100";
    fixture.After();
    EXPECT_TRUE(other->texts.empty());
    EXPECT_NE(fixture.host.plan->texts["RiskFactors"].find("<DurSens>0<"), std::string::npos);
    EXPECT_EQ(task->texts["Risk Factors Iterations"], "");
}

TEST(Completion, ClearsTheLogsAndKeepsTheRegisterWhenNoIterationRan) {
    AnalysisFixture fixture;
    fixture.StoreRegister({Factor("A", 100)});
    const auto task = fixture.host.AddTask("1", "Dig", "1");
    const std::string stored = fixture.host.plan->texts["RiskFactors"];
    fixture.Before();
    task->texts["Risk Factors Iterations"] = "100";
    fixture.After();
    EXPECT_EQ(task->texts["Risk Factors Iterations"], "");
    EXPECT_EQ(fixture.host.plan->texts["RiskFactors"], stored);
    EXPECT_TRUE(fixture.host.plan->autoCalculate);
}

TEST(Listener, IsToldOfThePlanAnalysed) {
    AnalysisFixture fixture;
    fixture.listener.StartSchedulon();
    fixture.StoreRegister({Factor("A", 100)});
    fixture.host.application->sinks.at(0)->PlanBeforeRiskAnalysis(fixture.host.plan);
    EXPECT_TRUE(fixture.globals.analysis->active);
    fixture.host.application->sinks.at(0)->PlanBeforeRiskAnalysis(nullptr);
    EXPECT_FALSE(fixture.globals.analysis->active);
}

TEST(Listener, TellsTheHostWhenNoPlanIsOpenAnyMore) {
    AnalysisFixture fixture;
    fixture.StoreRegister({Factor("A", 100)});
    fixture.host.application->plan = nullptr;
    EXPECT_THROW(fixture.Before(), HostError);
    EXPECT_THROW(fixture.After(), HostError);
}

/// An analysis of four events on a plan with a summary, costs, both groups and the log on.
struct WholeAnalysis {
    AnalysisFixture fixture;
    int failures = 0;

    WholeAnalysis() {
        fixture.host.application->settings[{"RiskFactors", "RiskFactors", "ShowIterations"}] =
            "TRUE";
        fixture.StoreRegister({Factor("A", 100), Factor("B", 60, 1)});
        const auto summary = fixture.host.AddTask("1", "Works", "2");
        fixture.host.AddTask("2", "Dig", "(1(P));(2)", summary.get())->AddCost(100);
        fixture.host.log.calls.clear();
    }
    void Run() {
        Try([&] { fixture.Before(); });
        for (int i = 0; i < 2; ++i) Try([&] { OneIteration(i); });
        Try([&] { fixture.After(); });
    }
    void OneIteration(int i) {
        const auto group = fixture.host.plan->Find(kCostGroup);
        const bool prepared = group && group->members.size() == 2;
        fixture.host.plan->finish = 10 + i;
        const std::vector<double> drawn(prepared ? 2 : 0, 110.0 + i);
        fixture.Iterate({0.5, 0.5}, drawn, drawn);
    }
    template <typename Event>
    void Try(Event event) {
        try {
            event();
        } catch (const HostError&) {
            ++failures;
        }
    }
};

TEST(Listener, PassesOnAFailingHostCallAtAnyPositionAndNeverStoresAFigureFromIt) {
    WholeAnalysis whole;
    const std::string before = whole.fixture.host.plan->texts["RiskFactors"];
    whole.Run();
    ASSERT_EQ(whole.failures, 0);
    const std::string after = whole.fixture.host.plan->texts["RiskFactors"];
    ASSERT_NE(before, after);
    const std::size_t calls = whole.fixture.host.log.calls.size();
    for (std::size_t n = 1; n <= calls; ++n) {
        WholeAnalysis failing;
        failing.fixture.host.log.FailCall(n);
        failing.Run();
        SCOPED_TRACE("call " + std::to_string(n) + ", " + whole.fixture.host.log.calls[n - 1]);
        EXPECT_LE(failing.failures, 1);
        const std::string& stored = failing.fixture.host.plan->texts["RiskFactors"];
        EXPECT_TRUE(stored == before || stored == after) << stored;
    }
}

}  // namespace
}  // namespace kestrel::test
