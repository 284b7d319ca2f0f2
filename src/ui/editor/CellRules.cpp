#include "ui/editor/CellRules.h"

#include "base/Errors.h"
#include "base/NumberText.h"
#include "store/GridRegister.h"

namespace kestrel::ui {

bool IsBlank(std::string_view text) { return text.find_first_not_of(' ') == text.npos; }

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
    try {
        return ToInt32(ParseNumber(text));
    } catch (const DataError&) {
        return std::nullopt;
    }
}

}  // namespace kestrel::ui
