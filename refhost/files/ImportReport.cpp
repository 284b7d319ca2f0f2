#include "refhost/files/ImportReport.h"

#include <cstdlib>

namespace refhost {
namespace {

std::string Counted(Minute count, const std::string& unit) {
    return std::to_string(count) + " " + unit + (count == 1 ? "" : "s");
}

}  // namespace

std::string ShiftText(Minute shift) {
    const Minute size = std::abs(shift);
    const std::string length = size >= kMinutesPerDay
                                   ? Counted((size + kMinutesPerDay / 2) / kMinutesPerDay, "day")
                               : size >= 60 ? Counted((size + 30) / 60, "hour")
                                            : Counted(size, "minute");
    return length + (shift < 0 ? " earlier" : " later");
}

std::string DatesLine(const DateComparison& dates) {
    if (!dates.failure.empty()) return "dates are not compared with the file's: " + dates.failure;
    if (dates.compared == 0) return "the file gives no dates to compare with";
    std::string line;
    if (dates.moved.empty()) {
        line = dates.compared == 1 ? "the only task keeps its dates"
                                   : "all " + Counted(dates.compared, "task") + " keep their dates";
    } else {
        const MovedTask& first = dates.moved.front();
        line = std::to_string(dates.compared - static_cast<int>(dates.moved.size())) + " of " +
               Counted(dates.compared, "task") + " keep their dates; the largest shift is " +
               ShiftText(first.shift) + ", " + first.id + " " + first.name;
    }
    if (!dates.finishShift) return line;
    return line + (*dates.finishShift == 0 ? "; the finish stays"
                                           : "; the finish moves " + ShiftText(*dates.finishShift));
}

std::string MoneyLine(const MoneyReading& money) {
    if (!money.fileHasCosts) return {};
    const bool whole = money.unit == CostUnit::Whole;
    const std::string taken =
        whole ? "money is read as whole units" : "money is read as hundredths";
    if (money.asked) return taken + ", as asked";
    if (money.assignments == 0) return taken + ", as the format's own program writes it";
    return taken + ", as rate and work of " + Counted(money.assignments, "assignment") +
           (money.assignments == 1 ? " shows" : " show");
}

}  // namespace refhost
