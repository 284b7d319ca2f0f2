#include <algorithm>
#include <iostream>

#include "base/Errors.h"
#include "base/NumberText.h"
#include "refhost/cli/Commands.h"
#include "refhost/cli/FactorTracker.h"
#include "refhost/cli/ImportArguments.h"
#include "refhost/cli/Output.h"
#include "refhost/cli/Session.h"
#include "store/TaskField.h"
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

void ShowAssignments(const std::string& field, const FactorTracker::Factors& factors) {
    for (const bool inSeries : {true, false})
        for (const std::int32_t id : kestrel::ListedIDs(kestrel::GetRiskList(field, inSeries))) {
            const bool held = id >= 1 && static_cast<std::size_t>(id) <= factors.size();
            std::cout << (inSeries ? "  series    " : "  parallel  ") << id << "  "
                      << (held ? factors[static_cast<std::size_t>(id) - 1]->strDescription
                               : "(not in the register)")
                      << "\n";
        }
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

}  // namespace

void Import(const Arguments& arguments) {
    const auto target = arguments.Option("-o");
    if (!target) throw UsageError("-o PLAN is missing");
    Session session(arguments.Positional(0), ReadImportOptions(arguments));
    RefuseImportOptions(arguments, session.Imported());
    session.SavePlan(*target);
    if (arguments.Has("--dates"))
        (*target == "-" ? std::cerr : std::cout) << MovedTasksText(session.Imported()->dates);
}

void Assign(const Arguments& arguments) {
    Session session(arguments.Positional(0));
    const std::string& id = arguments.Positional(1);
    const auto position = session.Plan().Find(id);
    if (!position)
        throw DataError(session.PlanPath() + ": the plan has no task '" + id +
                        "'; name a task by its ID.");
    const host::TaskPtr task = session.Plan().TaskAt(*position);
    const auto factors = FactorTracker::ReadRegister(session.Host(), session.Desktop());
    const bool sets = arguments.Has("--series") || arguments.Has("--parallel");
    if (sets) {
        kestrel::EnsureTextField(session.Plan(), kestrel::kRiskFactorsField);
        task->UserValues()->PutItem(kestrel::kRiskFactorsField,
                                    AssignedField(arguments, factors.size()));
    } else if (arguments.Has("-o")) {
        throw UsageError("-o needs --series or --parallel, or there is nothing to write");
    }
    const std::string field = task->UserValues()->Item(kestrel::kRiskFactorsField);
    const auto target = arguments.Option("-o");
    if (target) session.SavePlan(*target);
    if (target == "-") return;
    std::cout << kestrel::TaskLabel(*task) << ": " << (field.empty() ? "no risk factors" : field)
              << "\n";
    ShowAssignments(field, factors);
    if (sets && !target) std::cerr << "Nothing is written; name a file with -o to keep this.\n";
}

}  // namespace refhost
