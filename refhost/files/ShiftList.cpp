#include "refhost/files/ShiftList.h"

#include <algorithm>

#include "refhost/files/ValueText.h"

namespace refhost {
namespace {

std::string ShiftText(const Shift& shift) {
    return "from " + TimeText(shift.from) + " to " + TimeText(shift.to);
}

}  // namespace

std::optional<std::string> AddShift(Shifts& shifts, const Shift& shift) {
    if (shift.from >= shift.to)
        return "the shift " + ShiftText(shift) +
               " does not end after it starts; correct its times, and split a shift that runs "
               "over midnight in two.";
    const auto next = std::find_if(shifts.begin(), shifts.end(),
                                   [&shift](const Shift& other) { return other.to > shift.from; });
    if (next != shifts.end() && next->from < shift.to)
        return "the shift " + ShiftText(shift) + " overlaps the one " + ShiftText(*next) +
               "; correct their times.";
    shifts.insert(next, shift);
    return std::nullopt;
}

}  // namespace refhost
