#include "refhost/engine/WorkCalendar.h"

#include <gtest/gtest.h>

#include "base/Errors.h"

namespace refhost {
namespace {

// 2026-01-05 is a Monday, day 46027 since 1899-12-30.
constexpr std::int32_t kMonday = 46027;

constexpr Minute At(std::int32_t day, int hour, int minute = 0) {
    return (kMonday + day) * kMinutesPerDay + hour * 60 + minute;
}

Calendar WithHolidayOnTuesdayAndShortSaturday() {
    Calendar calendar = Calendar::Standard();
    calendar.exceptions[kMonday + 1] = {};
    calendar.exceptions[kMonday + 5] = {{9 * 60, 12 * 60}};
    return calendar;
}

Calendar AroundTheClockOnMondayAndTuesday() {
    Calendar calendar;
    calendar.week[0] = calendar.week[1] = {{0, 6 * 60}, {22 * 60, 24 * 60}};
    return calendar;
}

TEST(WorkCalendar, FindsTheEarliestInstantByWhichTheWorkingMinutesHavePassed) {
    const struct {
        const char* what;
        Calendar calendar;
        Minute start;
        std::int64_t working;
        Minute date;
    } cases[] = {
        {"zero is the start itself", Calendar::Standard(), At(0, 8), 0, At(0, 8)},
        {"end of a shift stays before the break", Calendar::Standard(), At(0, 8), 240, At(0, 12)},
        {"first minute after the break", Calendar::Standard(), At(0, 8), 241, At(0, 13, 1)},
        {"end of a day stays on it", Calendar::Standard(), At(0, 8), 480, At(0, 17)},
        {"end of a week stays on Friday", Calendar::Standard(), At(0, 8), 2400, At(4, 17)},
        {"over the weekend", Calendar::Standard(), At(0, 8), 2401, At(7, 8, 1)},
        {"start inside a shift", Calendar::Standard(), At(0, 10, 30), 91, At(0, 13, 1)},
        {"start in a break", Calendar::Standard(), At(0, 12, 15), 0, At(0, 13)},
        {"start at the end of a day", Calendar::Standard(), At(0, 17), 0, At(1, 8)},
        {"start on a Saturday", Calendar::Standard(), At(5, 9), 480, At(7, 17)},
        {"start on a holiday", WithHolidayOnTuesdayAndShortSaturday(), At(1, 10), 1, At(2, 8, 1)},
        {"holiday skipped", WithHolidayOnTuesdayAndShortSaturday(), At(0, 8), 481, At(2, 8, 1)},
        {"working Saturday", WithHolidayOnTuesdayAndShortSaturday(), At(4, 8), 660, At(5, 12)},
        {"end at midnight", AroundTheClockOnMondayAndTuesday(), At(0, 0), 480, At(0, 24)},
        {"over midnight", AroundTheClockOnMondayAndTuesday(), At(0, 0), 481, At(1, 0, 1)},
        {"before day 0", Calendar::Standard(), -5 * kMinutesPerDay + 9 * 60, 421,
         -4 * kMinutesPerDay + 8 * 60 + 1},
        {"fifty years on", Calendar::Standard(), At(0, 8), 480 * 5 * 52 * 50, At(18197, 17)},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        WorkCalendar axis(c.calendar, c.start);
        EXPECT_EQ(axis.DateOf(c.working), c.date);
        EXPECT_EQ(axis.WorkingMinutesUntil(c.date), c.working);
    }
}

TEST(WorkCalendar, CountsNothingOutsideWorkingTime) {
    WorkCalendar axis(WithHolidayOnTuesdayAndShortSaturday(), At(0, 10));
    const struct {
        Minute date;
        std::int64_t working;
    } cases[] = {{At(-7, 12), 0},   {At(0, 9), 0},   {At(0, 12, 30), 120}, {At(0, 23), 360},
                 {At(1, 10), 360},  {At(2, 8), 360}, {At(5, 8), 1800},     {At(5, 10), 1860},
                 {At(6, 12), 1980}, {At(0, 11), 60}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.date - At(0, 0));
        EXPECT_EQ(axis.WorkingMinutesUntil(c.date), c.working);
    }
}

TEST(WorkCalendar, BothDirectionsAreInverseToTheMinute) {
    for (const Calendar& calendar :
         {WithHolidayOnTuesdayAndShortSaturday(), AroundTheClockOnMondayAndTuesday()}) {
        WorkCalendar forward(calendar, At(0, 3, 17));
        WorkCalendar backward(calendar, At(0, 3, 17));
        Minute last = 0;
        for (std::int64_t working = 6000; working > 0; --working) {
            const Minute date = backward.DateOf(working);
            ASSERT_EQ(forward.WorkingMinutesUntil(date), working);
            ASSERT_EQ(forward.WorkingMinutesUntil(date - 1), working - 1);
            if (last != 0) {
                ASSERT_LT(date, last);
            }
            last = date;
        }
    }
}

TEST(WorkCalendar, TellsWhenThereIsNoWorkingTimeLeft) {
    EXPECT_THROW(WorkCalendar(Calendar{}, At(0, 8)), kestrel::DataError);

    Calendar oneDay;
    oneDay.exceptions[kMonday] = {{8 * 60, 9 * 60}};
    EXPECT_THROW(WorkCalendar(oneDay, At(0, 9)), kestrel::DataError);
    WorkCalendar axis(oneDay, At(0, 8));
    EXPECT_EQ(axis.DateOf(60), At(0, 9));
    EXPECT_THROW(axis.DateOf(61), kestrel::DataError);
    EXPECT_EQ(axis.WorkingMinutesUntil(At(400, 8)), 60);

    WorkCalendar endless(Calendar::Standard(), At(0, 8));
    EXPECT_THROW(endless.DateOf(std::int64_t{1} << 40), kestrel::DataError);
    EXPECT_EQ(endless.DateOf(480), At(0, 17));
    EXPECT_THROW(endless.WorkingMinutesUntil(At(3'000'000, 8)), kestrel::DataError);
}

}  // namespace
}  // namespace refhost
