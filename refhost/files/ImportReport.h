#pragma once

#include <optional>
#include <string>
#include <vector>

#include "refhost/engine/PlanData.h"

/// What a planner is told after a project file has become a plan.
namespace refhost {

/// How a project file writes money. The format's own program writes hundredths.
enum class CostUnit { Hundredths, Whole };

/// How a project file is to be read.
struct ImportOptions {
    std::optional<CostUnit> costs;  ///< nothing: what the file itself shows
    bool keepDates = false;         ///< every task no earlier than its start in the file
};

/// What a project file held that a plan does not, or holds differently, each kind once with its
/// count: {"deadlines", 3, false}.
struct LeftOut {
    std::string what;
    int count = 0;
    bool movesFigures = false;  ///< can move dates or money
};

/// How the file's money was understood.
struct MoneyReading {
    CostUnit unit = CostUnit::Hundredths;
    bool asked = false;   ///< decided by ImportOptions
    int assignments = 0;  ///< whose rate and work show the unit
    bool fileHasCosts = false;
};

/// A task whose dates in the plan are not those in the file. Instants are those that a planner
/// sees; `shift` is how much later the plan is, negative for earlier, the larger of start's and
/// finish's.
struct MovedTask {
    std::string id;
    std::string name;
    std::optional<Minute> fileStart, fileFinish;
    Minute start = 0;
    Minute finish = 0;
    Minute shift = 0;
    /// A link to it has a lag of 0 %: writers of project files often lose the percentage.
    bool zeroPercentLag = false;
};

/// The plan's own dates beside those of the file. Two instants with no working time between
/// them are one date.
struct DateComparison {
    int compared = 0;                   ///< tasks for which the file has dates
    std::vector<MovedTask> moved;       ///< by size of the shift, the largest first
    std::optional<Minute> finishShift;  ///< of the plan, 0 when it stays; nothing: not known
    std::string failure;                ///< why nothing could be compared; empty when all is well
};

struct ImportReport {
    std::vector<LeftOut> leftOut;
    MoneyReading money;
    DateComparison dates;
};

/// "154 of 157 tasks keep their dates; the largest shift is 64 days earlier, 148 Shell; the
/// finish stays".
std::string DatesLine(const DateComparison& dates);
/// "3 days later", "20 minutes earlier".
std::string ShiftText(Minute shift);
/// Which unit was taken for money, and why; empty for a file without costs.
std::string MoneyLine(const MoneyReading& money);

}  // namespace refhost
