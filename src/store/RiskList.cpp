#include "store/RiskList.h"

#include <algorithm>
#include <optional>

#include "base/NumberText.h"
#include "base/Text.h"

namespace kestrel {
namespace {

constexpr std::string_view kParallelMark = "(P)";

std::string Without(std::string_view text, std::string_view characters) {
    std::string kept;
    for (const char c : text)
        if (characters.find(c) == characters.npos) kept += c;
    return kept;
}

std::string Wrapped(std::string_view list, std::string_view end) {
    std::string text = "(";
    text += Trimmed(list);
    return text.append(end);
}

/// The untrimmed pieces between commas; one empty piece for an empty list.
std::vector<std::string_view> Pieces(std::string_view list) {
    std::vector<std::string_view> pieces;
    for (;;) {
        const auto comma = list.find(',');
        pieces.push_back(list.substr(0, comma));
        if (comma == list.npos) return pieces;
        list.remove_prefix(comma + 1);
    }
}

bool IsDelimiter(char c) { return c == '(' || c == ',' || c == ')'; }

/// Position of the first occurrence that stands between delimiters or ends of the list. After an
/// occurrence that does not count the search goes on `step` characters further.
std::size_t FindToken(std::string_view list, std::string_view token, std::size_t step) {
    auto found = list.find(token);
    while (found != list.npos) {
        const auto end = found + token.size();
        const bool startsToken = found == 0 || IsDelimiter(list[found - 1]);
        const bool endsToken = end == list.size() || IsDelimiter(list[end]);
        if (startsToken && endsToken) break;
        found = list.find(token, found + step);
    }
    return found;
}

}  // namespace

std::vector<RiskListItem> RiskListItems(std::string_view list) {
    std::vector<RiskListItem> items;
    for (const std::string_view piece : Pieces(list)) {
        const std::string_view text = Trimmed(piece);
        if (!text.empty()) items.push_back({text, ToInt32(LeadingNumber(text)).value_or(0)});
    }
    return items;
}

std::string GetRiskList(std::string_view fieldText, bool inSeries) {
    const bool hasParallel = fieldText.find(kParallelMark) != fieldText.npos;
    const auto separator = fieldText.find(';');
    const bool isSplit = separator != fieldText.npos;
    if (!hasParallel) return inSeries ? Without(fieldText, "()") : std::string();
    if (!inSeries)
        return Without(isSplit ? Trimmed(fieldText.substr(0, separator)) : fieldText, "()P");
    return isSplit ? Without(Trimmed(fieldText.substr(separator + 1)), "()") : std::string();
}

std::string MakeRiskFieldText(std::string& parallelList, std::string& seriesList) {
    if (!parallelList.empty()) parallelList = Wrapped(parallelList, "(P))");
    if (!seriesList.empty()) seriesList = Wrapped(seriesList, ")");
    const bool hasBoth = !parallelList.empty() && !seriesList.empty();
    return parallelList + (hasBoth ? ";" : "") + seriesList;
}

RiskIDs ListedIDs(std::string_view list) {
    RiskIDs ids;
    for (const RiskListItem& item : RiskListItems(list))
        if (std::find(ids.begin(), ids.end(), item.id) == ids.end()) ids.push_back(item.id);
    return ids;
}

bool RiskListContains(std::string_view list, std::int32_t id) {
    return FindToken(list, std::to_string(id), 1) != list.npos;
}

std::string RemoveRiskFromList(std::string_view list, std::int32_t id) {
    const std::string token = std::to_string(id);
    const auto found = FindToken(list, token, token.size());
    if (found == list.npos || token.size() == list.size()) return {};

    // The separator before goes too, or the one after at the start of the list.
    const std::string_view removed = list.substr(found == 0 ? 0 : found - 1, token.size() + 1);
    std::string kept;
    for (auto next = list.find(removed); next != list.npos; next = list.find(removed)) {
        kept += list.substr(0, next);
        list.remove_prefix(next + removed.size());
    }
    return kept + std::string(list);
}

std::string RenumberRiskList(std::string_view list, std::int32_t deleted) {
    std::string renumbered;
    for (const std::string_view piece : Pieces(list)) {
        if (piece.data() != list.data()) renumbered += ',';
        const std::optional<double> number = FindLeadingNumber(piece);
        const auto id = number ? ToInt32(*number) : std::nullopt;
        if (id)
            renumbered += std::to_string(*id > deleted ? *id - 1 : *id);
        else if (!Trimmed(piece).empty())
            renumbered += piece;
    }
    return renumbered;
}

}  // namespace kestrel
