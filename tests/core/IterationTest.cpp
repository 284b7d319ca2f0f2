#include <gmock/gmock.h>

#include "core/AnalysisFixture.h"

namespace kestrel::test {
namespace {

using testing::ElementsAre;

std::vector<bool> Applied(const AnalysisFixture& fixture) {
    std::vector<bool> applied;
    for (const auto& factor : fixture.globals.analysis->factors)
        applied.push_back(factor->GetApplied());
    return applied;
}

TEST(Iteration, DecidesOccurrenceByOneNumberPerFactorSharedAlongCorrelations) {
    struct Row {
        const char* what;
        std::vector<std::pair<double, int>> factors;  // probability, correlated to
        std::vector<double> randoms;
        std::vector<bool> applied;
    };
    const Row rows[] = {
        {"at its probability a factor occurs", {{50, 0}}, {0.5}, {true}},
        {"above it, it does not", {{50, 0}}, {0.5001}, {false}},
        {"certain and impossible", {{100, 0}, {0, 0}}, {0.999999, 1e-9}, {true, false}},
        {"a follower takes its leader's number", {{60, 0}, {60, 1}}, {0.3, 0.9}, {true, true}},
        {"a follower before its leader draws for both",
         {{60, 2}, {60, 0}},
         {0.9, 0.3},
         {false, false}},
        {"with other probabilities they nest", {{30, 2}, {60, 0}}, {0.5, 0.1}, {false, true}},
        {"two followers of one", {{50, 0}, {50, 1}, {50, 1}}, {0.4, 0.9, 0.9}, {true, true, true}},
        {"a chain stops at the first leader",
         {{50, 2}, {50, 3}, {50, 0}},
         {0.9, 0.1, 0.1},
         {false, false, true}},
        {"a factor that follows itself", {{50, 1}}, {0.4}, {true}},
        {"a leader's 0 counts as none", {{10, 0}, {60, 1}}, {0, 0.5}, {false, true}},
        {"a negative correlation draws nothing", {{0, -3}}, {0.9}, {true}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        AnalysisFixture fixture;
        std::vector<std::shared_ptr<clsRiskFactor>> factors;
        std::string field;
        for (const auto& [probability, leader] : row.factors) {
            factors.push_back(Factor("F", probability, leader));
            field += (field.empty() ? "" : ",") + std::to_string(factors.size());
        }
        fixture.StoreRegister(factors);
        fixture.host.AddTask("1", "Dig", field);
        fixture.Before();
        const std::vector<double> unchanged(factors.size(), 100);
        fixture.Iterate(row.randoms, unchanged, unchanged);
        EXPECT_EQ(Applied(fixture), row.applied);
    }
}

TEST(Iteration, RefusesACorrelationBeyondTheRegister) {
    AnalysisFixture fixture;
    fixture.StoreRegister({Factor("Weather", 50, 9)});
    fixture.host.AddTask("1", "Dig", "1");
    fixture.Before();
    EXPECT_THROW(fixture.Iterate({0.5}, {100}, {100}), DataError);
}

TEST(Iteration, CombinesTheGroupsOfATask) {
    struct Row {
        const char* field;
        std::vector<double> durations;  // percent; all factors occur but the third
        std::int32_t expected;          // of 1000
        const char* log;
    };
    const Row rows[] = {
        {"1,2", {110, 120, 150}, 1320, "1000 * A(110.0%) * B(120.0%)"},
        {"(1,2(P))", {110, 120, 150}, 1200, "1000 * B(120.0%)"},
        {"(2,1(P))", {110, 120, 150}, 1200, "1000 * B(120.0%)"},
        {"(2(P));(1)", {110, 120, 150}, 1200, "1000 * B(120.0%)"},
        {"(2(P));(1)", {125, 120, 150}, 1250, "1000 * A(125.0%)"},
        {"(2(P));(1)", {120, 120, 150}, 1200, "1000 * B(120.0%)"},
        {"(1(P))", {90, 120, 150}, 900, "1000 * A(90.0%)"},
        {"1", {90, 120, 150}, 900, "1000 * A(90.0%)"},
        {"(2(P));(1)", {90, 80, 150}, 900, "1000 * A(90.0%)"},
        {"3", {110, 120, 150}, 1000, "1000"},
        {"1,2,3", {110, 120, 150}, 1320, "1000 * A(110.0%) * B(120.0%)"},
        {"(1,2,3(P))", {110, 120, 150}, 1200, "1000 * B(120.0%)"},
        {"(1,3(P))", {90, 120, 150}, 1000, "1000 * A(90.0%)"},
        {"1", {100.05, 100, 100}, 1000, "1000 * A(100.1%)"},
        {"1", {100.15, 100, 100}, 1002, "1000 * A(100.2%)"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.field) + " -> " + row.log);
        AnalysisFixture fixture;
        fixture.host.application->settings[{"RiskFactors", "RiskFactors", "ShowIterations"}] =
            "TRUE";
        fixture.StoreRegister({Factor("A", 100), Factor("B", 100), Factor("C", 0)});
        const auto task = fixture.host.AddTask("1", "Dig", row.field);
        fixture.Before();
        task->duration = 1000;
        fixture.Iterate({0.5, 0.5, 0.5}, row.durations, {100, 100, 100});
        EXPECT_EQ(task->duration, row.expected);
        EXPECT_EQ(task->texts["Risk Factors Iterations"], row.log);
    }
}

TEST(Iteration, WritesCostsFromTheCostsBeforeTheAnalysis) {
    AnalysisFixture fixture;
    fixture.host.application->settings[{"RiskFactors", "RiskFactors", "ShowIterations"}] = "TRUE";
    fixture.StoreRegister({Factor("A", 100), Factor("B", 100)});
    const auto first = fixture.host.AddTask("1", "Dig", "(2(P));(1)");
    FakeCostItem& labour = first->AddCost(1000);
    FakeCostItem& plant = first->AddCost(10);
    const auto second = fixture.host.AddTask("2", "Pour", "2");
    FakeCostItem& concrete = second->AddCost(500);
    fixture.Before();
    for (int round = 0; round < 2; ++round) fixture.Iterate({0.5, 0.5}, {100, 100}, {110, 50});
    EXPECT_DOUBLE_EQ(labour.cost, 550);
    EXPECT_DOUBLE_EQ(plant.cost, 5.5);
    EXPECT_DOUBLE_EQ(concrete.cost, 250);
    EXPECT_EQ(first->texts["Risk Factors Iterations"],
              "100\r\nCOST(S) impact(s)  * A(110.0%) * B(50.0%)");
}

TEST(Iteration, PairsCostsByRunningPositionEvenPastATextWithoutIDs) {
    AnalysisFixture fixture;
    fixture.StoreRegister({Factor("A", 100)});
    fixture.host.AddTask("1", "Odd", "(P)")->AddCost(7);
    FakeCostItem& cost = fixture.host.AddTask("2", "Dig", "1")->AddCost(1000);
    fixture.Before();
    fixture.Iterate({0.5}, {100}, {200});
    EXPECT_EQ(cost.cost, 14) << "the first base cost is that of the task without IDs";
}

TEST(Iteration, KeepsASummarysDurationAndRewritesItsCosts) {
    AnalysisFixture fixture;
    fixture.StoreRegister({Factor("A", 100)});
    const auto summary = fixture.host.AddTask("1", "Works", "1");
    summary->type = host::kSummaryTask;
    FakeCostItem& cost = summary->AddCost(40);
    fixture.Before();
    cost.cost = 41;
    fixture.Iterate({0.5}, {150}, {200});
    EXPECT_EQ(summary->duration, 100);
    EXPECT_EQ(cost.cost, 40);
    EXPECT_TRUE(fixture.globals.analysis->factors[0]->GetApplied());
}

TEST(Iteration, RefusesFiguresThatDoNotFit) {
    AnalysisFixture fixture;
    fixture.StoreRegister({Factor("A", 100)});
    const auto task = fixture.host.AddTask("20", "Drawings", "1");
    task->AddCost(1e300);
    fixture.Before();
    task->duration = 2000000000;
    try {
        fixture.Iterate({0.5}, {150}, {100});
        FAIL() << "accepted";
    } catch (const ArithmeticError& error) {
        EXPECT_NE(std::string(error.what()).find("20 - Drawings"), std::string::npos);
    }
    fixture.Before();
    EXPECT_THROW(fixture.Iterate({0.5}, {100}, {1e12}), ArithmeticError);
}

TEST(Iteration, MakesNoHostCallThatCanBeAvoided) {
    AnalysisFixture fixture;
    fixture.StoreRegister({Factor("A", 50), Factor("B", 50), Factor("Unused", 50)});
    for (int i = 0; i < 4; ++i) {
        const auto task =
            fixture.host.AddTask(std::to_string(i), "Task", i == 3 ? "" : "(1(P));(2)");
        for (int k = 0; k < i; ++k) task->AddCost(5);
    }
    fixture.Before();
    fixture.host.log.calls.clear();
    fixture.Iterate({0.1, 0.9, 0.5}, {110, 110, 110}, {110, 110, 110});
    const std::vector<std::pair<const char*, std::size_t>> expected = {
        {"Plan.PutAutoCalculate", 2}, {"RiskAnalysis.NextRandom", 3},
        {"Member.SampledValue", 4},   {"Task.Duration", 3},
        {"Task.PutDuration", 3},      {"CostItem.PutCost", 3},
        {"Plan.Recalculate", 1},      {"AnalysisOptions.RecalculateAll", 1},
        {"Plan.SummaryTask", 1},      {"SummaryTask.Finish", 1},
        {"SummaryTask.Cost", 1}};
    std::size_t sum = 0;
    for (const auto& [member, count] : expected) {
        EXPECT_EQ(fixture.host.log.Count(member), count) << member;
        sum += count;
    }
    EXPECT_EQ(fixture.host.log.calls.size(), sum);
}

}  // namespace
}  // namespace kestrel::test
