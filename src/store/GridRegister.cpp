#include "store/GridRegister.h"

#include <algorithm>
#include <string>
#include <utility>

#include "base/NumberText.h"
#include "store/OpenPlan.h"
#include "store/RegisterDocument.h"

namespace kestrel {
namespace {

/// The header's two lines as one.
std::string ColumnName(const ui::GridTable& grid, int column) {
    std::string name;
    for (const char c : grid.Text(0, column))
        if (c == '\n' && !name.empty())
            name += ' ';
        else if (c != '\r' && c != '\n')
            name += c;
    return name;
}

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
    double* const figures[] = {&factor.dblMin,     &factor.dblML,     &factor.dblMax,
                               &factor.dblCostMin, &factor.dblCostML, &factor.dblCostMax,
                               &factor.dblProb};
    int column = kDurMinColumn;
    for (double* const figure : figures) {
        const auto number = CellNumber(grid.Text(row, column));
        if (!number) return column;
        *figure = *number;
        ++column;
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
    const struct {
        double before, value;
        int column;
    } steps[] = {{factor.dblMin, factor.dblML, kDurLikelyColumn},
                 {factor.dblML, factor.dblMax, kDurMaxColumn},
                 {factor.dblCostMin, factor.dblCostML, kCostLikelyColumn},
                 {factor.dblCostML, factor.dblCostMax, kCostMaxColumn}};
    for (const auto& step : steps) {
        if (step.value >= step.before) continue;
        return RefusedCell{
            row, step.column,
            "The " + grid.Text(0, step.column) + " Risk Percentage cannot be less than the " +
                grid.Text(0, step.column - 1) + " Risk Percentage in Row: " + std::to_string(row)};
    }
    return std::nullopt;
}

}  // namespace

bool IsCellNumber(std::string text) { return CellNumber(std::move(text)).has_value(); }

RefusedCell NotANumber(const ui::GridTable& grid, int row, int column) {
    constexpr std::size_t kShown = 40;
    std::string text = grid.Text(row, column);
    if (text.size() > kShown) text = text.substr(0, kShown) + "...";
    return {row, column,
            "\"" + text + "\" in row " + std::to_string(row) + ", column \"" +
                ColumnName(grid, column) + "\", is not a number that can be used. " +
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
