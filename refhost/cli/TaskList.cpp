#include "refhost/cli/TaskList.h"

#include "refhost/files/Csv.h"
#include "store/TaskField.h"

namespace refhost {

std::string TaskListText(const PlanData& plan, char separator) {
    std::string text = CsvLine({"UID", "ID", "Name", kestrel::kRiskFactorsField}, separator);
    for (const TaskData& task : plan.tasks) {
        const std::string* field = FindText(task.userValues, kestrel::kRiskFactorsField);
        text += CsvLine({task.uid, task.id, task.name, field ? *field : ""}, separator);
    }
    return text;
}

}  // namespace refhost
