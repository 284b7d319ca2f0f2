#include "refhost/windows/desktop/PlanParts.h"

#include <algorithm>
#include <cmath>

namespace refhost::win32 {
namespace {

constexpr double kMilestoneHalf = 7;  ///< of its width

constexpr TaskColumn ColumnOf(int place) { return static_cast<TaskColumn>(place - 1); }

}  // namespace

long PlanParts::PartCount() const {
    if (!bench_.View()) return 0;
    return (1 + static_cast<long>(View().Outline().RowCount())) * PartsPerRow();
}

PlanParts::Cell PlanParts::CellOf(long part) const {
    const auto row = static_cast<std::size_t>((part - 1) / PartsPerRow());
    const int place = static_cast<int>((part - 1) % PartsPerRow());
    if (row == 0) return {true, 0, place, 0};
    return {false, row - 1, place, View().Outline().TaskAt(row - 1)};
}

long PlanParts::IdOf(std::size_t row, int place) const {
    return (1 + static_cast<long>(row)) * PartsPerRow() + place + 1;
}

std::string PlanParts::Text(std::size_t task, int place) const {
    return TaskTable::Text(View().Plan(), View().Figures(), task, ColumnOf(place));
}

std::string PlanParts::Dates(std::size_t task) const {
    const TaskFigures& figures = View().Figures()[task];
    const std::string start = Text(task, 1 + static_cast<int>(TaskColumn::Start));
    if (figures.start == figures.finish) return start;
    return start + " to " + Text(task, 1 + static_cast<int>(TaskColumn::Finish));
}

std::string PlanParts::PartName(long part) const {
    if (part == 0) return "Plan";
    const Cell cell = CellOf(part);
    std::string what;
    if (cell.place == kBar)
        what = cell.heading ? "Gantt chart" : "Bar";
    else if (cell.place != kWholeRow)
        what = TaskTable::Title(ColumnOf(cell.place));
    if (cell.heading) return cell.place == kWholeRow ? "Headings" : what;
    const std::string task = Text(cell.task, 1 + static_cast<int>(TaskColumn::Name));
    return cell.place == kWholeRow ? task : what + ", " + task;
}

std::string PlanParts::PartValue(long part) const {
    if (part == 0) return {};
    const Cell cell = CellOf(part);
    if (cell.heading) return {};
    if (cell.place == kWholeRow) return std::to_string(View().Outline().Level(cell.task) + 1);
    return cell.place == kBar ? Dates(cell.task) : Text(cell.task, cell.place);
}

std::string PlanParts::PartDescription(long part) const {
    if (part == 0) return {};
    const Cell cell = CellOf(part);
    if (cell.heading || cell.place != kWholeRow) return {};
    std::string all;
    for (int place = 1; place < kBar; ++place) {
        const std::string text = Text(cell.task, place);
        if (text.empty() || ColumnOf(place) == TaskColumn::Name) continue;
        all +=
            (all.empty() ? "" : ", ") + std::string(TaskTable::Title(ColumnOf(place))) + " " + text;
    }
    return all;
}

std::string PlanParts::PartAction(long part) const {
    const long state = part == 0 ? 0 : PartState(part);
    if (state & STATE_SYSTEM_EXPANDED) return "Collapse";
    return state & STATE_SYSTEM_COLLAPSED ? "Expand" : "";
}

long PlanParts::PartRole(long part) const {
    if (part == 0) return ROLE_SYSTEM_OUTLINE;
    const Cell cell = CellOf(part);
    if (cell.place == kWholeRow) return cell.heading ? ROLE_SYSTEM_ROW : ROLE_SYSTEM_OUTLINEITEM;
    if (cell.heading) return ROLE_SYSTEM_COLUMNHEADER;
    return cell.place == kBar ? ROLE_SYSTEM_GRAPHIC : ROLE_SYSTEM_CELL;
}

long PlanParts::PartState(long part) const {
    if (part == 0) return STATE_SYSTEM_FOCUSABLE;
    const Cell cell = CellOf(part);
    long state = STATE_SYSTEM_READONLY;
    if (cell.heading) return state;
    state |= STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_SELECTABLE;
    if (View().SelectedTask() == cell.task) state |= STATE_SYSTEM_SELECTED;
    const Outline& outline = View().Outline();
    if (cell.place == kWholeRow && outline.HasChildren(cell.task))
        state |= outline.IsExpanded(cell.task) ? STATE_SYSTEM_EXPANDED : STATE_SYSTEM_COLLAPSED;
    return state;
}

/// A bar's place in its row; empty where it lies outside the time on show.
PlanParts::Box PlanParts::BarOf(const Cell& cell) const {
    for (const GanttBar& bar : View().Drawing().bars) {
        if (bar.task != cell.task) continue;
        const double half = bar.kind == BarKind::Milestone ? kMilestoneHalf : 0;
        const double top = PlanView::kHeaderHeight + bar.top + kBarTop;
        return {View().ChartLeft() + std::max(0.0, bar.left - half), top,
                View().ChartLeft() + std::min<double>(View().ChartWidth(), bar.right + half),
                top + kBarHeight};
    }
    return {};
}

RECT PlanParts::PartPlace(long part) const {
    const Cell cell = CellOf(part);
    const PlanView& view = View();
    const std::size_t first = view.FirstRow();
    if (!cell.heading && (cell.row < first || cell.row > first + view.WholeRows())) return {};
    const double shown = static_cast<double>(cell.row - first) * kRowHeight;
    Box box{0, cell.heading ? 0 : PlanView::kHeaderHeight + shown, 0, 0};
    box.bottom = box.top + (cell.heading ? PlanView::kHeaderHeight : kRowHeight);
    if (cell.place == kWholeRow) {
        box.right = view.ChartLeft() + view.ChartWidth();
    } else if (cell.place != kBar) {
        const double left = view.Table().Left(cell.place - 1) - view.TableLeft();
        const double right = view.Table().Left(cell.place) - view.TableLeft();
        box.left = std::max(0.0, left);
        box.right = std::min<double>(view.TableWidth(), right);
    } else if (cell.heading) {
        box.left = view.ChartLeft();
        box.right = box.left + view.ChartWidth();
    } else {
        box = BarOf(cell);
    }
    const auto pixel = [this](double units) { return std::lround(units * Scale()); };
    return {pixel(box.left), pixel(box.top), pixel(box.right), pixel(box.bottom)};
}

long PlanParts::PartAt(POINT place) const {
    if (!bench_.View()) return 0;
    const auto units = [this](LONG pixels) {
        return static_cast<int>(std::floor(pixels / Scale()));
    };
    const PlanPlace at = View().At(units(place.x), units(place.y));
    switch (at.kind) {
        case PlanPlace::Kind::ColumnTitle:
        case PlanPlace::Kind::ColumnBorder:
            return at.column + 2;
        case PlanPlace::Kind::TimeHeader:
            return kBar + 1;
        case PlanPlace::Kind::OutlineBox:
        case PlanPlace::Kind::Row: {
            const long inRow = IdOf(at.row, at.column + 1);  // behind the columns come the bars
            const RECT box = PartPlace(inRow);
            return PtInRect(&box, place) ? inRow : IdOf(at.row, kWholeRow);
        }
        default:
            return 0;
    }
}

long PlanParts::FocusedPart() const {
    if (!bench_.View()) return 0;
    const auto task = View().SelectedTask();
    const auto row = task ? View().Outline().RowOf(*task) : std::nullopt;
    return row ? IdOf(*row, kWholeRow) : 0;
}

HRESULT PlanParts::SelectPart(long part, long flags) {
    if (flags & ~(SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION)) return E_INVALIDARG;
    if (part == 0) return S_OK;
    const Cell cell = CellOf(part);
    if (cell.heading) return E_INVALIDARG;
    View().Select(cell.task);
    context_.afterEvent();
    return S_OK;
}

HRESULT PlanParts::ActOn(long part) {
    if (PartAction(part).empty()) return DISP_E_MEMBERNOTFOUND;
    kestrel::ui::KeyEvent key;
    key.key = View().Outline().IsExpanded(CellOf(part).task) ? kestrel::ui::Key::Left
                                                             : kestrel::ui::Key::Right;
    View().Select(CellOf(part).task);
    View().KeyDown(key);
    context_.afterEvent();
    return S_OK;
}

}  // namespace refhost::win32
