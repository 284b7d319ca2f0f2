#include "refhost/gantt/TaskTable.h"

#include <algorithm>
#include <stdexcept>

#include "base/NumberText.h"
#include "refhost/charts/FigureText.h"

namespace refhost {

const char* TaskTable::Title(TaskColumn column) {
    constexpr std::array<const char*, kColumns> kTitles = {
        "ID", "Name", "Duration", "Start", "Finish", "Cost", "Critical", "RiskFactors"};
    return kTitles[Index(column)];
}

std::string TaskTable::Text(const LivePlan& plan, const PlanFigures& figures, std::size_t task,
                            TaskColumn column) {
    const TaskData& data = plan.Data().tasks[task];
    switch (column) {
        case TaskColumn::Id:
            return data.id;
        case TaskColumn::Name:
            return data.name;
        case TaskColumn::Duration:
            return DurationText(figures[task].duration, figures.MinutesPerDay());
        case TaskColumn::Start:
            return DateAndTimeText(figures[task].start);
        case TaskColumn::Finish:
            return DateAndTimeText(figures[task].finish);
        case TaskColumn::Cost:
            return figures[task].cost == 0 ? "" : WholeMoneyText(figures[task].cost);
        case TaskColumn::Critical:
            return figures[task].criticality ? kestrel::PercentText(*figures[task].criticality)
                                             : std::string();
        case TaskColumn::RiskFactors: {
            const std::string* text = FindText(data.userValues, "RiskFactors");
            return text ? *text : std::string();
        }
    }
    throw std::logic_error("the table has no such column");
}

void TaskTable::SetWidth(TaskColumn column, int width) {
    widths_[Index(column)] = std::max(kLeastWidth, width);
}

int TaskTable::Left(int column) const {
    int left = 0;
    for (int i = 0; i < column; ++i) left += widths_[static_cast<std::size_t>(i)];
    return left;
}

}  // namespace refhost
