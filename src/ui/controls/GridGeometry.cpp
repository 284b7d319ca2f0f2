#include "ui/controls/GridGeometry.h"

#include <algorithm>
#include <numeric>

#include "ui/controls/GridTable.h"

namespace kestrel::ui {
namespace {

constexpr int kDefaultWidth = 64;

}  // namespace

void GridGeometry::Reset(int columns, int fixedRows, bool hasRowHeader) {
    widths_.assign(Index(columns), kDefaultWidth);
    fixedRows_ = fixedRows;
    hasRowHeader_ = hasRowHeader;
    stretch_ = -1;
    topRow_ = fixedRows;
}

void GridGeometry::SetColumnCount(int columns) {
    widths_.resize(Index(columns), kDefaultWidth);
    if (stretch_ >= columns) stretch_ = -1;
}

void GridGeometry::SetSize(int width, int height) {
    width_ = width;
    height_ = height;
}

int GridGeometry::ColumnWidth(int column) const {
    const int width = widths_.at(Index(column));
    if (column != stretch_) return width;
    const int used = std::accumulate(widths_.begin(), widths_.end(), HeaderWidth());
    return std::max(width, width + width_ - scrollBarWidth - used);
}

int GridGeometry::VisibleRows() const {
    return std::max(1, (height_ - HeaderBottom()) / rowHeight);
}

void GridGeometry::ScrollTo(int topRow, int rowCount) {
    topRow_ = std::max(fixedRows_, std::min(topRow, rowCount - VisibleRows()));
}

void GridGeometry::ScrollIntoView(int row, int rowCount) {
    if (row < topRow_)
        ScrollTo(row, rowCount);
    else if (row >= topRow_ + VisibleRows())
        ScrollTo(row - VisibleRows() + 1, rowCount);
}

std::optional<Rect> GridGeometry::CellBounds(int row, int column) const {
    Rect cell;
    if (row < fixedRows_) {
        cell.y = row * headerHeight;
        cell.height = headerHeight;
    } else {
        cell.y = HeaderBottom() + (row - topRow_) * rowHeight;
        cell.height = rowHeight;
        if (row < topRow_ || cell.y >= height_) return std::nullopt;
    }
    cell.width = column == GridTable::kRowHeader ? HeaderWidth() : ColumnWidth(column);
    if (column != GridTable::kRowHeader) cell.x = HeaderWidth();
    for (int left = 0; left < column; ++left) cell.x += ColumnWidth(left);
    return cell;
}

std::optional<GridPlace> GridGeometry::HitTest(int x, int y, int rowCount) const {
    if (x < 0 || y < 0) return std::nullopt;
    GridPlace place;
    place.row = y < HeaderBottom() ? y / headerHeight : topRow_ + (y - HeaderBottom()) / rowHeight;
    if (place.row >= rowCount) return std::nullopt;
    int right = HeaderWidth();
    if (x < right) return GridPlace{place.row, GridTable::kRowHeader};
    for (int column = 0; column < static_cast<int>(widths_.size()); ++column) {
        right += ColumnWidth(column);
        if (x < right) return GridPlace{place.row, column};
    }
    return std::nullopt;
}

}  // namespace kestrel::ui
