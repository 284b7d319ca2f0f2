#include <algorithm>
#include <cmath>

#include "refhost/gantt/PlanView.h"
#include "ui/controls/ChartText.h"

namespace refhost {
namespace {

using kestrel::ui::Key;
using Kind = PlanPlace::Kind;

constexpr int kGrip = 4;       ///< how near to a border the mouse holds it
constexpr int kTextSize = 12;  ///< for fitting columns
constexpr int kCellPadding = 14;

}  // namespace

int PlanView::ColumnAt(int x) const {
    for (int column = 0; column < TaskTable::kColumns; ++column)
        if (x < table_.Left(column + 1)) return column;
    return TaskTable::kColumns;
}

PlanPlace PlanView::HeaderAt(int x) const {
    if (x >= ChartLeft()) return {Kind::TimeHeader};
    const int inTable = x + tableLeft_;
    for (int column = TaskTable::kColumns - 1; column >= 0; --column)
        if (std::abs(inTable - table_.Left(column + 1)) <= kGrip)
            return {Kind::ColumnBorder, 0, column};
    const int column = ColumnAt(inTable);
    if (column == TaskTable::kColumns) return {};
    return {Kind::ColumnTitle, 0, column};
}

PlanPlace PlanView::At(int x, int y) const {
    if (x < 0 || y < 0 || x >= width_ || y >= height_) return {};
    if (x >= splitter_ && x < ChartLeft()) return {Kind::Splitter};
    if (y < kHeaderHeight) return HeaderAt(x);
    const std::size_t row = firstRow_ + static_cast<std::size_t>((y - kHeaderHeight) / kRowHeight);
    if (row >= outline_.RowCount()) return {};
    const int column = x < splitter_ ? ColumnAt(x + tableLeft_) : TaskTable::kColumns;
    if (column == static_cast<int>(TaskColumn::Name) &&
        outline_.HasChildren(outline_.TaskAt(row))) {
        const int box = table_.Left(column) + NameIndent(outline_.TaskAt(row));
        const int inTable = x + tableLeft_;
        if (inTable >= box && inTable < box + kIndent) return {Kind::OutlineBox, row, column};
    }
    return {Kind::Row, row, column};
}

void PlanView::MouseDown(const kestrel::ui::MouseEvent& event) {
    const PlanPlace place = At(event.x, event.y);
    switch (place.kind) {
        case Kind::Splitter:
            drag_ = {place.kind, 0, splitter_ - event.x};
            break;
        case Kind::ColumnBorder:
            if (event.doubleClick)
                FitColumn(place.column);
            else
                drag_ = {place.kind, place.column,
                         table_.Left(place.column + 1) - tableLeft_ - event.x};
            break;
        case Kind::OutlineBox: {
            const std::size_t task = outline_.TaskAt(place.row);
            SetExpanded(task, !outline_.IsExpanded(task));
            break;
        }
        case Kind::Row:
            Select(outline_.TaskAt(place.row));
            if (event.doubleClick && OnOpenTask) OnOpenTask();
            break;
        default:
            break;
    }
}

void PlanView::MouseMove(int x) {
    if (drag_.kind == Kind::Splitter) {
        splitter_ = x + drag_.offset;
        Resize(width_, height_);
    } else if (drag_.kind == Kind::ColumnBorder) {
        table_.SetWidth(static_cast<TaskColumn>(drag_.column),
                        x + drag_.offset + tableLeft_ - table_.Left(drag_.column));
        ScrollTableTo(tableLeft_);
    }
}

void PlanView::FitColumn(int column) {
    const auto which = static_cast<TaskColumn>(column);
    int widest = kestrel::ui::TextWidth(TaskTable::Title(which), kTextSize, true);
    for (std::size_t row = 0; row < outline_.RowCount(); ++row) {
        const std::size_t task = outline_.TaskAt(row);
        const int indent = which == TaskColumn::Name ? NameIndent(task) + kIndent : 0;
        const std::string text = TaskTable::Text(*plan_, figures_, task, which);
        widest = std::max(
            widest, indent + kestrel::ui::TextWidth(text, kTextSize, outline_.HasChildren(task)));
    }
    table_.SetWidth(which, widest + kCellPadding);
    ScrollTableTo(tableLeft_);
}

void PlanView::MoveBy(std::ptrdiff_t rows) {
    if (outline_.RowCount() == 0) return;
    const auto task = SelectedTask();
    const auto row = task ? outline_.RowOf(*task) : std::nullopt;
    const auto last = static_cast<std::ptrdiff_t>(outline_.RowCount()) - 1;
    const std::ptrdiff_t target =
        row ? std::clamp<std::ptrdiff_t>(static_cast<std::ptrdiff_t>(*row) + rows, 0, last) : 0;
    Select(outline_.TaskAt(static_cast<std::size_t>(target)));
    ShowRow(static_cast<std::size_t>(target));
}

/// Collapses the selected summary, or goes to the one that holds the selected task.
bool PlanView::StepLeft() {
    const auto task = SelectedTask();
    if (!task) return false;
    if (outline_.HasChildren(*task) && outline_.IsExpanded(*task))
        SetExpanded(*task, false);
    else if (const auto parent = outline_.Parent(*task))
        Select(*parent);
    return true;
}

/// Expands the selected summary, or goes to its first task.
bool PlanView::StepRight() {
    const auto task = SelectedTask();
    if (!task || !outline_.HasChildren(*task)) return false;
    if (outline_.IsExpanded(*task))
        MoveBy(1);
    else
        SetExpanded(*task, true);
    return true;
}

bool PlanView::KeyDown(const kestrel::ui::KeyEvent& event) {
    if (event.alt) return false;
    const auto page = static_cast<std::ptrdiff_t>(WholeRows());
    const auto all = static_cast<std::ptrdiff_t>(outline_.RowCount());
    switch (event.key) {
        case Key::Up:
            MoveBy(-1);
            return true;
        case Key::Down:
            MoveBy(1);
            return true;
        case Key::PageUp:
            MoveBy(-page);
            return true;
        case Key::PageDown:
            MoveBy(page);
            return true;
        case Key::Home:
            MoveBy(-all);
            return true;
        case Key::End:
            MoveBy(all);
            return true;
        case Key::Left:
            if (!event.ctrl) return StepLeft();
            ScrollTimeTo(timeLeft_ - ChartWidth() / 8.0);
            return true;
        case Key::Right:
            if (!event.ctrl) return StepRight();
            ScrollTimeTo(timeLeft_ + ChartWidth() / 8.0);
            return true;
        case Key::Enter:
            if (!SelectedTask() || !OnOpenTask) return false;
            OnOpenTask();
            return true;
        default:
            return false;
    }
}

}  // namespace refhost
