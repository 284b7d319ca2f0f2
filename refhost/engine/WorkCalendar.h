#pragma once

#include <cstdint>
#include <vector>

#include "refhost/engine/PlanData.h"

namespace refhost {

/// The working-minute axis of a plan. Its 0 is the first working instant at or after the plan's
/// start.
///
/// Days are tabulated as they are asked for, so neither the plan's length nor the calendar's
/// number of exceptions costs anything afterwards: a lookup is a binary search among the days.
class WorkCalendar {
 public:
    /// Raises kestrel::DataError when the calendar has no working time at or after `start`.
    WorkCalendar(Calendar calendar, Minute start);

    /// The earliest instant by which `working` (>= 0) working minutes have passed, so that the
    /// end of a shift stays on its day; for 0 the first working instant itself. Raises
    /// kestrel::DataError beyond the year 9999, or when the calendar runs out of working time.
    Minute DateOf(std::int64_t working);

    /// When work begins that has `working` minutes before it: the start of a shift rather than
    /// the end of the one before. What does not go on from there (a milestone) stays at DateOf.
    Minute StartOf(std::int64_t working, bool goesOn);

    /// Working minutes from the plan's start to `date`; 0 for a date before the start. Raises
    /// kestrel::DataError beyond the year 9999.
    std::int64_t WorkingMinutesUntil(Minute date);

 private:
    bool WorksOnOrAfter(std::int64_t day) const;
    /// Tabulates one more day. Raises kestrel::DataError beyond the year 9999.
    void AddDay();
    /// Working minutes before the table's day `index`.
    std::int64_t Before(std::size_t index) const {
        return index == 0 ? -skipped_ : passed_[index - 1];
    }

    Calendar calendar_;
    bool worksWeekly_ = false;   ///< some week day has working time
    std::int64_t firstDay_ = 0;  ///< the day of the axis's 0, since 1899-12-30
    Minute origin_ = 0;          ///< the axis's 0
    std::int64_t skipped_ = 0;   ///< working minutes of the first day before the axis's 0
    /// Working minutes passed at the end of each day, from the first day on.
    std::vector<std::int64_t> passed_;
};

}  // namespace refhost
