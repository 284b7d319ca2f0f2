#include "refhost/files/ValueText.h"

#include <algorithm>
#include <chrono>

#include "base/Errors.h"
#include "base/NumberText.h"

namespace refhost {
namespace {

constexpr std::chrono::sys_days kDayZero{std::chrono::year{1899} / 12 / 30};

/// Whether the text looks like the pattern, in which "0" stands for any digit.
bool Matches(std::string_view text, std::string_view pattern) {
    return std::equal(text.begin(), text.end(), pattern.begin(), pattern.end(),
                      [](char c, char p) { return p == '0' ? c >= '0' && c <= '9' : c == p; });
}

/// The number that stands at the given place; the pattern has been checked.
int DigitsAt(std::string_view text, std::size_t position, std::size_t count) {
    return ReadInteger<int>(text.substr(position, count)).value_or(0);
}

std::string Padded(int value, std::size_t width) {
    const std::string digits = std::to_string(value);
    return std::string(width - std::min(width, digits.size()), '0') + digits;
}

}  // namespace

std::optional<std::int32_t> ReadDate(std::string_view text) {
    if (!Matches(text, "0000-00-00")) return std::nullopt;
    const std::chrono::year_month_day date{
        std::chrono::year{DigitsAt(text, 0, 4)},
        std::chrono::month{static_cast<unsigned>(DigitsAt(text, 5, 2))},
        std::chrono::day{static_cast<unsigned>(DigitsAt(text, 8, 2))}};
    if (!date.ok()) return std::nullopt;
    const auto day = (std::chrono::sys_days{date} - kDayZero).count();
    if (day < kFirstFileDay || day > kLastFileDay) return std::nullopt;
    return static_cast<std::int32_t>(day);
}

std::string DateText(std::int32_t day) {
    const std::chrono::year_month_day date{kDayZero + std::chrono::days{day}};
    return Padded(static_cast<int>(date.year()), 4) + "-" +
           Padded(static_cast<int>(static_cast<unsigned>(date.month())), 2) + "-" +
           Padded(static_cast<int>(static_cast<unsigned>(date.day())), 2);
}

std::optional<Minute> ReadDateTime(std::string_view text) {
    constexpr std::size_t kDateLength = 10;
    if (!Matches(text, "0000-00-00T00:00:00") || !text.ends_with(":00")) return std::nullopt;
    const auto day = ReadDate(text.substr(0, kDateLength));
    const auto minutes = ReadTime(text.substr(kDateLength + 1, 5));
    if (!day || !minutes || *minutes == kMinutesPerDay) return std::nullopt;
    return *day * kMinutesPerDay + *minutes;
}

std::string DateTimeText(Minute instant) {
    const Minute within = (instant % kMinutesPerDay + kMinutesPerDay) % kMinutesPerDay;
    const auto day = static_cast<std::int32_t>((instant - within) / kMinutesPerDay);
    return DateText(day) + "T" + TimeText(static_cast<int>(within)) + ":00";
}

std::optional<int> ReadTime(std::string_view text) {
    if (!Matches(text, "00:00")) return std::nullopt;
    const int hours = DigitsAt(text, 0, 2);
    const int minutes = DigitsAt(text, 3, 2);
    if (minutes > 59 || hours * 60 + minutes > kMinutesPerDay) return std::nullopt;
    return hours * 60 + minutes;
}

std::string TimeText(int minutes) {
    return Padded(minutes / 60, 2) + ":" + Padded(minutes % 60, 2);
}

std::optional<bool> ReadBoolean(std::string_view text) {
    if (text == "true") return true;
    if (text == "false") return false;
    return std::nullopt;
}

std::string BooleanText(bool value) { return value ? "true" : "false"; }

std::optional<double> ReadNumber(std::string_view text) {
    try {
        return kestrel::ParseNumber(text);
    } catch (const kestrel::DataError&) {
        return std::nullopt;
    }
}

std::string RoundTripText(double value) {
    std::array<char, 32> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return std::string(buffer.data(), written.ptr);
}

}  // namespace refhost
