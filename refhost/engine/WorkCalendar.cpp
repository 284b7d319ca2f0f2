#include "refhost/engine/WorkCalendar.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "base/Errors.h"

namespace refhost {
namespace {

constexpr std::int64_t kLastDay = 2958465;  // 9999-12-31

std::int64_t DayOf(Minute instant) {
    const std::int64_t day = instant / kMinutesPerDay;
    return instant % kMinutesPerDay < 0 ? day - 1 : day;
}

/// Working minutes of the day before `minute`, counted from its midnight.
std::int64_t MinutesBefore(const Shifts& shifts, Minute minute) {
    Minute sum = 0;
    for (const Shift& shift : shifts)
        if (minute > shift.from) sum += std::min<Minute>(minute, shift.to) - shift.from;
    return sum;
}

/// Minutes from midnight by which `working` (> 0, at most the day's) minutes have passed.
Minute MinuteWithin(const Shifts& shifts, std::int64_t working) {
    for (const Shift& shift : shifts) {
        if (working <= shift.to - shift.from) return shift.from + working;
        working -= shift.to - shift.from;
    }
    throw std::logic_error("a day holds less working time than the table says");
}

}  // namespace

WorkCalendar::WorkCalendar(Calendar calendar, Minute start) : calendar_(std::move(calendar)) {
    worksWeekly_ = std::any_of(calendar_.week.begin(), calendar_.week.end(),
                               [](const Shifts& shifts) { return !shifts.empty(); });
    Minute within = start - DayOf(start) * kMinutesPerDay;
    for (firstDay_ = DayOf(start);; ++firstDay_, within = 0) {
        if (!WorksOnOrAfter(firstDay_))
            throw kestrel::DataError(
                "The calendar has no working time at or after the plan's start; add working days "
                "to the calendar or start the plan earlier.");
        const Shifts& shifts = calendar_.On(firstDay_);
        const auto shift = std::find_if(shifts.begin(), shifts.end(),
                                        [within](const Shift& s) { return s.to > within; });
        if (shift == shifts.end()) continue;
        origin_ = firstDay_ * kMinutesPerDay + std::max<Minute>(within, shift->from);
        skipped_ = MinutesBefore(shifts, within);
        return;
    }
}

Minute WorkCalendar::DateOf(std::int64_t working) {
    if (working < 0) throw std::logic_error("a plan has no working time before its start");
    if (working == 0) return origin_;
    while (Before(passed_.size()) < working) {
        if (!WorksOnOrAfter(firstDay_ + static_cast<std::int64_t>(passed_.size())))
            throw kestrel::DataError(
                "The calendar has less working time than the plan needs up to the end of the year "
                "9999; add working days to the calendar or shorten the tasks.");
        AddDay();
    }
    const auto day = std::lower_bound(passed_.begin(), passed_.end(), working) - passed_.begin();
    return (firstDay_ + day) * kMinutesPerDay +
           MinuteWithin(calendar_.On(firstDay_ + day),
                        working - Before(static_cast<std::size_t>(day)));
}

Minute WorkCalendar::StartOf(std::int64_t working, bool goesOn) {
    return goesOn ? DateOf(working + 1) - 1 : DateOf(working);
}

std::int64_t WorkCalendar::WorkingMinutesUntil(Minute date) {
    if (date <= origin_) return 0;
    const std::int64_t day = DayOf(date);
    const auto index = static_cast<std::size_t>(day - firstDay_);
    while (passed_.size() < index) AddDay();
    return Before(index) + MinutesBefore(calendar_.On(day), date - day * kMinutesPerDay);
}

bool WorkCalendar::WorksOnOrAfter(std::int64_t day) const {
    if (day > kLastDay) return false;
    return worksWeekly_ || (!calendar_.exceptions.empty() &&
                            day <= static_cast<std::int64_t>(calendar_.exceptions.rbegin()->first));
}

void WorkCalendar::AddDay() {
    const std::int64_t day = firstDay_ + static_cast<std::int64_t>(passed_.size());
    if (day > kLastDay)
        throw kestrel::DataError("A date lies beyond the year 9999; choose an earlier one.");
    passed_.push_back(Before(passed_.size()) + MinutesBefore(calendar_.On(day), kMinutesPerDay));
}

}  // namespace refhost
