#include "refhost/cli/ImportArguments.h"

#include "refhost/charts/FigureText.h"
#include "refhost/cli/Table.h"

namespace refhost {
namespace {

std::string DateCell(const std::optional<Minute>& date) {
    return date ? DateAndTimeText(*date) : std::string();
}

}  // namespace

ImportOptions ReadImportOptions(const Arguments& arguments) {
    ImportOptions options;
    options.keepDates = arguments.Has("--keep-dates");
    if (const auto costs = arguments.Option("--costs")) {
        if (*costs != "hundredths" && *costs != "whole")
            throw UsageError("'" + *costs + "' is no value for --costs; give hundredths or whole");
        options.costs = *costs == "whole" ? CostUnit::Whole : CostUnit::Hundredths;
    }
    return options;
}

void RefuseImportOptions(const Arguments& arguments, const std::optional<ImportReport>& imported) {
    if (imported) return;
    for (const char* option : {"--costs", "--keep-dates", "--dates"})
        if (arguments.Has(option))
            throw UsageError(std::string(option) +
                             " is for project files, and this is a plan file");
}

std::string MovedTasksText(const DateComparison& dates) {
    Table table({{"ID", Table::Align::Right},
                 {"Task"},
                 {"Start in file"},
                 {"Start"},
                 {"Finish in file"},
                 {"Finish"},
                 {"Shift"}});
    for (const MovedTask& task : dates.moved)
        table.Add({task.id, task.name, DateCell(task.fileStart), DateAndTimeText(task.start),
                   DateCell(task.fileFinish), DateAndTimeText(task.finish),
                   ShiftText(task.shift) + (task.zeroPercentLag ? ", behind a lag of 0 %" : "")});
    return table.Text();
}

}  // namespace refhost
