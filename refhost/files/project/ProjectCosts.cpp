#include "refhost/files/project/ProjectCosts.h"

#include <cmath>

namespace refhost {
namespace {

/// Less than half a hundredth is the rounding of the file's sums.
constexpr double kLeastDifference = 0.005;

MoneyReading ChooseUnit(const ProjectAssignments& assignments, const ImportOptions& options) {
    MoneyReading money;
    money.asked = options.costs.has_value();
    const bool whole = assignments.inWhole > assignments.inHundredths;
    money.unit = options.costs.value_or(whole ? CostUnit::Whole : CostUnit::Hundredths);
    money.assignments = whole ? assignments.inWhole : assignments.inHundredths;
    return money;
}

}  // namespace

MoneyReading ReadCosts(const ProjectOutline& outline, const ProjectAssignments& assignments,
                       const ImportOptions& options, std::vector<TaskData>& tasks) {
    MoneyReading money = ChooseUnit(assignments, options);
    const double unit = money.unit == CostUnit::Whole ? 1 : 100;
    for (std::size_t i = 0; i < tasks.size(); ++i) {
        const ProjectNode& node = outline.rows[i].node;
        std::vector<CostEntry>& items = tasks[i].costItems;
        const double fixed = node.Number("FixedCost").value_or(0);
        double sum = fixed;
        if (fixed != 0) items.push_back({"Fixed cost", fixed / unit});
        for (const TaskAssignments::Cost& cost : assignments.tasks[i].costs) {
            sum += cost.amount;
            items.push_back({cost.resource, cost.amount / unit});
        }
        // A summary's Cost is the sum of its tasks'.
        const double own = outline.rows[i].summary ? sum : node.Number("Cost").value_or(sum);
        if (std::abs(own - sum) / unit >= kLeastDifference)
            items.push_back({"Other cost", (own - sum) / unit});
        money.fileHasCosts |= !items.empty();
    }
    return money;
}

}  // namespace refhost
