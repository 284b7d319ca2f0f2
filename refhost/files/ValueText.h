#pragma once

#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "refhost/engine/PlanData.h"

/// Dates, times, names and numbers as plan files spell them. A reader answers nothing for text
/// that is not exactly of its form.
namespace refhost {

/// The range of dates that files can hold, in days since 1899-12-30.
inline constexpr std::int32_t kFirstFileDay = 2;       ///< 1900-01-01
inline constexpr std::int32_t kLastFileDay = 2958465;  ///< 9999-12-31

/// In the order of Calendar::week.
inline constexpr std::array<std::string_view, 7> kWeekDayNames = {
    "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"};

/// In the order of LinkType.
inline constexpr std::array<std::string_view, 4> kLinkTypeNames = {"FS", "SS", "FF", "SF"};

/// "2026-01-05" as a day since 1899-12-30, from 1900 to 9999.
std::optional<std::int32_t> ReadDate(std::string_view text);
std::string DateText(std::int32_t day);

/// "2026-01-05T08:00:00"; the seconds must be 00.
std::optional<Minute> ReadDateTime(std::string_view text);
std::string DateTimeText(Minute instant);

/// "08:30" as minutes from midnight, up to "24:00".
std::optional<int> ReadTime(std::string_view text);
std::string TimeText(int minutes);

/// "true" or "false".
std::optional<bool> ReadBoolean(std::string_view text);
std::string BooleanText(bool value);

/// A finite number: what kestrel::ParseNumber reads.
std::optional<double> ReadNumber(std::string_view text);
/// The shortest text that reads back as the same number, to the last bit.
std::string RoundTripText(double value);

/// Digits only, with "-" before them for a negative number; nothing beyond the type's range.
template <typename Integer>
std::optional<Integer> ReadInteger(std::string_view text) {
    Integer value{};
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    if (result.ec != std::errc{} || result.ptr != end) return std::nullopt;
    return value;
}

}  // namespace refhost
