#include "refhost/gantt/TimeScale.h"

#include <gtest/gtest.h>

#include <cmath>

#include "refhost/files/ValueText.h"
#include "ui/controls/ChartText.h"

namespace refhost {
namespace {

Minute At(const char* text) { return ReadDateTime(text).value(); }

TEST(CalendarUnitTest, UnitsStartAndEndWithTheCalendar) {
    using Unit = CalendarUnit;
    using Name = UnitName;
    const struct {
        Unit unit;
        const char *date, *start, *next;
        Name name;
        const char* text;
    } rows[] = {
        {Unit::Hour, "2026-02-05T23:59:00", "2026-02-05T23:00:00", "2026-02-06T00:00:00",
         Name::HourOfDay, "23"},
        {Unit::SixHours, "2026-02-05T07:30:00", "2026-02-05T06:00:00", "2026-02-05T12:00:00",
         Name::HourOfDay, "06"},
        {Unit::Day, "2024-02-29T00:00:00", "2024-02-29T00:00:00", "2024-03-01T00:00:00",
         Name::WeekDayDate, "Thursday 29 February 2024"},
        {Unit::Week, "2026-02-08T23:59:00", "2026-02-02T00:00:00", "2026-02-09T00:00:00",
         Name::WeekDay, "Mon 2"},
        {Unit::Week, "2026-01-01T00:00:00", "2025-12-29T00:00:00", "2026-01-05T00:00:00",
         Name::FullDate, "29 December 2025"},
        {Unit::Month, "2024-02-29T12:00:00", "2024-02-01T00:00:00", "2024-03-01T00:00:00",
         Name::MonthYear, "February 2024"},
        {Unit::Month, "2026-12-31T23:59:00", "2026-12-01T00:00:00", "2027-01-01T00:00:00",
         Name::Month, "Dec"},
        {Unit::Quarter, "2026-12-31T23:59:00", "2026-10-01T00:00:00", "2027-01-01T00:00:00",
         Name::Quarter, "Q4"},
        {Unit::Year, "2100-02-28T00:00:00", "2100-01-01T00:00:00", "2101-01-01T00:00:00",
         Name::Year, "2100"},
        {Unit::Decade, "1999-12-31T00:00:00", "1990-01-01T00:00:00", "2000-01-01T00:00:00",
         Name::Decade, "1990s"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(DateTimeText(StartOfUnit(row.unit, At(row.date))), row.start);
        EXPECT_EQ(DateTimeText(NextUnit(row.unit, At(row.date))), row.next);
        EXPECT_EQ(UnitText(row.name, At(row.start)), row.text);
    }
}

TEST(TimeScaleTest, BandsAreGaplessAndTheirLabelsFitAtEveryZoom) {
    TimeScale scale(At("2026-02-02T00:00:00"));
    double lastZoom = 0;
    for (int level = 0; level < TimeScale::LevelCount(); ++level) {
        SCOPED_TRACE(level);
        scale.SetLevel(level);
        EXPECT_GT(scale.UnitsPerDay(), lastZoom);
        lastZoom = scale.UnitsPerDay();
        for (const TimeBand band : {TimeBand::Upper, TimeBand::Lower}) {
            const auto cells = scale.Cells(band, -333, 1777);
            ASSERT_FALSE(cells.empty());
            EXPECT_LE(cells.front().left, -333);
            EXPECT_GE(cells.back().right, 1777);
            EXPECT_LT(cells.size(), 200u);
            for (std::size_t i = 0; i < cells.size(); ++i) {
                EXPECT_TRUE(i == 0 || cells[i].left == cells[i - 1].right);
                EXPECT_LE(kestrel::ui::TextWidth(cells[i].label, 11),
                          cells[i].right - cells[i].left)
                    << cells[i].label;
            }
        }
    }
}

TEST(TimeScaleTest, PlacesAndDatesAgree) {
    TimeScale scale(At("2026-02-02T07:30:00"));
    for (int level = 0; level < TimeScale::LevelCount(); ++level) {
        scale.SetLevel(level);
        const Minute date = At("2027-08-11T16:00:00");
        EXPECT_NEAR(static_cast<double>(scale.DateAt(scale.X(date))), static_cast<double>(date), 1);
    }
    EXPECT_EQ(DateTimeText(scale.DateAt(1e12)), "9999-12-31T00:00:00");
    EXPECT_EQ(DateTimeText(scale.DateAt(-1e12)), "1900-01-01T00:00:00");
    scale.SetLevel(0);
    EXPECT_EQ(scale.Cells(TimeBand::Upper, 2.9e5, 2.95e5).back().label, "9990s")
        << "the last date has a cell, and there is none behind it";
}

TEST(TimeScaleTest, FitShowsAsMuchDetailAsThereIsRoomFor) {
    TimeScale scale(0);
    const Minute day = kMinutesPerDay;
    for (const double width : {100.0, 500.0, 1500.0})
        for (const Minute days : {1, 20, 500, 30000}) {
            scale.Fit(day, day + days * day, width);
            EXPECT_TRUE(scale.Level() == 0 ||
                        static_cast<double>(days) * scale.UnitsPerDay() <= width);
            const int fitted = scale.Level();
            scale.SetLevel(fitted + 1);
            EXPECT_TRUE(fitted == scale.Level() ||
                        static_cast<double>(days) * scale.UnitsPerDay() > width);
        }
}

}  // namespace
}  // namespace refhost
