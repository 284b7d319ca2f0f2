#include <algorithm>

#include "base/Errors.h"
#include "base/NumberText.h"
#include "base/OneLine.h"
#include "refhost/cli/Commands.h"
#include "refhost/cli/FactorTracker.h"
#include "refhost/cli/ImportArguments.h"
#include "refhost/cli/Session.h"
#include "store/TaskField.h"
#include "ui/assignment/TaskAssignments.h"
#include "util/modToolBox.h"

namespace refhost {
namespace {

using kestrel::DataError;

/// The IDs of a list typed by the user ("1,3"), each one that the register holds.
kestrel::RiskIDs TypedIDs(const std::string& list, std::size_t held) {
    kestrel::RiskIDs ids;
    for (int piece = 1; piece <= kestrel::CountListItems(list, ","); ++piece) {
        const std::string item = kestrel::GetListItem(list, piece, ",");
        if (item.find_first_not_of(' ') == std::string::npos) {
            if (kestrel::CountListItems(list, ",") == 1) return ids;
            throw UsageError("'" + list + "' has an empty place; write IDs as in 1,3");
        }
        double number = 0;
        try {
            number = kestrel::ParseNumber(item);
        } catch (const DataError&) {
            throw UsageError("'" + item + "' is no risk factor ID; write IDs as in 1,3");
        }
        const auto id = kestrel::ToInt32(number);
        if (!id || *id != number || *id < 1 || static_cast<std::size_t>(*id) > held)
            throw DataError("There is no risk factor " + item + "; the register holds " +
                            std::to_string(held) + ", numbered from 1.");
        if (std::find(ids.begin(), ids.end(), *id) != ids.end())
            throw DataError("Risk factor " + item + " is named twice; name it once.");
        ids.push_back(*id);
    }
    return ids;
}

std::string Joined(const kestrel::RiskIDs& ids) {
    std::string list;
    for (const std::int32_t id : ids) list += (list.empty() ? "" : ",") + std::to_string(id);
    return list;
}

/// A task's factors, one a line.
void TellFactors(Outputs& outputs, const std::string& field,
                 const FactorTracker::Factors& factors) {
    for (const bool inSeries : {true, false})
        for (const std::int32_t id : kestrel::ListedIDs(kestrel::GetRiskList(field, inSeries))) {
            const bool held = id >= 1 && static_cast<std::size_t>(id) <= factors.size();
            outputs.Tell((inSeries ? "  series    " : "  parallel  ") + std::to_string(id) + "  " +
                         (held ? kestrel::Printable(
                                     factors[static_cast<std::size_t>(id) - 1]->strDescription)
                               : "(not in the register)") +
                         "\n");
        }
}

std::string FieldOrNone(const std::string& field) {
    return field.empty() ? "no risk factors" : kestrel::Printable(field);
}

/// The ordinary tasks that a change holds for: the task itself, or all below a summary.
void CollectOrdinary(const kestrel::TaskFields& fields, std::vector<host::TaskPtr>& tasks) {
    if (!fields.isSummary) tasks.push_back(fields.task);
    for (const kestrel::TaskFields& child : fields.children) CollectOrdinary(child, tasks);
}

std::string AssignedField(const Arguments& arguments, std::size_t held) {
    const kestrel::RiskIDs series = TypedIDs(arguments.Option("--series").value_or(""), held);
    const kestrel::RiskIDs parallel = TypedIDs(arguments.Option("--parallel").value_or(""), held);
    for (const std::int32_t id : series)
        if (std::find(parallel.begin(), parallel.end(), id) != parallel.end())
            throw DataError("Risk factor " + std::to_string(id) +
                            " cannot be both in series and in parallel; name it in one group.");
    std::string parallelList = Joined(parallel);
    std::string seriesList = Joined(series);
    return kestrel::MakeRiskFieldText(parallelList, seriesList);
}

void TellAssignments(Outputs& outputs, const std::vector<host::TaskPtr>& tasks,
                     const FactorTracker::Factors& factors) {
    for (const host::TaskPtr& task : tasks) {
        const std::string field = task->UserValues()->Item(kestrel::kRiskFactorsField);
        outputs.Tell(kestrel::Printable(kestrel::TaskLabel(*task)) + ": " + FieldOrNone(field) +
                     "\n");
        TellFactors(outputs, field, factors);
    }
}

void SetAssignments(Session& session, const host::TaskPtr& task,
                    const std::vector<host::TaskPtr>& tasks, const std::string& field,
                    Outputs& outputs, const FactorTracker::Factors& factors) {
    kestrel::EnsureTextField(session.Plan(), kestrel::kRiskFactorsField);
    for (const host::TaskPtr& ordinary : tasks)
        ordinary->UserValues()->PutItem(kestrel::kRiskFactorsField, field);
    if (task->TaskType() != host::kSummaryTask) return TellAssignments(outputs, tasks, factors);
    outputs.Tell(kestrel::Printable(kestrel::TaskLabel(*task)) +
                 " is a summary; every task below it (" + std::to_string(tasks.size()) +
                 ") now carries: " + FieldOrNone(field) + "\n");
    TellFactors(outputs, field, factors);
}

host::TaskPtr FindTask(Session& session, const std::string& id) {
    if (const auto position = session.Plan().Find(id)) return session.Plan().TaskAt(*position);
    throw DataError(session.PlanName() + ": the plan has no task '" + id +
                    "'; name a task by its ID.");
}

}  // namespace

void Import(const Arguments& arguments, Outputs& outputs) {
    Session session(arguments.Word("PROJECT"), outputs, ReadImportOptions(arguments));
    RefuseImportOptions(arguments, session.Imported());
    session.SavePlan(*outputs.Find("-o"));
    if (arguments.Has("--dates")) outputs.Tell(MovedTasksText(session.Imported()->dates));
}

void Assign(const Arguments& arguments, Outputs& outputs) {
    const bool sets = arguments.Has("--series") || arguments.Has("--parallel");
    if (arguments.Has("-o") && !sets)
        throw UsageError("-o needs --series or --parallel, or there is nothing to write");
    Session session(arguments.Word("PLAN"), outputs);
    const host::TaskPtr task = FindTask(session, arguments.Word("TASK"));
    const auto factors = FactorTracker::ReadRegister(session.Host(), session.Desktop());
    std::vector<host::TaskPtr> tasks;
    CollectOrdinary(kestrel::ReadTaskFields(task), tasks);
    if (!sets) return TellAssignments(outputs, tasks, factors);
    SetAssignments(session, task, tasks, AssignedField(arguments, factors.size()), outputs,
                   factors);
    if (auto* plan = outputs.Find("-o"))
        session.SavePlan(*plan);
    else
        TellError("Nothing is written; name a file with -o to keep this.");
}

}  // namespace refhost
