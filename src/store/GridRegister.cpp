#include "store/GridRegister.h"

#include <algorithm>
#include <string>
#include <utility>

#include "base/NumberText.h"
#include "base/Text.h"
#include "store/RegisterDocument.h"

namespace kestrel {
namespace {

std::optional<double> CellNumber(std::string text) {
    std::erase(text, '%');
    try {
        return ParseNumber(text);
    } catch (const DataError&) {
        return std::nullopt;
    }
}

/// Reads a row into `factor`; answers the column of the first cell that is not a number, if any.
std::optional<int> ReadRow(const ui::GridTable& grid, int row, clsRiskFactor& factor) {
    factor.strDescription = grid.Text(row, kDescriptionColumn);
    for (int column = kDurMinColumn; column <= kLikelihoodColumn; ++column) {
        const auto number = CellNumber(grid.Text(row, column));
        if (!number) return column;
        factor.*ElementOfColumn(column).figure = *number;
    }
    const std::string& target = grid.Text(row, kCorrelatedToColumn);
    const auto number = target.find('%') == target.npos ? CellNumber(target) : std::nullopt;
    const auto factorNumber = number ? ToInt32(*number) : std::nullopt;
    if (!factorNumber) return kCorrelatedToColumn;
    factor.CorrelatedTo = *factorNumber;
    return std::nullopt;
}

/// What is wrong with a row's figures, if anything.
std::optional<RefusedCell> Fault(const ui::GridTable& grid, int row, const clsRiskFactor& factor) {
    if (factor.dblProb < 0 || factor.dblProb > 100)
        return RefusedCell{row, kLikelihoodColumn, "The Risk Probability must be between 0-100"};
    for (const int column : {kDurLikelyColumn, kDurMaxColumn, kCostLikelyColumn, kCostMaxColumn}) {
        if (factor.*ElementOfColumn(column).figure >= factor.*ElementOfColumn(column - 1).figure)
            continue;
        return RefusedCell{
            row, column,
            "The " + grid.Text(0, column) + " Risk Percentage cannot be less than the " +
                grid.Text(0, column - 1) + " Risk Percentage in Row: " + std::to_string(row)};
    }
    return std::nullopt;
}

}  // namespace

bool IsCellNumber(std::string text) { return CellNumber(std::move(text)).has_value(); }

RefusedCell NotANumber(const ui::GridTable& grid, int row, int column) {
    constexpr std::size_t kShown = 40;
    std::string text = grid.Text(row, column);
    if (text.size() > kShown) text = text.substr(0, WholeCharacterAt(text, kShown)) + "...";
    return {row, column,
            "\"" + text + "\" in row " + std::to_string(row) + ", column \"" +
                ElementOfColumn(column).heading + "\", is not a number that can be used. " +
                (column == kCorrelatedToColumn
                     ? "Enter the number of a risk factor, for example 12, or 0 for none."
                     : "Enter a percentage, for example 12.5.")};
}

std::optional<RefusedCell> StoreGridAsRegister(modGlobals& globals, const ui::GridTable& grid) {
    const host::PlanPtr plan = OpenPlan(globals);
    XmlDocument document = NewRegisterDocument();
    for (int row = 1; row <= LastRiskRow(grid); ++row) {
        clsRiskFactor factor;
        if (const auto column = ReadRow(grid, row, factor)) return NotANumber(grid, row, *column);
        if (auto fault = Fault(grid, row, factor)) return fault;
        XmlNode& element = document.root.Append(XmlNode::Element("RiskFactor"));
        element.SetAttribute("ID", std::to_string(row));
        factor.SaveRiskToXML(element);
    }
    plan->SetText(kRegisterText, SerialiseXml(document.root));
    globals.RiskFactors.clear();
    LoadRegisterFromPlan(globals, *plan);
    return std::nullopt;
}

}  // namespace kestrel
