#include "refhost/gantt/TimeScale.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace refhost {
namespace {

using Unit = CalendarUnit;
using Name = UnitName;

struct Band {
    Unit unit;
    Name name;
};

/// Labels fit their cells at 11 units of text.
struct ZoomLevel {
    double unitsPerDay;
    Band upper;
    Band lower;
};

constexpr ZoomLevel kZoomLevels[] = {
    {0.1, {Unit::Decade, Name::Decade}, {Unit::Year, Name::Year}},
    {0.3, {Unit::Year, Name::Year}, {Unit::Quarter, Name::Quarter}},
    {0.6, {Unit::Year, Name::Year}, {Unit::Quarter, Name::Quarter}},
    {1.1, {Unit::Year, Name::Year}, {Unit::Month, Name::Month}},
    {2, {Unit::Year, Name::Year}, {Unit::Month, Name::Month}},
    {2.8, {Unit::Month, Name::ShortMonthYear}, {Unit::Week, Name::DayOfMonth}},
    {4, {Unit::Month, Name::MonthYear}, {Unit::Week, Name::DayOfMonth}},
    {8, {Unit::Month, Name::MonthYear}, {Unit::Week, Name::DayAndMonth}},
    {18, {Unit::Month, Name::MonthYear}, {Unit::Day, Name::DayOfMonth}},
    {44, {Unit::Week, Name::FullDate}, {Unit::Day, Name::WeekDay}},
    {136, {Unit::Day, Name::FullDate}, {Unit::SixHours, Name::HourOfDay}},
    {264, {Unit::Day, Name::WeekDayDate}, {Unit::TwoHours, Name::HourOfDay}},
    {624, {Unit::Day, Name::WeekDayDate}, {Unit::Hour, Name::HourOfDay}},
};
constexpr int kUsualLevel = 5;

constexpr Minute kFirstDate = 2 * kMinutesPerDay;       // 1900-01-01
constexpr Minute kLastDate = 2958465 * kMinutesPerDay;  // 9999-12-31

}  // namespace

TimeScale::TimeScale(Minute origin) : origin_(origin), level_(kUsualLevel) {}

int TimeScale::LevelCount() { return static_cast<int>(std::size(kZoomLevels)); }

void TimeScale::SetLevel(int level) { level_ = std::clamp(level, 0, LevelCount() - 1); }

double TimeScale::UnitsPerDay() const { return kZoomLevels[level_].unitsPerDay; }

void TimeScale::Fit(Minute from, Minute to, double width) {
    for (level_ = LevelCount() - 1; level_ > 0 && X(to) - X(from) > width;) --level_;
}

Minute TimeScale::DateAt(double x) const {
    const double minutes = std::floor(x * kMinutesPerDay / UnitsPerDay());
    const double date = static_cast<double>(origin_) + minutes;
    return static_cast<Minute>(
        std::clamp(date, static_cast<double>(kFirstDate), static_cast<double>(kLastDate)));
}

std::vector<TimeCell> TimeScale::Cells(TimeBand band, double left, double right) const {
    const ZoomLevel& level = kZoomLevels[level_];
    const Band& ruled = band == TimeBand::Upper ? level.upper : level.lower;
    std::vector<TimeCell> cells;
    for (Minute start = StartOfUnit(ruled.unit, DateAt(left)); X(start) < right;) {
        const Minute next = NextUnit(ruled.unit, start);
        cells.push_back({X(start), X(next), UnitText(ruled.name, start)});
        if (next > kLastDate) break;
        start = next;
    }
    return cells;
}

}  // namespace refhost
