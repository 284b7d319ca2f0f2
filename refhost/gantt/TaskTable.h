#pragma once

#include <array>
#include <string>

#include "refhost/gantt/PlanFigures.h"

namespace refhost {

enum class TaskColumn { Id, Name, Duration, Start, Finish, Cost, Critical, RiskFactors };

/// The columns beside the bars: their titles and widths, and the text of each cell.
class TaskTable {
 public:
    static constexpr int kColumns = 8;
    static constexpr int kLeastWidth = 24;

    static const char* Title(TaskColumn column);
    /// Figures stand at the right of their cells.
    static bool IsFigure(TaskColumn column) {
        return column == TaskColumn::Duration || column == TaskColumn::Cost ||
               column == TaskColumn::Critical;
    }

    /// The name comes without its indentation.
    static std::string Text(const LivePlan& plan, const PlanFigures& figures, std::size_t task,
                            TaskColumn column);

    /// @name Widths, in device-independent units
    ///@{
    int Width(TaskColumn column) const { return widths_[Index(column)]; }
    /// Never below kLeastWidth.
    void SetWidth(TaskColumn column, int width);
    /// Where a column starts, from the table's left edge; of the one behind the last, where the
    /// table ends.
    int Left(int column) const;
    int TotalWidth() const { return Left(kColumns); }
    ///@}

 private:
    static std::size_t Index(TaskColumn column) { return static_cast<std::size_t>(column); }

    std::array<int, kColumns> widths_{46, 228, 64, 116, 116, 88, 60, 92};
};

}  // namespace refhost
