#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The texts of factor assignments: comma lists of factor IDs such as 1,3 and the field text that
/// joins up to two of them, the parallel group first, as in (1,3(P));(2,5). A text without "(P)",
/// such as 1,2,4 typed by hand, is a series group.
namespace kestrel {

/// Factor IDs in field order, each once.
using RiskIDs = std::vector<std::int32_t>;

/// One item of a list.
struct RiskListItem {
    std::string_view text;  ///< trimmed; a piece of the list that was walked
    std::int32_t id = 0;    ///< its leading number, halves to even; 0 beyond 32 bits
};

/// The items of a list in text order, blank ones left out.
std::vector<RiskListItem> RiskListItems(std::string_view list);

/// IDs of a list, duplicates and blank items dropped silently, no range check.
RiskIDs ListedIDs(std::string_view list);

/// One group of a field text as a bare comma list.
std::string GetRiskList(std::string_view fieldText, bool inSeries);

/// The field text of two lists. Wraps the two arguments in place as a side effect.
std::string MakeRiskFieldText(std::string& parallelList, std::string& seriesList);

/// Whether the ID stands in the list as a whole token. A blank beside it makes it no token.
bool RiskListContains(std::string_view list, std::int32_t id);

/// The list without one whole-token occurrence of the ID (the text removed, with its comma, is
/// removed wherever it stands: 1,2,23 without 2 is 13); empty when there is none.
std::string RemoveRiskFromList(std::string_view list, std::int32_t id);

/// Every ID above `deleted` lowered by one. An item's leading number is its ID and the rest goes;
/// an item without one is foreign text and stays as it stands.
std::string RenumberRiskList(std::string_view list, std::int32_t deleted);

}  // namespace kestrel
