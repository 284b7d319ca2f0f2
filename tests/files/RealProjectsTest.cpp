#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "TestPaths.h"
#include "refhost/files/ValueText.h"
#include "tests/files/ProjectImport.h"

namespace refhost {
namespace {

LoadedPlan ImportFile(const std::string& name) {
    kestrel::PosixDesktop desktop;
    LoadedPlan loaded = ReadPlan(desktop, name);
    EXPECT_EQ(ParsePlan(desktop, WritePlan(loaded.plan), "saved").plan, loaded.plan);
    return loaded;
}

std::string SharedFile(const std::string& name) {
    return std::string(KESTREL_SOURCE_DIR) + "/../shared/data/" + name;
}

TEST(ProjectFile, CarriesARealConstructionSchedule) {
    const std::string path = SharedFile("schependomlaan_2015-02-18.xml");
    if (!std::filesystem::exists(path)) GTEST_SKIP() << path << " is not there";
    const LoadedPlan loaded = ImportFile(path);
    const PlanData& plan = loaded.plan;

    EXPECT_EQ(plan.name, "Schependomlaan Nijmegen");
    EXPECT_EQ(DateTimeText(plan.start), "2015-02-18T08:00:00");
    ASSERT_TRUE(plan.calendar);
    EXPECT_EQ(plan.calendar->week[4], (Shifts{{480, 960}}));
    EXPECT_EQ(plan.calendar->exceptions.at(*ReadDate("2001-03-21")), (Shifts{{0, 480}}));
    std::map<std::string, int> counts;
    for (const TaskData& task : plan.tasks) {
        counts["rows"]++;
        counts["blank names"] += task.name.empty();
        counts["zero durations"] += task.duration == 0;
        counts["links"] += static_cast<int>(task.links.size());
        counts["constraints"] += task.noEarlierThan.has_value();
        counts["costs"] += static_cast<int>(task.costItems.size());
    }
    EXPECT_EQ(counts, (std::map<std::string, int>{{"rows", 157},
                                                  {"blank names", 36},
                                                  {"zero durations", 43},
                                                  {"links", 48},
                                                  {"constraints", 146},
                                                  {"costs", 0}}));
    EXPECT_EQ(Losses(loaded), (std::vector<std::string>{
                                  "WBS codes (114)",
                                  "calendars other than the project's (3)",
                                  "project properties such as title and author (1)",
                                  "values of custom fields other than text (114)",
                              }));
}

TEST(ProjectFile, CarriesALargeNetworkWithCosts) {
    const std::string path = SharedFile("generated_j301x40_1280tasks.xml");
    if (!std::filesystem::exists(path)) GTEST_SKIP() << path << " is not there";
    const LoadedPlan loaded = ImportFile(path);

    EXPECT_EQ(loaded.plan.calendar, Calendar::Standard());
    ASSERT_EQ(loaded.plan.tasks.size(), 1280u);
    std::size_t links = 0;
    double cost = 0;
    for (const TaskData& task : loaded.plan.tasks) {
        links += task.links.size();
        for (const CostEntry& item : task.costItems) cost += item.cost;
    }
    EXPECT_EQ(links, 1959u);
    EXPECT_EQ(loaded.plan.tasks[1].costItems, (std::vector<CostEntry>{{"Fixed cost", 3200}}));
    EXPECT_GT(cost, 3200);
    EXPECT_TRUE(loaded.leftOut.empty());
}

}  // namespace
}  // namespace refhost
