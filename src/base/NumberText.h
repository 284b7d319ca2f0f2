#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The one place where numbers become text and text becomes numbers. The decimal separator is
/// always ".", whatever the user's locale; there are never thousands separators.
namespace kestrel {

/// Shortest text of up to 15 significant digits: 100 -> "100", 12.5 -> "12.5", 1e-7 -> "1E-07".
/// Never "-0". What 15 digits would round beyond the range of double ends in the largest text that
/// can be read back. Raises ArithmeticError for a value that is not finite.
std::string GeneralText(double value);

/// Exactly `decimals` digits after the point (pattern "0.00" for 2), rounded half away from zero
/// on the value's 15-digit decimal text: 1.005 with 2 -> "1.01". Never "-0.00".
std::string FixedText(double value, int decimals);

/// Pattern "#0.0%": the value times 100 with one decimal and "%": 1.1 -> "110.0%". Rounds like
/// FixedText, on the 15-digit text of `value` itself.
std::string PercentText(double value);

/// The whole text, less surrounding blanks, as a number: optional sign, digits, point, exponent.
/// Raises DataError for anything else (empty, trailing words, "nan", hexadecimal, out of range).
double ParseNumber(std::string_view text);

/// The number at the start of the text, blanks skipped, the rest ignored: "12abc" -> 12,
/// "abc" and "" -> 0. Never raises; a number beyond the range of double reads as 0.
double LeadingNumber(std::string_view text);
/// The same number; nothing where there is none within the range of double.
std::optional<double> FindLeadingNumber(std::string_view text);

/// The nearest whole number, halves to the even neighbour.
double RoundHalfEven(double value);

/// RoundHalfEven as a 32-bit or 16-bit integer; nothing when it does not fit or is not finite.
std::optional<std::int32_t> ToInt32(double value);
std::optional<std::int16_t> ToInt16(double value);

}  // namespace kestrel
