#include "refhost/files/project/ProjectText.h"

#include "base/NumberText.h"
#include "refhost/files/ValueText.h"

namespace refhost {
namespace {

constexpr std::size_t kDateLength = 10;   // YYYY-MM-DD
constexpr std::size_t kMinuteLength = 5;  // HH:MM

std::optional<RoundedMinutes> Rounded(double minutes) {
    const auto whole = kestrel::ToInt32(minutes);
    if (!whole) return std::nullopt;
    return RoundedMinutes{*whole, static_cast<double>(*whole) == minutes};
}

/// Working seconds of one unit; nothing for a letter that is no unit in this part.
std::optional<double> UnitSeconds(char unit, bool inTimePart, const DurationUnits& units) {
    if (inTimePart) {
        switch (unit) {
            case 'H':
                return 3600;
            case 'M':
                return 60;
            case 'S':
                return 1;
            default:
                return std::nullopt;
        }
    }
    switch (unit) {
        case 'Y':
            return 60 * 12 * units.month;
        case 'M':
            return 60 * units.month;
        case 'W':
            return 60 * units.week;
        case 'D':
            return 60 * units.day;
        default:
            return std::nullopt;
    }
}

}  // namespace

std::optional<RoundedMinutes> ReadProjectTime(std::string_view text) {
    const auto minutes = ReadTime(text.substr(0, kMinuteLength));
    if (!minutes) return std::nullopt;
    double seconds = 0;
    if (text.size() > kMinuteLength) {
        const auto read = ReadNumber(text.substr(kMinuteLength + 1));
        if (text[kMinuteLength] != ':' || !read || *read < 0 || *read >= 60) return std::nullopt;
        seconds = *read;
    }
    const auto rounded = Rounded((*minutes * 60 + seconds) / 60);
    return rounded && rounded->minutes <= kMinutesPerDay ? rounded : std::nullopt;
}

std::optional<RoundedMinutes> ReadProjectInstant(std::string_view text) {
    const auto day = ReadDate(text.substr(0, kDateLength));
    if (!day) return std::nullopt;
    RoundedMinutes instant;
    if (text.size() > kDateLength) {
        const auto time = ReadProjectTime(text.substr(kDateLength + 1));
        if (text[kDateLength] != 'T' || !time) return std::nullopt;
        instant = *time;
    }
    instant.minutes += *day * kMinutesPerDay;
    return instant;
}

std::optional<RoundedMinutes> ReadProjectDuration(std::string_view text,
                                                  const DurationUnits& units) {
    if (!text.starts_with('P')) return std::nullopt;
    text.remove_prefix(1);
    double seconds = 0;
    bool inTimePart = false;
    bool hasParts = false;
    while (!text.empty()) {
        if (text.front() == 'T' && !inTimePart) {
            inTimePart = true;
            text.remove_prefix(1);
            continue;
        }
        const auto length = text.find_first_not_of("0123456789.");
        if (length == std::string_view::npos) return std::nullopt;
        const auto count = ReadNumber(text.substr(0, length));
        const auto unit = UnitSeconds(text[length], inTimePart, units);
        if (!count || !unit) return std::nullopt;
        seconds += *count * *unit;
        hasParts = true;
        text.remove_prefix(length + 1);
    }
    return hasParts ? Rounded(seconds / 60) : std::nullopt;
}

std::optional<RoundedMinutes> LagMinutes(double tenths) { return Rounded(tenths / 10); }

}  // namespace refhost
