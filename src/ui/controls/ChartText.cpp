#include "ui/controls/ChartText.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <vector>

#include "base/Text.h"

namespace kestrel::ui {
namespace {

constexpr double kBoldFactor = 1.12;
constexpr double kOther = 1.0;  // also the ideographs

/// Characters up to `last` that come after the entry before.
struct WidthRange {
    char32_t last;
    double width;  ///< share of the font size
};

constexpr WidthRange kRanges[] = {
    {0x001F, 1.0},                      // not shown, or by a box
    {0x007E, 0.66},                     // Latin; exceptions below
    {0x00BF, 0.66},    {0x024F, 0.72},  // Latin with marks
    {0x02FF, 0.66},    {0x036F, 0.0},   // combining marks
    {0x03FF, 0.76},                     // Greek
    {0x0482, 0.74},                     // Cyrillic
    {0x0489, 0.0},                      // combining marks
    {0x052F, 0.74},                     // Cyrillic
    {0x058F, 0.76},                     // Armenian
    {0x0590, 0.7},     {0x05BD, 0.0},   // Hebrew points
    {0x060F, 0.7},                      // Hebrew, Arabic punctuation
    {0x061A, 0.0},                      // Arabic marks
    {0x064A, 0.64},                     // Arabic
    {0x065F, 0.0},                      // Arabic vowel signs
    {0x08FF, 0.76},                     // Arabic and its neighbours
    {0x1AAF, 1.0},     {0x1AFF, 0.0},   // combining marks
    {0x1DBF, 0.8},     {0x1DFF, 0.0},   // combining marks
    {0x1FFF, 0.76},    {0x200A, 0.6},   // spaces
    {0x200F, 0.0},                      // joiners and marks of direction
    {0x2029, 1.0},     {0x202E, 0.0},   // marks of direction
    {0x205F, 1.0},     {0x206F, 0.0},   {0x20CF, 0.72}, {0x20FF, 0.0},  // combining marks
    {0xFDFF, kOther},  {0xFE0F, 0.0},                                   // variation selectors
    {0x1EFFF, kOther}, {0x10FFFF, 1.4},                                 // emoji
};

double WidthOf(char32_t c) {
    if (c < 0x80) {
        const auto isIn = [c](std::u32string_view set) { return set.find(c) != set.npos; };
        if (isIn(U" .,:;'|!ijlI")) return 0.36;
        if (isIn(U"frt()[]/\\-\"")) return 0.46;
        if (isIn(U"mwMW@%")) return 1.0;
        if (c >= 'A' && c <= 'Z') return 0.8;
    }
    const auto* range = std::lower_bound(
        std::begin(kRanges), std::end(kRanges), c,
        [](const WidthRange& entry, char32_t wanted) { return entry.last < wanted; });
    return range == std::end(kRanges) ? kOther : range->width;
}

/// The character that starts at `position`, which moves behind it. A stray byte counts as one.
char32_t Next(std::string_view text, std::size_t& position) {
    const Utf8Character next = CharacterOrByte(text.substr(position));
    position += next.length;
    return next.code;
}

}  // namespace

int TextWidth(std::string_view text, int size, bool bold) {
    double width = 0;
    for (std::size_t position = 0; position < text.size();) width += WidthOf(Next(text, position));
    return static_cast<int>(std::ceil(width * size * (bold ? kBoldFactor : 1.0)));
}

std::string ShortenedText(std::string_view text, int width, int size, bool bold,
                          const TextMeasure& measure) {
    if (measure(text, size, bold) <= width) return std::string(text);
    std::vector<std::size_t> ends{0};  // where the text may be cut
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t start = position;
        if (WidthOf(Next(text, position)) > 0 && start > 0) ends.push_back(start);
    }
    const auto cut = [&](std::size_t end) {
        while (end > 0 && text[end - 1] == ' ') --end;
        return std::string(text.substr(0, end)) + "…";
    };
    const auto tooLong = std::partition_point(ends.begin() + 1, ends.end(), [&](std::size_t end) {
        return measure(cut(end), size, bold) <= width;
    });
    return cut(*std::prev(tooLong));
}

}  // namespace kestrel::ui
