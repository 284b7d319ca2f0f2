#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "refhost/engine/HostPlan.h"
#include "refhost/gantt/GanttLayout.h"
#include "refhost/gantt/TaskTable.h"
#include "ui/controls/Events.h"
#include "ui/controls/Geometry.h"

namespace refhost {

/// What lies at a place of the view.
struct PlanPlace {
    enum class Kind {
        Nothing,
        ColumnTitle,
        ColumnBorder,  ///< where `column` ends
        TimeHeader,
        Splitter,
        OutlineBox,  ///< expands and collapses the row's summary
        Row,
    };
    Kind kind = Kind::Nothing;
    std::size_t row = 0;
    int column = 0;
    bool operator==(const PlanPlace&) const = default;
};

/// A plan on show: the task table at the left, a splitter, the Gantt chart at the right, one row a
/// task. It holds what is expanded, scrolled, zoomed and selected, and says what keys and mouse do;
/// a window paints it and hands it the user's events. Places and sizes are device-independent
/// units from its upper left corner.
///
/// The selected task is the current row of the host's Gantt view, so the add-in sees it and moves
/// it: Sync brings the view in step.
class PlanView {
 public:
    static constexpr int kHeaderHeight = 2 * kRowHeight;
    static constexpr int kSplitterWidth = 5;
    static constexpr int kIndent = 16;  ///< of a name, per level; the outline box is as wide

    /// Raises kestrel::DataError for a plan whose dates lie beyond the calendar.
    explicit PlanView(std::shared_ptr<HostPlan> plan);

    HostPlan& Plan() const { return *plan_; }
    const refhost::Outline& Outline() const { return outline_; }
    const PlanFigures& Figures() const { return figures_; }
    const TaskTable& Table() const { return table_; }
    const TimeScale& Scale() const { return scale_; }

    /// Takes over what has changed in the plan and which task is selected. Answers whether there is
    /// anything to repaint. Not for the middle of an analysis.
    bool Sync();
    /// What the last analysis found, one share a task; none without one.
    void ShowCriticality(std::vector<double> shares);
    /// Rises with every change that a user could see.
    std::uint64_t Changes() const { return changes_; }

    /// @name Places
    ///@{
    void Resize(int width, int height);
    int TableWidth() const { return splitter_; }
    int ChartLeft() const { return splitter_ + kSplitterWidth; }
    int ChartWidth() const;
    PlanPlace At(int x, int y) const;
    /// Left edge of a name or of its outline box, from the edge of the Name column.
    int NameIndent(std::size_t task) const { return kIndent * outline_.Level(task); }
    GanttDrawing Drawing() const;
    ///@}

    /// @name Scrolling
    ///@{
    std::size_t FirstRow() const { return firstRow_; }
    /// Rows that fit whole; at least 1.
    std::size_t WholeRows() const;
    void ScrollToRow(std::ptrdiff_t row);
    /// On the time scale.
    double TimeLeft() const { return timeLeft_; }
    double TimeFrom() const;
    double TimeTo() const;
    void ScrollTimeTo(double left);
    int TableLeft() const { return tableLeft_; }
    void ScrollTableTo(int left);
    ///@}

    /// @name What the user asks for
    ///@{
    std::optional<std::size_t> SelectedTask() const;
    void Select(std::size_t task);
    /// By levels of the scale; the date at `x` stays where it is, or without one the selected
    /// task's start, or else the middle.
    void Zoom(int levels, std::optional<int> x = std::nullopt);
    void ShowWholePlan();
    void GoTo(Minute date);
    void GoToSelectedTask();
    void SetAllExpanded(bool expanded);
    /// Answers whether it made use of the key.
    bool KeyDown(const kestrel::ui::KeyEvent& event);
    void MouseDown(const kestrel::ui::MouseEvent& event);
    /// While the button is held.
    void MouseMove(int x);
    void MouseUp() { drag_ = {}; }
    /// The user wants to work on the selected task: double click or Enter.
    std::function<void()> OnOpenTask;
    ///@}

 private:
    struct Drag {
        PlanPlace::Kind kind = PlanPlace::Kind::Nothing;
        int column = 0;
        int offset = 0;  ///< from the mouse to the edge that it holds
    };

    void Changed() { ++changes_; }
    void SetExpanded(std::size_t task, bool expanded);
    void ShowRow(std::size_t row);
    void MoveBy(std::ptrdiff_t rows);
    bool StepLeft();
    bool StepRight();
    void FitColumn(int column);
    int ColumnAt(int x) const;
    PlanPlace HeaderAt(int x) const;
    void PlaceInitially();

    std::shared_ptr<HostPlan> plan_;
    refhost::Outline outline_;
    PlanFigures figures_;
    std::vector<double> criticality_;  ///< one a task, or none
    std::vector<TaskLink> links_;
    TaskTable table_;
    TimeScale scale_;

    int width_ = 0, height_ = 0;
    int splitter_ = 0;  ///< its left edge; 0 before the first Resize
    std::size_t firstRow_ = 0;
    double timeLeft_ = 0;
    int tableLeft_ = 0;
    Drag drag_;
    std::uint64_t planChanges_ = 0;  ///< of the plan, when the figures were fetched
    std::int32_t shownRow_ = 0;      ///< the host's current row as last seen
    std::uint64_t changes_ = 0;
};

}  // namespace refhost
