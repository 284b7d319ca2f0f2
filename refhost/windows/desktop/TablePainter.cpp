#include <algorithm>

#include "refhost/windows/desktop/PlanPainter.h"

namespace refhost::win32 {
namespace {

constexpr int kPadding = 7;  ///< beside a cell's text

/// Paints the table of one view.
class TablePainter {
 public:
    TablePainter(const PaintTools& tools, const PlanView& view, const PlanPaintState& state,
                 double height)
        : tools_(tools), colours_(tools.Colours()), view_(view), state_(state), height_(height) {}

    void Paint() const {
        const RECT all = tools_.Area(0, 0, view_.TableWidth(), height_);
        const ClipScope clip(tools_.Dc(), all);
        tools_.Fill(all, colours_.paper);
        PaintRows();
        PaintHeader();
    }

 private:
    double Left(int column) const { return view_.Table().Left(column) - view_.TableLeft(); }

    void PaintHeader() const {
        tools_.Fill(tools_.Area(0, 0, view_.TableWidth(), PlanView::kHeaderHeight),
                    colours_.header);
        for (int column = 0; column < TaskTable::kColumns; ++column) {
            const auto which = static_cast<TaskColumn>(column);
            tools_.Text(TaskTable::Title(which),
                        tools_.Area(Left(column) + kPadding, kRowHeight,
                                    Left(column + 1) - kPadding, PlanView::kHeaderHeight),
                        tools_.Fonts().bold.Get(), colours_.headerText,
                        TaskTable::IsFigure(which) ? DT_RIGHT : DT_LEFT);
            tools_.Vertical(tools_.Pixel(Left(column + 1)) - 1, 0, PlanView::kHeaderHeight,
                            colours_.ruling);
        }
        tools_.Fill({0, tools_.Pixel(PlanView::kHeaderHeight) - 1, tools_.Pixel(view_.TableWidth()),
                     tools_.Pixel(PlanView::kHeaderHeight)},
                    colours_.ruling);
    }

    void PaintRows() const {
        const Outline& outline = view_.Outline();
        const std::size_t end =
            std::min(view_.FirstRow() + view_.WholeRows() + 1, outline.RowCount());
        const auto selected = view_.SelectedTask();
        double top = PlanView::kHeaderHeight;
        for (std::size_t row = view_.FirstRow(); row < end; ++row, top += kRowHeight) {
            const std::size_t task = outline.TaskAt(row);
            PaintRow(task, top, task == selected);
        }
        for (int column = 1; column <= TaskTable::kColumns; ++column)
            tools_.Vertical(tools_.Pixel(Left(column)) - 1, PlanView::kHeaderHeight, top,
                            colours_.faintRuling);
    }

    void PaintRow(std::size_t task, double top, bool selected) const {
        if (selected)
            tools_.Fill(tools_.Area(0, top, Left(TaskTable::kColumns), top + kRowHeight),
                        state_.focused ? colours_.selected : colours_.selectedIdle);
        const COLORREF text = selected && state_.focused ? colours_.selectedText : colours_.text;
        for (int column = 0; column < TaskTable::kColumns; ++column) {
            if (Left(column + 1) <= 0 || Left(column) >= view_.TableWidth()) continue;
            PaintCell(task, static_cast<TaskColumn>(column), top, text);
        }
        tools_.Fill({0, tools_.Pixel(top + kRowHeight) - 1, tools_.Pixel(Left(TaskTable::kColumns)),
                     tools_.Pixel(top + kRowHeight)},
                    colours_.faintRuling);
        if (selected && state_.focused) {
            const RECT mark = tools_.Area(0, top, 3, top + kRowHeight);
            tools_.Fill({mark.left, mark.top, mark.right, mark.bottom - 1}, colours_.barEdge);
        }
    }

    void PaintCell(std::size_t task, TaskColumn column, double top, COLORREF colour) const {
        const int number = static_cast<int>(column);
        double left = Left(number) + kPadding;
        if (column == TaskColumn::Name) {
            left += view_.NameIndent(task);
            if (view_.Outline().HasChildren(task)) PaintBox(task, left - kPadding, top);
            left += PlanView::kIndent - 2;
        } else if (column == TaskColumn::Id) {
            colour = colour == colours_.text ? colours_.faintText : colour;
        } else if (column == TaskColumn::RiskFactors && colour == colours_.text) {
            colour = colours_.riskText;
        }
        const bool bold = view_.Outline().HasChildren(task) && column != TaskColumn::Id;
        tools_.Text(TaskTable::Text(view_.Plan(), view_.Figures(), task, column),
                    tools_.Area(left, top, Left(number + 1) - kPadding, top + kRowHeight - 1),
                    bold ? tools_.Fonts().bold.Get() : tools_.Fonts().usual.Get(), colour,
                    TaskTable::IsFigure(column) ? DT_RIGHT : DT_LEFT);
    }

    /// A triangle that points at what is open: down to the tasks below, or right.
    void PaintBox(std::size_t task, double left, double top) const {
        const int x = tools_.Pixel(left + kPadding + 3);
        const int y = tools_.Pixel(top + kRowHeight / 2.0) - 1;
        const int half = tools_.Pixel(4);
        if (view_.Outline().IsExpanded(task)) {
            const POINT points[] = {
                {x - half, y - half / 2}, {x + half, y - half / 2}, {x, y + half - half / 2}};
            tools_.Polygon(points, 3, colours_.faintText);
        } else {
            const POINT points[] = {
                {x - half / 2, y - half}, {x - half / 2, y + half}, {x + half - half / 2, y}};
            tools_.Polygon(points, 3, colours_.faintText);
        }
    }

    const PaintTools& tools_;
    const Palette& colours_;
    const PlanView& view_;
    const PlanPaintState& state_;
    double height_;
};

}  // namespace

void PaintTable(const PaintTools& tools, const PlanView& view, const PlanPaintState& state,
                double height) {
    TablePainter(tools, view, state, height).Paint();
}

void PaintPlan(const PaintTools& tools, const PlanView& view, const PlanPaintState& state,
               double width, double height) {
    PaintTable(tools, view, state, height);
    PaintChart(tools, view, state, width, height);
    const RECT splitter = tools.Area(view.TableWidth(), 0, view.ChartLeft(), height);
    tools.Fill(splitter, tools.Colours().header);
    tools.Fill({splitter.left, splitter.top, splitter.left + 1, splitter.bottom},
               tools.Colours().ruling);
    tools.Fill({splitter.right - 1, splitter.top, splitter.right, splitter.bottom},
               tools.Colours().ruling);
}

}  // namespace refhost::win32
