#include "ui/editor/CellRules.h"

#include <algorithm>
#include <limits>

#include "base/Errors.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "platform/XmlCharacters.h"
#include "store/GridRegister.h"

namespace kestrel::ui {
namespace {

std::string WhyLocked(int column) {
    return column == kLikelihoodColumn
               ? "This likelihood is that of the risk factor that the row is correlated to; change "
                 "it there."
               : "Other risk factors are correlated to this one, so it cannot be correlated "
                 "itself.";
}

}  // namespace

bool AcceptsCharacter(int column, bool locked, char32_t code) {
    constexpr char32_t kBackspace = 8, kFirstPrintable = 32, kLastPrintable = 126;
    if (column == kCorrelatedToColumn && code == U'.') return false;
    if ((column == kLikelihoodColumn || column == kCorrelatedToColumn) && locked) return false;
    if (column > kDescriptionColumn && column < kRiskColumns) {
        const bool digit = code >= U'0' && code <= U':';
        const bool stray = (code >= U'%' && code <= U'(') || code == 190;
        if (!digit && !stray && code != kBackspace && code != U'.') return false;
    }
    if (code == U'|') return false;
    return code == kBackspace || (code >= kFirstPrintable && code <= kLastPrintable);
}

std::string WhyNotPasted(int column, bool locked, std::string_view text) {
    if (locked && (column == kLikelihoodColumn || column == kCorrelatedToColumn))
        return WhyLocked(column);
    if (text.find_first_of("\t\r\n") != text.npos)
        return "There is more than one cell or line on the clipboard; copy and paste one at a "
               "time.";
    if (XmlTextLength(text) < text.size())
        return "The text on the clipboard holds control characters, which no cell can hold.";
    if (column == kDescriptionColumn)
        return text.find('|') == text.npos ? "" : "A description cannot hold the character \"|\".";
    const auto accepted = [&](char c) {
        return AcceptsCharacter(column, locked, static_cast<unsigned char>(c));
    };
    if (std::all_of(text.begin(), text.end(), accepted)) return {};
    return column == kCorrelatedToColumn
               ? "The text on the clipboard is not the number of a risk factor, for example 12."
               : "The text on the clipboard is not a percentage, for example 12.5%.";
}

std::string NormalisedPercent(std::string text) {
    if (IsBlank(text)) text = "100";
    if (text.find('%') == text.npos) text += '%';
    const std::size_t point = text.find('.');
    if (point == text.npos) return text.substr(0, text.find('%')) + ".00%";
    if (point > 0 && point + 2 < text.size() && text.substr(point + 2) == "%")
        return text.substr(0, point + 2) + "0%";
    return text;
}

std::string FormatPercentCell(double value) { return FixedText(value, 2) + '%'; }

std::optional<std::int32_t> WholeNumber(const std::string& text) {
    if (text == "0") return 0;
    if (IsBlank(text)) return std::nullopt;
    // A number that no row can have is still a number: one out of range.
    constexpr auto kLeast = std::numeric_limits<std::int32_t>::min();
    constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
    try {
        const double number = ParseNumber(text);
        return ToInt32(number).value_or(number < 0 ? kLeast : kMost);
    } catch (const DataError&) {
        if (text.find_first_not_of("0123456789") == text.npos) return kMost;
        return std::nullopt;
    }
}

}  // namespace kestrel::ui
