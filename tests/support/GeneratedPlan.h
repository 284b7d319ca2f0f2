#pragma once

#include <algorithm>
#include <random>
#include <string>

#include "refhost/engine/PlanData.h"

namespace refhost {

/// What a generated plan is made of.
struct PlanRecipe {
    std::size_t tasks = 1280;
    int factors = 20;
    int drawnOf = 1;  ///< one task of so many has a three-point duration
};

/// A plan of the given size, always the same: about three links for two tasks from the thirty
/// tasks before, one cost item a task, two factors each on a third of the tasks (half of those
/// in series, half in parallel), a register of certain and uncertain factors.
inline PlanData GeneratedPlan(const PlanRecipe& recipe) {
    std::mt19937 random(12345);
    const auto below = [&](std::uint32_t bound) {
        return static_cast<std::uint32_t>(random()) % bound;
    };
    PlanData plan;
    plan.name = "Generated " + std::to_string(recipe.tasks);
    plan.start = Minute{46027} * kMinutesPerDay + 480;
    std::string text = "<RiskFactors Version=\"RiskFactors1.00\">";
    for (int f = 1; f <= recipe.factors; ++f)
        text += "<RiskFactor ID=\"" + std::to_string(f) + "\"><Name>Factor " + std::to_string(f) +
                "</Name><Minimum>90</Minimum><MostLikely>100</MostLikely><Maximum>140</Maximum>"
                "<CostMinimum>95</CostMinimum><CostMostLikely>100</CostMostLikely><CostMaximum>" +
                std::to_string(110 + f) + "</CostMaximum><Probability>" +
                std::to_string(f % 4 == 0 ? 100 : 15 + 3 * f) +
                "</Probability><DurSens>100</DurSens><CostSens>100</CostSens><CorrelatedTo>" +
                (f % 7 == 0 ? "1" : "0") + "</CorrelatedTo></RiskFactor>";
    plan.texts.emplace_back("RiskFactors", text + "</RiskFactors>");
    for (std::size_t i = 0; i < recipe.tasks; ++i) {
        TaskData task;
        task.id = std::to_string(i + 1);
        task.name = "Task " + task.id;
        task.duration = 480 + static_cast<std::int32_t>(below(2400));
        if (i % static_cast<std::size_t>(recipe.drawnOf) == 0)
            task.distribution =
                ThreePoint{0, task.duration * 0.8, task.duration * 1.0, task.duration * 1.5};
        for (std::uint32_t l = 0; i > 0 && l < 1 + below(2); ++l) {
            const std::size_t back =
                1 + below(static_cast<std::uint32_t>(std::min<std::size_t>(i, 30)));
            task.links.push_back({std::to_string(i + 1 - back), LinkType::FinishToStart, 0});
        }
        task.costItems.push_back({"Cost", 1000.0 + below(10000)});
        if (i % 3 == 0 && recipe.factors > 0) {
            const auto factor = [&] {
                return std::to_string(1 + below(static_cast<std::uint32_t>(recipe.factors)));
            };
            const std::string first = factor();
            std::string second = factor();
            const std::string list = first == second ? first : first + "," + second;
            task.userValues.emplace_back("RiskFactors",
                                         i % 2 == 0 ? "(" + list + ")" : "(" + list + "(P))");
        }
        plan.tasks.push_back(std::move(task));
    }
    return plan;
}

}  // namespace refhost
