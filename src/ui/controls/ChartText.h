#pragma once

#include <functional>
#include <string>
#include <string_view>

/// How wide texts are, and what of them fits.
namespace kestrel::ui {

/// Answers the width of UTF-8 text at a font size, in the size's units.
using TextMeasure = std::function<int(std::string_view text, int size, bool bold)>;

/// The measure for those who lay out without a screen at hand: rather too wide than too narrow
/// for the usual sans-serif fonts, so what fits here fits everywhere. Combining marks take no room.
int TextWidth(std::string_view text, int size, bool bold = false);

/// The text, or as much of it as fits in `width` with "…" behind it. Characters are never cut
/// through, and marks stay with the letter that they belong to.
std::string ShortenedText(std::string_view text, int width, int size, bool bold = false,
                          const TextMeasure& measure = TextWidth);

}  // namespace kestrel::ui
