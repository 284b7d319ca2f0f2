#include "ui/editor/RiskGrid.h"

#include <utility>
#include <vector>

#include "base/Text.h"
#include "ui/editor/CellRules.h"

namespace kestrel::ui {
namespace {

constexpr int kWidths[kRiskColumns] = {190, 68, 68, 68, 68, 72, 68, 72, 88};

/// Two lines. Only the last heading begins on the first one.
std::string Header(int column) {
    std::string text = ElementOfColumn(column).heading;
    if (column != kCorrelatedToColumn) return "\r\n" + text;
    return text.replace(text.find(' '), 1, "\r\n");
}

std::string RowNumber(int row) { return std::to_string(row) + "."; }

}  // namespace

void SetUpRiskGrid(Grid& grid) {
    grid.Clear(kRiskColumns, 1, true);
    for (int column = 0; column < kRiskColumns; ++column) {
        grid.SetText(0, column, Header(column));
        grid.Geometry().SetColumnWidth(column, kWidths[column]);
        if (column != kDescriptionColumn)
            grid.Geometry().SetColumnAlignment(column, Alignment::Right);
    }
    grid.Geometry().SetStretchColumn(kDescriptionColumn);
}

bool RowHasContent(const Grid& grid, int row) {
    for (int column = 0; column < grid.ColumnCount(); ++column)
        if (!IsBlank(grid.Text(row, column))) return true;
    return false;
}

int AppendNumberedRow(Grid& grid) {
    const int row = grid.AddRow();
    grid.SetText(row, Grid::kRowHeader, RowNumber(row));
    return row;
}

void NumberRows(Grid& grid) {
    for (int row = 1; row < grid.RowCount(); ++row)
        grid.SetText(row, Grid::kRowHeader, RowNumber(row));
}

void FillRow(Grid& grid, int row, const clsRiskFactor& factor) {
    grid.SetText(row, kDescriptionColumn, factor.strDescription);
    for (int column = kDurMinColumn; column <= kLikelihoodColumn; ++column)
        grid.SetText(row, column, FormatPercentCell(factor.*ElementOfColumn(column).figure));
    grid.SetText(row, kCorrelatedToColumn, std::to_string(factor.CorrelatedTo));
}

void FillBlankFigures(Grid& grid, int row) {
    for (int column = kDurMinColumn; column <= kLikelihoodColumn; ++column)
        if (IsBlank(grid.Text(row, column))) grid.SetText(row, column, FormatPercentCell(100));
    if (IsBlank(grid.Text(row, kCorrelatedToColumn))) grid.SetText(row, kCorrelatedToColumn, "0");
}

void FillBlankCells(Grid& grid) {
    int unnamed = 0;
    for (int row = 1; row <= LastRiskRow(grid); ++row) {
        if (IsBlank(grid.Text(row, kDescriptionColumn)))
            grid.SetText(row, kDescriptionColumn, "Risk Factor" + std::to_string(++unnamed));
        FillBlankFigures(grid, row);
    }
}

void SetCellEditable(Grid& grid, int row, int column, bool editable) {
    grid.SetEditable(row, column, editable);
    grid.SetCellColour(row, column, editable ? kWhite : kSystemGreyText);
}

void RefreshCellLocks(Grid& grid) {
    const int last = LastRiskRow(grid);
    std::vector<bool> follows(static_cast<std::size_t>(last + 1)), followed(follows.size());
    for (int row = 1; row <= last; ++row) {
        const int target = WholeNumber(grid.Text(row, kCorrelatedToColumn)).value_or(0);
        follows[static_cast<std::size_t>(row)] = target > 0;
        if (IsDataRow(grid, target)) followed[static_cast<std::size_t>(target)] = true;
    }
    for (int row = 1; row <= last; ++row) {
        const auto index = static_cast<std::size_t>(row);
        SetCellEditable(grid, row, kLikelihoodColumn, !follows[index]);
        SetCellEditable(grid, row, kCorrelatedToColumn, !followed[index]);
    }
}

void CopyLikelihoodToCorrelated(Grid& grid, int row) {
    const std::string likelihood = grid.Text(row, kLikelihoodColumn);
    const int last = LastRiskRow(grid);
    std::vector<std::vector<int>> followers(static_cast<std::size_t>(last + 1));
    for (int other = 1; other <= last; ++other) {
        const std::string& text = grid.Text(other, kCorrelatedToColumn);
        if (IsBlank(text)) grid.SetText(other, kCorrelatedToColumn, "0");
        const int target = WholeNumber(text).value_or(0);
        if (IsDataRow(grid, target)) followers[static_cast<std::size_t>(target)].push_back(other);
    }
    std::vector<int> given{row};
    for (std::size_t i = 0; i < given.size(); ++i)
        // Taken out, so that factors of a file that follow each other in a circle come to an end.
        for (const int follower :
             std::exchange(followers[static_cast<std::size_t>(given[i])], {})) {
            if (follower == row) continue;
            grid.SetText(follower, kLikelihoodColumn, likelihood);
            given.push_back(follower);
        }
}

void RenumberCorrelations(Grid& grid, int removed) {
    for (int row = 1; row <= LastRiskRow(grid); ++row) {
        const auto target = WholeNumber(grid.Text(row, kCorrelatedToColumn));
        if (target == removed)
            grid.SetText(row, kCorrelatedToColumn, "0");
        else if (target && *target > removed)
            grid.SetText(row, kCorrelatedToColumn, std::to_string(*target - 1));
    }
}

}  // namespace kestrel::ui
