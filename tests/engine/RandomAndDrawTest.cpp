#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "base/Errors.h"
#include "refhost/engine/DurationSampler.h"
#include "refhost/engine/HostGroups.h"
#include "refhost/engine/Statistics.h"
#include "refhost/engine/Triangular.h"

namespace refhost {
namespace {

TEST(RandomStream, GivesTheStandardTwistersNumbersInPiecesOfAnySize) {
    for (const std::uint64_t seed : {std::uint64_t{0}, std::uint64_t{1}, std::uint64_t{20260105},
                                     std::numeric_limits<std::uint64_t>::max()}) {
        std::mt19937_64 standard(seed);
        RandomStream stream(seed);
        std::vector<double> piece;
        for (std::size_t size = 0; size < 700; size = 2 * size + 1) {
            piece.assign(size, -1);
            stream.Fill(piece);
            piece.push_back(stream.Next());
            for (const double number : piece)
                ASSERT_EQ(number, static_cast<double>(standard() >> 11) * 0x1p-53) << seed;
        }
    }
}

TEST(Triangular, DrawsByInversionWhateverTheOrderOfThePoints) {
    struct Row {
        double lo, ml, hi, u, expected;
    };
    const Row rows[] = {
        {8, 10, 14, 0, 8},
        {8, 10, 14, 1.0 / 3, 10},
        {8, 10, 14, 0.5, 14 - std::sqrt(12.0)},
        {8, 8, 14, 0.25, 14 - std::sqrt(0.75 * 36)},
        {8, 14, 14, 0.25, 8 + std::sqrt(0.25 * 36)},
        {5, 5, 5, 0.7, 5},
        {9, 7, 5, 0.7, 9},
        {8, 6, 14, 0.5, 14 - std::sqrt(0.5 * 6 * 8)},
        {8, 16, 14, 0.5, 8 + std::sqrt(0.5 * 6 * 8)},
    };
    for (const Row& row : rows)
        EXPECT_DOUBLE_EQ(Triangular(row.lo, row.ml, row.hi).Draw(row.u), row.expected)
            << row.lo << " " << row.ml << " " << row.hi << " at " << row.u;
}

PlanData PlanWithDistributions() {
    PlanData plan;
    plan.start = Minute{46027} * kMinutesPerDay;
    for (int i = 0; i < 7; ++i) {
        TaskData task;
        task.id = std::to_string(i);
        task.duration = 1000 + i;
        if (i != 3) task.distribution = ThreePoint{0, 10.0 * i, 400.0 + i, 900.5 + 100 * i};
        plan.tasks.push_back(task);
    }
    plan.tasks[5].distribution = ThreePoint{0, 2.5, 2.5, 2.5};
    return plan;
}

TEST(DurationSampler, DrawsInPlanOrderRoundedHalfToEven) {
    const PlanData data = PlanWithDistributions();
    const LivePlan plan(data);
    DurationSampler sampler(plan);
    RandomStream stream(9), same(9);
    for (int round = 0; round < 100; ++round) {
        const auto drawn = sampler.Draw(stream);
        for (std::size_t i = 0; i < data.tasks.size(); ++i) {
            if (!data.tasks[i].distribution) {
                EXPECT_EQ(drawn[i], 1003);
                continue;
            }
            const ThreePoint& points = *data.tasks[i].distribution;
            const double exact =
                Triangular(points.minimum, points.mostLikely, points.maximum).Draw(same.Next());
            EXPECT_EQ(drawn[i], std::nearbyint(exact)) << exact;
        }
        EXPECT_EQ(drawn[5], 2);
    }
}

TEST(DurationSampler, RefusesADistributionThatADurationCannotHold) {
    PlanData data = PlanWithDistributions();
    data.tasks[2].name = "Dredging";
    data.tasks[2].distribution->maximum = 3e9;
    const LivePlan plan(data);
    try {
        DurationSampler sampler(plan);
        FAIL() << "accepted";
    } catch (const kestrel::ArithmeticError& error) {
        EXPECT_NE(std::string(error.what()).find("2 - Dredging"), std::string::npos);
    }
}

TEST(Groups, DrawEveryMemberInOrderOfCreationAsGroupsAndShapesAreNow) {
    const auto groups = std::make_shared<HostGroupCollection>();
    const auto add = [&](const char* group, const char* name, double low) {
        if (!groups->Item(group)) groups->Add(group);
        const auto member = groups->Item(group)->Members()->Add(name);
        const auto shape = member->Distribution(true);
        shape->PutMinimum(low);
        shape->PutMostLikely(low);
        shape->PutMaximum(low + 1);
        return member;
    };
    const auto late = add("Z", "1", 0), other = add("A", "1", 100), last = add("Z", "2", 200);
    groups->Item("A")->Members()->Add("no distribution");
    RandomStream stream(7), same(7);
    const auto expectDrawn = [&](const host::MemberPtr& member, double low) {
        EXPECT_EQ(member->SampledValue(), Triangular(low, low, low + 1).Draw(same.Next())) << low;
    };
    groups->Sample(stream);
    expectDrawn(late, 0);
    expectDrawn(last, 200);
    expectDrawn(other, 100);
    groups->Remove("Z");
    other->Distribution(false)->PutMaximum(501);
    other->Distribution(false)->PutMostLikely(500);
    other->Distribution(false)->PutMinimum(500);
    const auto added = add("Z", "1", 300);
    groups->Sample(stream);
    expectDrawn(other, 500);
    expectDrawn(added, 300);
    EXPECT_THROW(groups->Remove("removed"), kestrel::HostError);
}

TEST(Percentile, InterpolatesBetweenOrderStatistics) {
    const std::vector<double> values{1, 2, 4, 8, 16};
    for (const auto& [share, expected] :
         {std::pair{0.0, 1.0}, {0.1, 1.4}, {0.5, 4.0}, {0.8, 9.6}, {0.9, 12.8}, {1.0, 16.0}})
        EXPECT_NEAR(Percentile(values, share), expected, 1e-12) << share;
    EXPECT_EQ(Summarise({7}).p90, 7);
    EXPECT_EQ(Summarise({7}).sd, 0);
}

}  // namespace
}  // namespace refhost
