#include "base/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <stdexcept>

#include "base/Errors.h"
#include "base/Text.h"

namespace kestrel {
namespace {

constexpr int kSignificantDigits = 15;

/// The value itself, or the nearest one whose digits still make a double.
double Writable(double value) {
    if (!std::isfinite(value))
        throw ArithmeticError("A calculated number is not finite and cannot be shown.");
    constexpr double kLargest = 1.79769313486231e308;  // the next 15 digits are beyond the range
    return std::clamp(value, -kLargest, kLargest);
}

/// A number as its 15 significant decimal digits: 0.d1d2...d15 x 10^pointPosition.
struct DecimalText {
    bool negative = false;
    std::string digits;
    int pointPosition = 0;
};

DecimalText ToDecimal(double value) {
    std::array<char, 40> buffer{};
    const auto written =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value),
                      std::chars_format::scientific, kSignificantDigits - 1);
    const std::string_view text(buffer.data(),
                                static_cast<std::size_t>(written.ptr - buffer.data()));
    const auto mark = text.find('e');

    DecimalText decimal;
    decimal.negative = value < 0;
    decimal.digits = text[0];
    decimal.digits += text.substr(2, mark - 2);
    int exponent = 0;
    const char* digits = text.data() + mark + (text[mark + 1] == '+' ? 2 : 1);
    std::from_chars(digits, text.data() + text.size(), exponent);
    decimal.pointPosition = exponent + 1;
    return decimal;
}

/// Adds one unit in the last place; a carry out of the first digit lengthens the number.
void Increment(DecimalText& decimal) {
    auto digit = decimal.digits.rbegin();
    while (digit != decimal.digits.rend() && *digit == '9') *digit++ = '0';
    if (digit != decimal.digits.rend()) {
        ++*digit;
        return;
    }
    decimal.digits.insert(decimal.digits.begin(), '1');
    ++decimal.pointPosition;
}

/// Leaves exactly pointPosition + decimals digits (none when that is negative), rounded half
/// away from zero.
void RoundTo(DecimalText& decimal, int decimals) {
    const int kept = decimal.pointPosition + decimals;
    if (kept < 0) {
        decimal.digits.clear();
        return;
    }
    const auto count = static_cast<std::size_t>(kept);
    const bool up = count < decimal.digits.size() && decimal.digits[count] >= '5';
    decimal.digits.resize(count, '0');
    if (up) Increment(decimal);
}

std::string Fixed(DecimalText decimal, int decimals) {
    if (decimals < 0) throw std::invalid_argument("decimals must not be negative");
    if (decimal.digits.front() == '0') decimal.pointPosition = 0;  // zero itself
    RoundTo(decimal, decimals);

    // At least one digit stands before the point and `decimals` stand after it.
    const auto after = static_cast<std::size_t>(decimals);
    std::string& digits = decimal.digits;
    if (digits.size() <= after) digits.insert(0, after + 1 - digits.size(), '0');

    const bool isZero = digits.find_first_not_of('0') == std::string::npos;
    if (decimals > 0) digits.insert(digits.size() - after, 1, '.');
    return (decimal.negative && !isZero ? "-" : "") + digits;
}

constexpr std::string_view kAroundNumbers = " \t\n\v\f\r";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Whether a number can start here: a digit, or a point before one. Shuts out the words "nan"
/// and "inf", which the library would read.
bool StartsNumber(std::string_view text) {
    if (text.starts_with('.')) text.remove_prefix(1);
    return !text.empty() && IsDigit(text.front());
}

struct Reading {
    double value = 0;
    std::size_t length = 0;  ///< characters read; 0 when there is no number
    bool inRange = true;
};

/// Reads a number at the very start of the text.
Reading ReadNumber(std::string_view text) {
    std::string_view number = text;
    const bool negative = number.starts_with('-');
    if (negative || number.starts_with('+')) number.remove_prefix(1);
    if (!StartsNumber(number)) return {};

    Reading reading;
    const auto result =
        std::from_chars(number.data(), number.data() + number.size(), reading.value);
    reading.length = static_cast<std::size_t>(result.ptr - text.data());
    reading.inRange = result.ec == std::errc{};
    if (!reading.inRange) reading.value = 0;
    if (negative) reading.value = -reading.value;
    return reading;
}

template <typename Integer>
std::optional<Integer> ToInteger(double value) {
    const double rounded = RoundHalfEven(value);
    // The comparison is false for a value that is not a number.
    if (!(rounded >= std::numeric_limits<Integer>::min() &&
          rounded <= std::numeric_limits<Integer>::max()))
        return std::nullopt;
    return static_cast<Integer>(rounded);
}

}  // namespace

std::string GeneralText(double value) {
    value = Writable(value);
    if (value == 0) return "0";
    std::array<char, 40> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                       std::chars_format::general, kSignificantDigits);
    std::string text(buffer.data(), written.ptr);
    std::replace(text.begin(), text.end(), 'e', 'E');
    return text;
}

std::string FixedText(double value, int decimals) {
    return Fixed(ToDecimal(Writable(value)), decimals);
}

std::string PercentText(double value) {
    DecimalText decimal = ToDecimal(Writable(value));
    decimal.pointPosition += 2;
    return Fixed(std::move(decimal), 1) + "%";
}

double ParseNumber(std::string_view text) {
    const std::string_view number = Trimmed(text, kAroundNumbers);
    const Reading reading = ReadNumber(number);
    if (reading.length == 0 || reading.length != number.size())
        throw DataError("\"" + std::string(text) + "\" is not a number; write it like 12.5.");
    if (!reading.inRange)
        throw DataError("\"" + std::string(text) + "\" is too large or too small a number.");
    return reading.value;
}

double LeadingNumber(std::string_view text) { return FindLeadingNumber(text).value_or(0); }

std::optional<double> FindLeadingNumber(std::string_view text) {
    const Reading reading = ReadNumber(Trimmed(text, kAroundNumbers));
    if (reading.length == 0 || !reading.inRange) return std::nullopt;
    return reading.value;
}

double RoundHalfEven(double value) { return std::nearbyint(value); }

std::optional<std::int32_t> ToInt32(double value) { return ToInteger<std::int32_t>(value); }

std::optional<std::int16_t> ToInt16(double value) { return ToInteger<std::int16_t>(value); }

}  // namespace kestrel
