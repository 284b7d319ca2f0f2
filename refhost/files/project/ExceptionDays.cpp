#include "refhost/files/project/ExceptionDays.h"

#include <algorithm>
#include <chrono>
#include <limits>

#include "refhost/engine/PlanData.h"
#include "refhost/files/ValueText.h"
#include "refhost/files/project/ProjectText.h"

namespace refhost {
namespace {

/// What lasts no longer is kept wherever it lies.
constexpr std::int64_t kShortDays = 31;

enum Type {
    kDaily = 1,
    kYearlyByDay = 2,
    kYearlyByPosition = 3,
    kMonthlyByDay = 4,
    kMonthlyByPosition = 5,
    kWeekly = 6,
    kEveryDays = 7,
    kEveryWeekdays = 8,
    kPlain = 9
};

/// 1899-12-30 as the standard library counts days, from 1970.
constexpr std::int64_t kEpoch =
    std::chrono::sys_days(std::chrono::year(1899) / 12 / 30).time_since_epoch().count();

/// 0 for Sunday: day 0 was a Saturday.
constexpr std::int64_t WeekDayOf(std::int64_t day) { return (day + 6) % 7; }

struct Month {
    std::int64_t first = 0;  ///< day
    std::int64_t length = 0;
};

/// A month counted from January of the year 0.
Month MonthAt(std::int64_t number) {
    using namespace std::chrono;
    const year_month month = year(static_cast<int>(number / 12)) /
                             std::chrono::month(static_cast<unsigned>(number % 12) + 1);
    const std::int64_t first = sys_days(month / 1).time_since_epoch().count() - kEpoch;
    const std::int64_t next = sys_days((month + months(1)) / 1).time_since_epoch().count() - kEpoch;
    return {first, next - first};
}

std::int64_t MonthNumber(std::int64_t day) {
    using namespace std::chrono;
    const year_month_day date{sys_days(days(static_cast<int>(day + kEpoch)))};
    return static_cast<int>(date.year()) * 12 + static_cast<unsigned>(date.month()) - 1;
}

std::int64_t ReadWithin(const ProjectNode& node, const char* child, std::int64_t lowest,
                        std::int64_t highest, std::int64_t absent) {
    const std::int64_t value = node.Integer(child).value_or(absent);
    if (value < lowest || value > highest)
        node.FailValue(child, "a whole number from " + std::to_string(lowest) + " to " +
                                  std::to_string(highest));
    return value;
}

/// MonthItem: 0 any day, 1 Monday to Friday, 2 Saturday or Sunday, 3 Sunday ... 9 Saturday.
bool IsItem(std::int64_t item, std::int64_t day) {
    const std::int64_t weekDay = WeekDayOf(day);
    const bool weekend = weekDay == 0 || weekDay == 6;
    return item == 0 || (item == 1 && !weekend) || (item == 2 && weekend) || item == weekDay + 3;
}

/// The day of a month on which a monthly or yearly exception falls.
class DayOfMonth {
 public:
    /// Where the file does not say, the exception falls on the day of `first`.
    DayOfMonth(const ProjectNode& node, bool byPosition, std::int64_t first)
        : byPosition_(byPosition) {
        if (byPosition) {
            item_ = ReadWithin(node, "MonthItem", 0, 9, 0);
            position_ = ReadWithin(node, "MonthPosition", 0, kLast, 0);
        } else {
            const std::int64_t monthFirst = MonthAt(MonthNumber(first)).first;
            day_ = ReadWithin(node, "MonthDay", 1, 31, first - monthFirst + 1);
        }
    }

    std::int64_t In(const Month& month) const {
        if (!byPosition_) return month.first + std::min(day_, month.length) - 1;
        std::int64_t found = 0;
        for (std::int64_t day = month.first, met = 0; day < month.first + month.length; ++day) {
            if (!IsItem(item_, day)) continue;
            found = day;
            if (position_ != kLast && met++ == position_) break;
        }
        return found;
    }

 private:
    static constexpr std::int64_t kLast = 4;  ///< the positions before: first to fourth

    bool byPosition_;
    std::int64_t item_ = 0, position_ = 0, day_ = 1;
};

/// Walks through the occurrences of one exception.
class Recurrence {
 public:
    Recurrence(const ProjectNode& node, std::int64_t type, const DayRange& period,
               const DayRange& horizon)
        : node_(node), type_(type), period_(period), horizon_(horizon) {
        if (type == kPlain) return;
        constexpr std::int64_t kMost = 1'000'000;
        every_ = std::max<std::int64_t>(ReadWithin(node, "Period", 0, kMost, 1), 1);
        const bool gaps = type != kDaily || every_ > 1;
        if (gaps && node.Flag("EnteredByOccurrences"))
            left_ = ReadWithin(node, "Occurrences", 1, kMost, kMost);
    }

    std::vector<std::int32_t> Days() {
        switch (type_) {
            case kWeekly:
                Weekly();
                break;
            case kYearlyByDay:
            case kYearlyByPosition:
                Monthly(true);
                break;
            case kMonthlyByDay:
            case kMonthlyByPosition:
                Monthly(false);
                break;
            default:
                Daily();
        }
        return std::move(days_);
    }

 private:
    /// Answers whether there may be more.
    bool Meet(std::int64_t day) {
        if (day > period_.last || day > horizon_.last || left_ == 0) return false;
        --left_;
        if (day >= horizon_.first) days_.push_back(static_cast<std::int32_t>(day));
        return true;
    }

    void Daily() {
        if (type_ == kEveryWeekdays) {
            std::int64_t met = 0;
            for (std::int64_t day = period_.first;; ++day)
                if (IsItem(1, day) && met++ % every_ == 0 && !Meet(day)) return;
        }
        for (std::int64_t day = period_.first; Meet(day); day += every_) {
        }
    }

    /// Weeks begin on Sundays.
    void Weekly() {
        const std::int64_t named =
            ReadWithin(node_, "DaysOfWeek", 1, 127, 1 << WeekDayOf(period_.first));
        for (std::int64_t sunday = period_.first - WeekDayOf(period_.first);; sunday += 7 * every_)
            for (std::int64_t weekDay = 0; weekDay < 7; ++weekDay)
                if ((named >> weekDay & 1) != 0 && sunday + weekDay >= period_.first &&
                    !Meet(sunday + weekDay))
                    return;
    }

    void Monthly(bool yearly) {
        const DayOfMonth rule(node_, type_ == kYearlyByPosition || type_ == kMonthlyByPosition,
                              period_.first);
        std::int64_t month = MonthNumber(period_.first);
        if (yearly) month += (ReadWithin(node_, "Month", 0, 11, month % 12) - month % 12 + 12) % 12;
        if (rule.In(MonthAt(month)) < period_.first) month += yearly ? 12 : 1;
        while (Meet(rule.In(MonthAt(month)))) month += yearly ? 12 : every_;
    }

    const ProjectNode& node_;
    std::int64_t type_;
    DayRange period_, horizon_;
    std::int64_t every_ = 1;
    std::int64_t left_ = std::numeric_limits<std::int64_t>::max();  ///< occurrences
    std::vector<std::int32_t> days_;
};

}  // namespace

std::optional<DayRange> ReadTimePeriod(const ProjectNode& node) {
    const auto period = node.Child("TimePeriod");
    if (!period) return std::nullopt;
    // The last minute of a day may be written so finely that it would round to the next one: the
    // date is what counts.
    constexpr std::size_t kDateLength = 10;
    const auto from = ReadDate(period->Word("FromDate").substr(0, kDateLength));
    const auto to = ReadDate(period->Word("ToDate").substr(0, kDateLength));
    if (!from || !to) return std::nullopt;
    if (*to < *from)
        node.Fail("a calendar exception runs from " + period->Word("FromDate") + " to " +
                  period->Word("ToDate") + "; correct its dates.");
    return DayRange{*from, *to};
}

std::vector<std::int32_t> ExceptionDays(const ProjectNode& exception, const DayRange& period,
                                        const DayRange& horizon) {
    const std::int64_t type = ReadWithin(exception, "Type", 0, kPlain, kDaily);
    const bool plain = type == 0 || type == kPlain || period.first == period.last;
    const bool shortRun = (plain || type == kDaily) && period.last - period.first < kShortDays;
    return Recurrence(exception, plain ? std::int64_t{kPlain} : type, period,
                      shortRun ? period : horizon)
        .Days();
}

}  // namespace refhost
