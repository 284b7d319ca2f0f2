#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "refhost/files/project/ProjectNode.h"

namespace refhost {

/// Days since 1899-12-30, both included.
struct DayRange {
    std::int64_t first = 0;
    std::int64_t last = -1;
};

/// The TimePeriod of a calendar exception or a work week; nothing without dates from 1900 to
/// 9999. Raises kestrel::DataError, naming file and line, when it ends before it begins.
std::optional<DayRange> ReadTimePeriod(const ProjectNode& node);

/// The days on which a calendar exception of any type falls (daily, weekly, monthly, yearly, by
/// day of the month or by position) within its period. What is longer than a month, or recurs, is
/// followed within `horizon` only; a day that a month lacks is its last. Raises
/// kestrel::DataError, naming file and line, for a recurrence that cannot be understood.
std::vector<std::int32_t> ExceptionDays(const ProjectNode& exception, const DayRange& period,
                                        const DayRange& horizon);

}  // namespace refhost
