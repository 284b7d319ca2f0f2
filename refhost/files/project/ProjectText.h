#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "refhost/engine/PlanData.h"

/// Times and durations as project files spell them: finer than the whole minutes of a plan.
namespace refhost {

/// Whole minutes, rounded to the nearest, halves to even; `exact` when nothing was rounded.
struct RoundedMinutes {
    std::int64_t minutes = 0;
    bool exact = true;
};

/// How many working minutes the longer units of a duration stand for.
struct DurationUnits {
    double day = 480;
    double week = 2400;
    double month = 9600;
};

/// A time of day, "08:00", "08:00:00" or "08:00:00.000", as minutes from midnight, 0 to 1440.
std::optional<RoundedMinutes> ReadProjectTime(std::string_view text);

/// A date, with or without a time, from 1900 to 9999: "2015-02-19T08:00:00".
std::optional<RoundedMinutes> ReadProjectInstant(std::string_view text);

/// A duration of ISO 8601, "PT64H0M0S" or "P1DT4H", as working minutes from 0 to 2147483647. A
/// year is twelve months.
std::optional<RoundedMinutes> ReadProjectDuration(std::string_view text,
                                                  const DurationUnits& units);

/// A lag in tenths of a minute.
std::optional<RoundedMinutes> LagMinutes(double tenths);

}  // namespace refhost
