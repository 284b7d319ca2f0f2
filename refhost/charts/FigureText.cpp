#include "refhost/charts/FigureText.h"

#include <chrono>
#include <cmath>

#include "base/NumberText.h"

namespace refhost {
namespace {

std::string Padded(std::int64_t number, std::size_t digits) {
    std::string text = std::to_string(number);
    return std::string(digits > text.size() ? digits - text.size() : 0, '0') + text;
}

/// The text with a comma after every third digit that stands before `point`.
std::string Grouped(std::string text, std::size_t point) {
    const std::size_t first = text[0] == '-' ? 1 : 0;
    for (std::size_t at = point; at > first + 3;) {
        at -= 3;
        text.insert(at, ",");
    }
    return text;
}

}  // namespace

std::string DateAndTimeText(Minute date, const std::string& between) {
    using namespace std::chrono;
    const sys_days day = sys_days(year{1899} / December / 30) + days(date / kMinutesPerDay);
    const year_month_day calendarDay(day);
    const std::int64_t minute = date % kMinutesPerDay;
    return Padded(static_cast<int>(calendarDay.year()), 4) + "-" +
           Padded(static_cast<unsigned>(calendarDay.month()), 2) + "-" +
           Padded(static_cast<unsigned>(calendarDay.day()), 2) + between + Padded(minute / 60, 2) +
           ":" + Padded(minute % 60, 2);
}

std::string SerialText(double serial) {
    return DateAndTimeText(static_cast<Minute>(std::llround(serial * kMinutesPerDay)));
}

std::string MoneyText(double amount) {
    const std::string text = kestrel::FixedText(amount, 2);
    return Grouped(text, text.find('.'));
}

std::string WholeMoneyText(double amount) {
    const std::string text = kestrel::FixedText(amount, 0);
    return Grouped(text, text.size());
}

std::string DurationText(std::int64_t minutes, std::int64_t minutesPerDay) {
    const std::int64_t days = minutes / minutesPerDay;
    const std::int64_t hours = minutes % minutesPerDay / 60;
    const std::int64_t rest = minutes % minutesPerDay % 60;
    std::string text;
    const auto add = [&text](std::int64_t count, const char* unit) {
        if (count == 0) return;
        if (!text.empty()) text += " ";
        text += std::to_string(count) + unit;
    };
    add(days, "d");
    add(hours, "h");
    add(rest, "m");
    return text.empty() ? "0d" : text;
}

}  // namespace refhost
