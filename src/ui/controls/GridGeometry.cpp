#include "ui/controls/GridGeometry.h"

#include <algorithm>
#include <cstdlib>

#include "util/GridTable.h"

namespace kestrel::ui {

void GridGeometry::Reset(int columns, int fixedRows, bool hasRowHeader) {
    columns_.assign(Index(columns), Column());
    fixedRows_ = fixedRows;
    hasRowHeader_ = hasRowHeader;
    stretch_ = -1;
    topRow_ = fixedRows;
}

void GridGeometry::SetColumnCount(int columns) {
    columns_.resize(Index(columns));
    if (stretch_ >= columns) stretch_ = -1;
}

void GridGeometry::SetSize(int width, int height) {
    width_ = width - 2 * frame;
    height_ = height - 2 * frame;
}

int GridGeometry::ColumnWidth(int column) const {
    const int width = columns_.at(Index(column)).width;
    if (column != stretch_) return width;
    int used = HeaderWidth();
    for (const Column& each : columns_) used += each.width;
    return std::max(width, width + width_ - scrollBarWidth - used);
}

int GridGeometry::WidthLeft() const {
    int left = width_ - scrollBarWidth - HeaderWidth();
    for (int column = 0; column < ColumnCount(); ++column) left -= ColumnWidth(column);
    return left;
}

bool GridGeometry::CanResize(int column) const {
    return column + 1 < ColumnCount() || stretch_ < 0;
}

std::optional<int> GridGeometry::EdgeAt(int x, int y) const {
    constexpr int kReach = 4;
    if (y < 0 || y >= HeaderBottom()) return std::nullopt;
    int right = HeaderWidth();
    for (int column = 0; column < ColumnCount(); ++column) {
        right += ColumnWidth(column);
        if (std::abs(x - right) <= kReach && CanResize(column)) return column;
    }
    return std::nullopt;
}

void GridGeometry::ResizeColumn(int column, int width) {
    if (!CanResize(column)) return;
    const int now = ColumnWidth(column);
    const bool last = column + 1 == ColumnCount();
    const int room =
        std::max(now, last ? now + WidthLeft() : now + ColumnWidth(column + 1) - kLeastWidth);
    width = std::clamp(width, std::min(kLeastWidth, room), room);
    const auto set = [this](int which, int wanted) {
        // The stretched column takes up what there is; more than that it must not ask for, or it
        // would be too wide when the grid gets narrower.
        if (which == stretch_) wanted = std::min(wanted, columns_[Index(which)].width);
        SetColumnWidth(which, wanted);
    };
    const int nextWidth = last ? 0 : ColumnWidth(column + 1) + now - width;
    set(column, width);
    if (!last) set(column + 1, nextWidth);
}

void GridGeometry::FitColumn(int column, int width) {
    if (column == stretch_) return;
    const int now = ColumnWidth(column);
    const int spare = stretch_ < 0 ? WidthLeft() : ColumnWidth(stretch_) - kLeastWidth;
    SetColumnWidth(column, std::clamp(width, kLeastWidth, std::max(kLeastWidth, now + spare)));
    if (stretch_ >= 0 && WidthLeft() < 0)
        SetColumnWidth(stretch_, ColumnWidth(stretch_) + WidthLeft());
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
    for (int column = 0; column < ColumnCount(); ++column) {
        right += ColumnWidth(column);
        if (x < right) return GridPlace{place.row, column};
    }
    return std::nullopt;
}

}  // namespace kestrel::ui
