#include <gtest/gtest.h>

#include "base/Errors.h"
#include "refhost/engine/LivePlan.h"

namespace refhost {
namespace {

constexpr Minute kMonday = Minute{46027} * kMinutesPerDay + 480;  // 2026-01-05 08:00

/// A plan built from one line a task, in plan order.
class PlanBuilder {
 public:
    PlanBuilder() { plan_.start = kMonday; }
    PlanBuilder& Summary(const std::string& id, int parent = -1) {
        return Add(id, kSummary, 0, parent);
    }
    PlanBuilder& Task(const std::string& id, std::int32_t duration, int parent = -1) {
        return Add(id, kOrdinary, duration, parent);
    }
    PlanBuilder& From(const std::string& id, LinkType type, std::int32_t lag = 0) {
        plan_.tasks.back().links.push_back({id, type, lag});
        return *this;
    }
    PlanBuilder& NoEarlierThan(Minute date) {
        plan_.tasks.back().noEarlierThan = date;
        return *this;
    }
    PlanBuilder& Cost(double cost) {
        plan_.tasks.back().costItems.push_back({"Cost", cost});
        return *this;
    }
    operator PlanData() const { return plan_; }

 private:
    PlanBuilder& Add(const std::string& id, std::int16_t type, std::int32_t duration, int parent) {
        TaskData task;
        task.id = task.name = id;
        task.type = type;
        task.duration = duration;
        task.parent = parent;
        plan_.tasks.push_back(task);
        return *this;
    }
    PlanData plan_;
};

using enum LinkType;
using Times = std::vector<std::pair<std::int64_t, std::int64_t>>;

Times TimesOf(const PlanData& data) {
    LivePlan plan(data);
    Times times;
    for (std::size_t i = 0; i < plan.TaskCount(); ++i) times.push_back(plan.StartAndFinish(i));
    return times;
}

TEST(Schedule, PlacesEveryTaskByItsLinksAndConstraints) {
    struct Row {
        const char* what;
        PlanData plan;
        Times expected;
    };
    const Row rows[] = {
        {"no links", PlanBuilder().Task("A", 100).Task("B", 0), {{0, 100}, {0, 0}}},
        {"finish to start with lag",
         PlanBuilder().Task("A", 100).Task("B", 30).From("A", FinishToStart, 20),
         {{0, 100}, {120, 150}}},
        {"a lead that would start before the plan",
         PlanBuilder().Task("A", 100).Task("B", 30).From("A", FinishToStart, -500),
         {{0, 100}, {0, 30}}},
        {"start to start",
         PlanBuilder().Task("A", 100).Task("B", 30).From("A", StartToStart, 10),
         {{0, 100}, {10, 40}}},
        {"finish to finish",
         PlanBuilder().Task("A", 100).Task("B", 30).From("A", FinishToFinish, 5),
         {{0, 100}, {75, 105}}},
        {"start to finish",
         PlanBuilder().Task("A", 100).Task("B", 30).From("A", StartToFinish, 90),
         {{0, 100}, {60, 90}}},
        {"the latest of several, against plan order",
         PlanBuilder()
             .Task("C", 10)
             .From("A", FinishToStart)
             .From("B", FinishToFinish, 95)
             .Task("A", 100)
             .Task("B", 30),
         {{115, 125}, {0, 100}, {0, 30}}},
        {"no earlier than Tuesday 09:30",
         PlanBuilder().Task("A", 10).NoEarlierThan(kMonday + kMinutesPerDay + 90),
         {{570, 580}}},
        {"a link from a summary uses its earliest start and latest finish",
         PlanBuilder()
             .Summary("S")
             .Task("A", 100, 0)
             .NoEarlierThan(kMonday + 60)
             .Task("B", 30, 0)
             .NoEarlierThan(kMonday + 30)
             .Task("C", 5)
             .From("S", StartToStart)
             .Task("D", 5)
             .From("S", FinishToStart),
         {{30, 160}, {60, 160}, {30, 60}, {30, 35}, {160, 165}}},
        {"a link to a summary holds for every task below it, at any depth",
         PlanBuilder()
             .Task("A", 100)
             .Summary("S")
             .From("A", FinishToStart, 7)
             .Summary("T", 1)
             .Task("B", 30, 2)
             .Task("C", 5, 1)
             .From("B", StartToStart, 3),
         {{0, 100}, {107, 137}, {107, 137}, {107, 137}, {110, 115}}},
        {"a finish link to a summary bounds each task by its own duration",
         PlanBuilder()
             .Task("A", 100)
             .Summary("S")
             .From("A", FinishToFinish)
             .Task("B", 30, 1)
             .Task("C", 60, 1),
         {{0, 100}, {40, 100}, {70, 100}, {40, 100}}},
        {"a finish link to a summary holds at any depth, through a summary with a link of its own",
         PlanBuilder()
             .Task("A", 100)
             .Summary("S")
             .From("A", FinishToFinish)
             .Summary("T", 1)
             .From("A", StartToStart, 80)
             .Task("B", 30, 2),
         {{0, 100}, {80, 110}, {80, 110}, {80, 110}}},
        {"a date and a link, two links and a date, the later of each",
         PlanBuilder()
             .Task("A", 100)
             .Task("B", 10)
             .From("A", FinishToStart)
             .NoEarlierThan(kMonday + 60)
             .Task("C", 10)
             .From("A", FinishToStart)
             .From("B", FinishToStart)
             .NoEarlierThan(kMonday + 120)
             .Summary("S")
             .Task("D", 10, 3)
             .NoEarlierThan(kMonday + 30),
         {{0, 100}, {100, 110}, {120, 130}, {30, 40}, {30, 40}}},
        {"nothing starts before the plan, not after tasks that end before it",
         PlanBuilder()
             .Task("A", -50)
             .Task("B", -20)
             .Task("C", 10)
             .From("A", FinishToStart)
             .From("B", FinishToStart),
         {{0, -50}, {0, -20}, {0, 10}}},
        {"a date on a summary holds below it",
         PlanBuilder().Summary("S").NoEarlierThan(kMonday + 60).Task("A", 10, 0),
         {{60, 70}, {60, 70}}},
        {"empty summaries start nothing and hold nothing up",
         PlanBuilder()
             .Summary("S")
             .Summary("E", 0)
             .Task("A", 10, 0)
             .NoEarlierThan(kMonday + 60)
             .Task("B", 5)
             .From("S", StartToStart)
             .Task("C", 5)
             .From("E", FinishToStart),
         {{60, 70}, {0, 0}, {60, 70}, {60, 65}, {0, 5}}},
    };
    for (const Row& row : rows) EXPECT_EQ(TimesOf(row.plan), row.expected) << row.what;
}

TEST(Schedule, NamesTheTasksOfALoop) {
    struct Row {
        PlanData plan;
        const char* chain;
    };
    const Row rows[] = {
        {PlanBuilder().Task("A", 1).From("A", FinishToStart), "A - A -> A - A"},
        {PlanBuilder()
             .Task("Z", 1)
             .Task("A", 1)
             .From("C", StartToStart)
             .Task("B", 1)
             .From("A", FinishToFinish)
             .Task("C", 1)
             .From("B", FinishToStart)
             .Task("D", 1)
             .From("C", FinishToStart),
         "C - C -> A - A"},
        {PlanBuilder().Summary("S").Task("A", 1, 0).From("S", FinishToStart), "A - A"},
        {PlanBuilder().Summary("S").From("A", FinishToStart).Task("A", 1, 0), "A - A"},
    };
    for (const Row& row : rows) {
        try {
            LivePlan plan(row.plan);
            ADD_FAILURE() << "accepted " << row.chain;
        } catch (const kestrel::DataError& error) {
            const std::string text = error.what();
            EXPECT_NE(text.find("loop"), std::string::npos) << text;
            EXPECT_NE(text.find(row.chain), std::string::npos) << text;
            EXPECT_EQ(text.find("D - D"), std::string::npos) << text;
        }
    }
}

TEST(LivePlan, ShowsScheduledValuesOfTheMomentOfSuspension) {
    LivePlan plan(PlanBuilder()
                      .Summary("S")
                      .Task("A", 100, 0)
                      .Cost(10)
                      .Task("B", 30, 0)
                      .From("A", FinishToStart));
    EXPECT_EQ(plan.Duration(0), 130);
    plan.PutAutoCalculate(false);
    plan.PutDuration(1, 200);
    plan.PutCost(0, 25);
    plan.PutDuration(0, 7);
    EXPECT_EQ(plan.Duration(0), 130) << "a summary's duration is what its tasks make it";
    EXPECT_EQ(plan.TotalCost(), 10);
    plan.PutAutoCalculate(true);
    EXPECT_EQ(plan.Duration(0), 230);
    EXPECT_EQ(plan.TotalCost(), 25);
    EXPECT_EQ(plan.FinishDate(), kMonday + 230);
}

TEST(LivePlan, ShowsADrawnIterationUntilTheAddInHasRecalculated) {
    LivePlan plan(PlanBuilder().Summary("S").Task("A", 100, 0).Cost(10));
    plan.KeepBase();
    const std::int32_t drawn[] = {0, 150};
    plan.BeginIteration(drawn);
    plan.PutAutoCalculate(false);
    plan.PutDuration(1, 300);
    plan.PutCost(0, 99);
    EXPECT_EQ(plan.Duration(0), 150);
    EXPECT_EQ(plan.TotalCost(), 10);
    plan.PutAutoCalculate(true);
    plan.Recalculate();
    EXPECT_EQ(plan.Duration(0), 300);
    EXPECT_EQ(plan.TotalCost(), 99);
    plan.RestoreBase();
    EXPECT_EQ(plan.Duration(0), 100);
    EXPECT_EQ(plan.TotalCost(), 10);
}

TEST(LivePlan, AnyChangeMakesResultsOutOfDateAndTheSameValueIsNone) {
    const PlanData data = PlanBuilder().Task("A", 100).Cost(10);
    struct Row {
        const char* what;
        void (*change)(LivePlan&);
        bool stillUpToDate;
    };
    const Row rows[] = {
        {"the same duration", [](LivePlan& p) { p.PutDuration(0, 100); }, true},
        {"another duration", [](LivePlan& p) { p.PutDuration(0, 101); }, false},
        {"the same cost", [](LivePlan& p) { p.PutCost(0, 10); }, true},
        {"another cost", [](LivePlan& p) { p.PutCost(0, 10.5); }, false},
        {"an empty text that was none", [](LivePlan& p) { p.SetText("X", ""); }, true},
        {"a text", [](LivePlan& p) { p.SetText("X", "y"); }, false},
        {"a field", [](LivePlan& p) { p.SetUserValue(0, "X", "y"); }, false},
        {"a change after one that was declared up to date",
         [](LivePlan& p) {
             const AnalysisSettings before = p.Data().analysis;
             p.PutCost(0, 11);
             p.SetAnalysis(before);
             p.PutCost(0, 12);
         },
         false},
        {"suspending",
         [](LivePlan& p) {
             p.PutAutoCalculate(false);
             p.PutAutoCalculate(true);
         },
         true},
    };
    for (const Row& row : rows) {
        LivePlan plan(data);
        AnalysisSettings settings;
        settings.upToDate = true;
        plan.SetAnalysis(settings);
        const std::uint64_t before = plan.Changes();
        row.change(plan);
        EXPECT_EQ(plan.ResultsUpToDate(), row.stillUpToDate) << row.what;
        const std::uint64_t after = plan.Changes();
        EXPECT_EQ(after == before, row.stillUpToDate) << row.what;
        plan.PutDuration(0, 7);
        EXPECT_GT(plan.Changes(), after) << row.what;
        EXPECT_EQ(plan.FinishDate(), kMonday + 7) << row.what;
    }
}

}  // namespace
}  // namespace refhost
