#include "ui/win32/grid/GridPainter.h"

#include <algorithm>

#include "platform/win32/Gdi.h"
#include "platform/win32/WideText.h"

namespace kestrel::ui::win32 {
namespace {

using kestrel::win32::SavedState;
using kestrel::win32::Selection;
using kestrel::win32::Wide;

constexpr int kPadding = 5;     ///< left and right of a cell's text
constexpr int kRowMargin = 5;   ///< a row is higher than its text by
constexpr int kHeadMargin = 8;  ///< a header is higher than its texts by
constexpr int kCheckBox = 13;   ///< length of a check box's side

bool Meet(const RECT& a, const RECT& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

UINT DrawTextFlag(Alignment alignment) {
    switch (alignment) {
        case Alignment::Right:
            return DT_RIGHT;
        case Alignment::Centre:
            return DT_CENTER;
        default:
            return DT_LEFT;
    }
}

}  // namespace

GridPainter::GridPainter(HDC dc, const Grid& grid, const GridStyle& style)
    : dc_(dc), grid_(grid), style_(style) {}

void GridPainter::Draw(const RECT& part, bool focused) {
    focused_ = focused;
    const SavedState state(dc_);
    SelectObject(dc_, style_.font);
    SetBkMode(dc_, TRANSPARENT);
    Fill(part, style_.colours.window);
    DrawHeaderRows(part);
    const GridGeometry& geometry = grid_.Geometry();
    for (int row = geometry.TopRow(); row < grid_.RowCount(); ++row) {
        if (!geometry.CellBounds(row, 0)) break;
        DrawRow(row, part);
    }
}

void GridPainter::DrawHeaderRows(const RECT& part) {
    for (int row = 0; row < grid_.FixedRows() && row < grid_.RowCount(); ++row) {
        RECT strip =
            style_.scale.Pixels(grid_.Geometry().CellBounds(row, Grid::kRowHeader).value());
        strip.right = std::max(strip.right, part.right);
        if (!Meet(strip, part)) continue;
        FillCell({strip.left, strip.top, strip.right + 1, strip.bottom}, style_.colours.header,
                 style_.colours.headerLine);
        for (int column = Grid::kRowHeader; column < grid_.ColumnCount(); ++column) {
            const RECT cell = style_.scale.Pixels(grid_.Geometry().CellBounds(row, column).value());
            if (Meet(cell, part)) DrawHeader(cell, row, column);
        }
    }
}

void GridPainter::DrawHeader(const RECT& cell, int row, int column) {
    FillCell(cell, style_.colours.header, style_.colours.headerLine);
    const std::wstring text = Wide(grid_.Text(row, column));
    if (text.empty()) return;
    SetTextColor(dc_, style_.colours.headerText);
    RECT place = Inner(cell);
    if (row >= grid_.FixedRows()) {
        place.right -= style_.scale.Pixels(kPadding);
        DrawTextW(dc_, text.c_str(), -1, &place,
                  DT_RIGHT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
        return;
    }
    InflateRect(&place, -1, 0);
    RECT needed = place;
    constexpr UINT kWrapped = DT_CENTER | DT_WORDBREAK | DT_NOPREFIX;
    DrawTextW(dc_, text.c_str(), -1, &needed, kWrapped | DT_CALCRECT);
    place.top += std::max<LONG>(0, (place.bottom - place.top - (needed.bottom - needed.top)) / 2);
    DrawTextW(dc_, text.c_str(), -1, &place, kWrapped);
}

void GridPainter::DrawRow(int row, const RECT& part) {
    for (int column = grid_.HasRowHeader() ? Grid::kRowHeader : 0; column < grid_.ColumnCount();
         ++column) {
        const RECT cell = style_.scale.Pixels(grid_.Geometry().CellBounds(row, column).value());
        if (cell.top >= part.bottom || cell.bottom <= part.top) return;
        if (!Meet(cell, part)) continue;
        if (column == Grid::kRowHeader)
            DrawHeader(cell, row, column);
        else
            DrawCell(cell, row, column);
    }
}

void GridPainter::DrawCell(const RECT& cell, int row, int column) {
    const GridColours& colours = style_.colours;
    const bool current = IsCurrent(row, column);
    COLORREF background = colours.Background(grid_.CellColour(row, column));
    if (grid_.RowSelected(row) && !current) background = colours.Selected(background, focused_);
    FillCell(cell, background, colours.line);
    if (grid_.IsCheckCell(row, column))
        DrawCheckBox(Inner(cell), row, column, background);
    else
        DrawCellText(cell, row, column, colours.TextOn(background));
    if (current)
        DrawFrame(Inner(cell), focused_ ? colours.highlight : colours.border,
                  focused_ ? style_.scale.Pixels(2) : 1);
}

void GridPainter::DrawCellText(const RECT& cell, int row, int column, COLORREF colour) {
    const std::string& text = grid_.Text(row, column);
    if (text.empty()) return;
    SetTextColor(dc_, colour);
    RECT place = TextPlace(cell);
    if (IsCurrent(row, column) && grid_.IsEditing()) {
        const EditLine line = Edited(cell);
        const int top = place.top + (place.bottom - place.top - LineHeight(dc_)) / 2;
        ExtTextOutW(dc_, line.left, top, ETO_CLIPPED, &place, line.text.c_str(),
                    static_cast<UINT>(line.text.size()), nullptr);
        return;
    }
    DrawTextW(dc_, Wide(text).c_str(), -1, &place,
              DrawTextFlag(grid_.Geometry().ColumnAlignment(column)) | DT_VCENTER | DT_SINGLELINE |
                  DT_NOPREFIX | DT_END_ELLIPSIS);
}

void GridPainter::DrawCheckBox(const RECT& cell, int row, int column, COLORREF background) {
    const GridColours& colours = style_.colours;
    const int side = style_.scale.Pixels(kCheckBox);
    const int left = (cell.left + cell.right - side) / 2, top = (cell.top + cell.bottom - side) / 2;
    const RECT box{left, top, left + side, top + side};
    const bool editable = grid_.Editable(row, column) && grid_.Enabled();
    Fill(box, editable ? colours.window : background);
    DrawFrame(box,
              editable ? Mix(colours.text, colours.window, colours.contrast ? 0 : 25)
                       : colours.TextOn(background),
              style_.scale.Pixels(1));
    if (!grid_.Checked(row, column)) return;
    const auto at = [&](int x, int y) {  // in 52nds of the side
        return POINT{left + (x * side + 26) / 52, top + (y * side + 26) / 52};
    };
    const POINT tick[] = {at(10, 26), at(14, 22), at(22, 30), at(38, 13), at(42, 17), at(22, 38)};
    SetDCBrushColor(dc_, editable ? colours.text : colours.TextOn(background));
    SetDCPenColor(dc_, editable ? colours.text : colours.TextOn(background));
    const Selection brush(dc_, GetStockObject(DC_BRUSH)), pen(dc_, GetStockObject(DC_PEN));
    Polygon(dc_, tick, static_cast<int>(std::size(tick)));
}

void GridPainter::DrawFrame(RECT area, COLORREF colour, int thickness) {
    SetDCBrushColor(dc_, colour);
    for (int i = 0; i < thickness; ++i) {
        FrameRect(dc_, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
        InflateRect(&area, -1, -1);
    }
}

void GridPainter::Fill(const RECT& area, COLORREF colour) {
    SetDCBrushColor(dc_, colour);
    FillRect(dc_, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void GridPainter::FillCell(const RECT& cell, COLORREF background, COLORREF line) {
    Fill(Inner(cell), background);
    Fill({cell.left, cell.bottom - 1, cell.right, cell.bottom}, line);
    Fill({cell.right - 1, cell.top, cell.right, cell.bottom}, line);
}

RECT GridPainter::TextPlace(const RECT& cell) const {
    RECT place = Inner(cell);
    InflateRect(&place, -style_.scale.Pixels(kPadding), 0);
    return place;
}

int GridPainter::RowHeight() const {
    const Selection font(dc_, style_.font);
    return LineHeight(dc_) + style_.scale.Pixels(kRowMargin);
}

int GridPainter::HeaderHeight() const {
    const Selection font(dc_, style_.font);
    int height = LineHeight(dc_);
    for (int row = 0; row < grid_.FixedRows() && row < grid_.RowCount(); ++row) {
        for (int column = 0; column < grid_.ColumnCount(); ++column) {
            RECT needed =
                Inner(style_.scale.Pixels(grid_.Geometry().CellBounds(row, column).value()));
            InflateRect(&needed, -1, 0);
            const std::wstring text = Wide(grid_.Text(row, column));
            DrawTextW(dc_, text.c_str(), -1, &needed, DT_WORDBREAK | DT_NOPREFIX | DT_CALCRECT);
            height = std::max(height, static_cast<int>(needed.bottom - needed.top));
        }
    }
    return height + style_.scale.Pixels(kHeadMargin);
}

int GridPainter::ColumnWidth(int column) const {
    const Selection font(dc_, style_.font);
    int width = 0;
    for (int row = 0; row < grid_.RowCount(); ++row) {
        RECT needed{};
        const std::wstring text = Wide(grid_.Text(row, column));
        if (row < grid_.FixedRows())
            DrawTextW(dc_, text.c_str(), -1, &needed, DT_NOPREFIX | DT_CALCRECT);
        else if (!grid_.IsCheckCell(row, column))
            needed.right = TextWidth(dc_, text);
        width = std::max(width, static_cast<int>(needed.right));
    }
    return width + 2 * style_.scale.Pixels(kPadding) + 2;
}

EditLine GridPainter::Edited(const RECT& cell) const {
    const int row = grid_.CurrentRow(), column = grid_.CurrentColumn();
    const Selection font(dc_, style_.font);
    return LayOutEdit(dc_, grid_.Text(row, column), grid_.Caret(), TextPlace(cell),
                      grid_.Geometry().ColumnAlignment(column),
                      std::max(1, style_.scale.Pixels(1)));
}

RECT GridPainter::Caret() const {
    if (!grid_.IsEditing()) return {};
    const auto bounds = grid_.Geometry().CellBounds(grid_.CurrentRow(), grid_.CurrentColumn());
    if (!bounds) return {};
    const RECT cell = style_.scale.Pixels(*bounds);
    const int x = Edited(cell).caret;
    const Selection font(dc_, style_.font);
    const int height = LineHeight(dc_);
    const int top = (cell.top + cell.bottom - 1 - height) / 2;
    return {x, top, x + std::max(1, style_.scale.Pixels(1)), top + height};
}

std::size_t GridPainter::CaretAt(int x) const {
    const auto bounds = grid_.Geometry().CellBounds(grid_.CurrentRow(), grid_.CurrentColumn());
    if (!bounds) return grid_.Caret();
    const EditLine line = Edited(style_.scale.Pixels(*bounds));
    const Selection font(dc_, style_.font);
    return ui::win32::CaretAt(dc_, grid_.Text(grid_.CurrentRow(), grid_.CurrentColumn()), line, x);
}

bool GridPainter::IsClipped(int row, int column) const {
    const auto bounds = grid_.Geometry().CellBounds(row, column);
    if (!bounds || grid_.IsCheckCell(row, column)) return false;
    const RECT place = TextPlace(style_.scale.Pixels(*bounds));
    const Selection font(dc_, style_.font);
    return TextWidth(dc_, Wide(grid_.Text(row, column))) > place.right - place.left;
}

}  // namespace kestrel::ui::win32
