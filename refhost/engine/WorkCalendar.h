#pragma once

#include <cstdint>
#include <vector>

#include "refhost/engine/PlanData.h"

namespace refhost {

/// The working-minute axis of a plan. Its 0 is the first working instant at or after the plan's
/// start.
class WorkCalendar {
 public:
    /// Raises kestrel::DataError when the calendar has no working time at or after `start`.
    WorkCalendar(Calendar calendar, Minute start);

    /// The earliest instant by which `working` (>= 0) working minutes have passed, so that the
    /// end of a shift stays on its day; for 0 the first working instant itself. Amortised
    /// constant time for neighbouring values. Raises kestrel::DataError beyond the year 9999, or
    /// when the calendar runs out of working time.
    Minute DateOf(std::int64_t working);

    /// Working minutes from the plan's start to `date`; 0 for a date before the start.
    std::int64_t WorkingMinutesUntil(Minute date);
};

}  // namespace refhost
