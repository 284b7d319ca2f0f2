#include <algorithm>
#include <cctype>
#include <functional>

#include "base/Errors.h"
#include "base/NumberText.h"
#include "base/OneLine.h"
#include "base/Text.h"
#include "refhost/cli/Commands.h"
#include "refhost/cli/Session.h"
#include "refhost/cli/TaskList.h"
#include "refhost/cli/TaskSelection.h"
#include "refhost/files/Csv.h"
#include "refhost/results/FactorTracker.h"
#include "store/TaskField.h"
#include "util/modToolBox.h"

namespace refhost {
namespace {

using kestrel::DataError;
using kestrel::RiskIDs;

/// The factors of a task, as its field text holds them.
struct Groups {
    RiskIDs series;
    RiskIDs parallel;
};

bool Contains(const RiskIDs& ids, std::int32_t id) {
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

/// The IDs of a list typed by the user ("1,3"), each one that the register holds.
kestrel::RiskIDs TypedIDs(const std::string& list, std::size_t held) {
    kestrel::RiskIDs ids;
    for (int piece = 1; piece <= kestrel::CountListItems(list, ","); ++piece) {
        const std::string item = kestrel::GetListItem(list, piece, ",");
        if (kestrel::IsBlank(item)) {
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

std::string FieldText(const Groups& groups) {
    std::string parallel = Joined(groups.parallel);
    std::string series = Joined(groups.series);
    return kestrel::MakeRiskFieldText(parallel, series);
}

Groups GroupsOf(const std::string& field) {
    return {kestrel::ListedIDs(kestrel::GetRiskList(field, true)),
            kestrel::ListedIDs(kestrel::GetRiskList(field, false))};
}

void RefuseBoth(const Groups& groups) {
    for (const std::int32_t id : groups.series)
        if (Contains(groups.parallel, id))
            throw DataError("Risk factor " + std::to_string(id) +
                            " cannot be both in series and in parallel; name it in one group.");
}

/// The factors of a field text that somebody typed, each one that the register holds.
Groups TypedGroups(const std::string& field, std::size_t held) {
    const Groups groups{TypedIDs(kestrel::GetRiskList(field, true), held),
                        TypedIDs(kestrel::GetRiskList(field, false), held)};
    RefuseBoth(groups);
    return groups;
}

void Remove(Groups& groups, const RiskIDs& ids) {
    const auto named = [&](std::int32_t id) { return Contains(ids, id); };
    std::erase_if(groups.series, named);
    std::erase_if(groups.parallel, named);
}

/// A factor that the task carries in its other group moves.
void Add(Groups& groups, const Groups& added) {
    for (const auto list : {&Groups::series, &Groups::parallel})
        for (const std::int32_t id : added.*list) {
            if (Contains(groups.*list, id)) continue;
            Remove(groups, {id});
            (groups.*list).push_back(id);
        }
}

/// What a command asks, as a change to the factors of one task.
using Edit = std::function<void(Groups&)>;

Edit EditOf(const Arguments& arguments, std::size_t held) {
    if (arguments.Has("--series") || arguments.Has("--parallel")) {
        if (arguments.Has("--add") || arguments.Has("--remove"))
            throw UsageError(
                "--series and --parallel set what --add and --remove change; use "
                "the ones or the others");
        const Groups wanted{TypedIDs(arguments.Option("--series").value_or(""), held),
                            TypedIDs(arguments.Option("--parallel").value_or(""), held)};
        RefuseBoth(wanted);
        return [wanted](Groups& groups) { groups = wanted; };
    }
    if (!arguments.Has("--add") && !arguments.Has("--remove")) return nullptr;
    const Groups added = TypedGroups(arguments.Option("--add").value_or(""), held);
    const RiskIDs removed = TypedIDs(arguments.Option("--remove").value_or(""), held);
    return [added, removed](Groups& groups) {
        Remove(groups, removed);
        Add(groups, added);
    };
}

/// The plan's tasks with their fields, and what has become of them.
class Assignments {
 public:
    explicit Assignments(Session& session)
        : session_(session),
          factors_(FactorTracker::ReadRegister(session.Host(), session.Desktop())) {}

    std::size_t Held() const { return factors_.size(); }

    /// A summary's own field has no effect: factors are only taken out of it, never put in.
    void Change(std::size_t position, const Edit& edit) {
        const host::TaskPtr task = session_.Plan().TaskAt(position);
        const std::string before = task->UserValues()->Item(kestrel::kRiskFactorsField);
        const Groups old = GroupsOf(before);
        Groups groups = old;
        edit(groups);
        if (task->TaskType() == kSummary) {
            std::erase_if(groups.series, [&](auto id) { return !Contains(old.series, id); });
            std::erase_if(groups.parallel, [&](auto id) { return !Contains(old.parallel, id); });
        }
        ++seen_;
        const std::string after = FieldText(groups);
        if (before == after || (groups.series == old.series && groups.parallel == old.parallel))
            return;
        task->UserValues()->PutItem(kestrel::kRiskFactorsField, after);
        told_ += kestrel::Printable(kestrel::TaskLabel(*task)) + ": " + Shown(before) + " -> " +
                 Shown(after) + "\n";
        ++changed_;
    }

    void Show(std::size_t position, bool always, Outputs& outputs) const {
        const host::TaskPtr task = session_.Plan().TaskAt(position);
        const std::string field = task->UserValues()->Item(kestrel::kRiskFactorsField);
        if (field.empty() && !always) return;
        outputs.Tell(kestrel::Printable(kestrel::TaskLabel(*task)) + ": " + Shown(field) + "\n");
        for (const bool inSeries : {true, false})
            for (const std::int32_t id :
                 kestrel::ListedIDs(kestrel::GetRiskList(field, inSeries))) {
                const bool held = id >= 1 && static_cast<std::size_t>(id) <= factors_.size();
                outputs.Tell((inSeries ? "  series    " : "  parallel  ") + std::to_string(id) +
                             "  " +
                             (held ? kestrel::Printable(
                                         factors_[static_cast<std::size_t>(id) - 1]->strDescription)
                                   : "(not in the register)") +
                             "\n");
            }
    }

    std::string Told() const {
        return told_ + std::to_string(changed_) + " of " + std::to_string(seen_) +
               (seen_ == 1 ? " task changed.\n" : " tasks changed.\n");
    }

 private:
    static std::string Shown(const std::string& field) {
        return field.empty() ? "no risk factors" : kestrel::Printable(field);
    }

    Session& session_;
    FactorTracker::Factors factors_;
    std::string told_;
    int seen_ = 0;
    int changed_ = 0;
};

/// Position of the column whose heading is, blanks and case left aside, `name`.
std::size_t ColumnOf(const CsvRow& headings, std::string_view name) {
    for (std::size_t i = 0; i < headings.cells.size(); ++i) {
        std::string bare;
        for (const char c : headings.cells[i])
            if (!std::isspace(static_cast<unsigned char>(c)))
                bare += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        if (bare == name) return i;
    }
    throw DataError("line " + std::to_string(headings.line) +
                    ": the first line names the columns 'Task' and 'Risk Factors'.");
}

/// Reads the whole table before a task is changed; every wrong line is told.
std::vector<std::pair<std::size_t, Groups>> ReadFields(Session& session, const std::string& bytes,
                                                       const std::string& path, std::size_t held) {
    const CsvTable table = ReadCsv(bytes);
    if (table.rows.empty()) throw DataError("the file is empty; it needs a line of headings.");
    const std::size_t taskColumn = ColumnOf(table.rows.front(), "task");
    const std::size_t fieldColumn = ColumnOf(table.rows.front(), "riskfactors");
    std::vector<std::pair<std::size_t, Groups>> fields;
    int complaints = 0;
    const auto complain = [&](const CsvRow& row, const char* column, const std::string& what) {
        TellError(path + ": line " + std::to_string(row.line) + ", column " + column + ": " + what);
        ++complaints;
    };
    for (std::size_t i = 1; i < table.rows.size(); ++i) {
        const CsvRow& row = table.rows[i];
        const auto cell = [&](std::size_t at) {
            return at < row.cells.size() ? row.cells[at] : std::string();
        };
        const auto position = session.Plan().Find(cell(taskColumn));
        if (!position) complain(row, "Task", "the plan has no task '" + cell(taskColumn) + "'.");
        try {
            const Groups groups = TypedGroups(cell(fieldColumn), held);
            if (position) fields.emplace_back(*position, groups);
        } catch (const std::runtime_error& error) {
            complain(row, "Risk Factors", error.what());
        }
    }
    if (complaints > 0)
        throw DataError(std::to_string(complaints) + " cells cannot be read; nothing is changed.");
    return fields;
}

void AssignFrom(Session& session, const std::string& path, Assignments& assignments) {
    try {
        const auto fields =
            ReadFields(session, session.Desktop().ReadFile(path), path, assignments.Held());
        for (const auto& [position, wanted] : fields)
            assignments.Change(position, [&groups = wanted](Groups& task) { task = groups; });
    } catch (const DataError& error) {
        throw DataError(path + ": " + error.what());
    }
}

std::vector<std::size_t> TasksOf(Session& session, const std::string& words) {
    try {
        return SelectedTasks(session.Plan(), words);
    } catch (const DataError& error) {
        throw DataError(session.PlanName() + ": " + error.what());
    }
}

void ListTasks(const Arguments& arguments, Outputs& outputs) {
    for (const char* other : {"--series", "--parallel", "--add", "--remove", "--from", "-o"})
        if (arguments.Has(other))
            throw UsageError(std::string("--list changes no task; leave out ") + other);
    if (const auto words = arguments.Option("TASKS"))
        throw UsageError("--list writes every task; leave out '" + *words + "'");
    Session session(arguments.Word("PLAN"), outputs);
    outputs.Find("--list")->Write(
        TaskListText(session.Plan().Data(), SeparatorFor(arguments.Word("--list"))));
}

}  // namespace

void Assign(const Arguments& arguments, Outputs& outputs) {
    if (arguments.Has("--list")) return ListTasks(arguments, outputs);
    const auto table = arguments.Option("--from");
    const auto words = arguments.Option("TASKS");
    if (!table && !words) throw UsageError("TASKS is missing");
    if (table && words)
        throw UsageError("--from names the tasks itself; leave out '" + *words + "'");
    Session session(arguments.Word("PLAN"), outputs);
    Assignments assignments(session);
    const Edit edit = EditOf(arguments, assignments.Held());
    if (table && edit)
        throw UsageError("--from sets the factors itself; leave out the other options");
    auto* const target = outputs.Find("-o");
    const std::vector<std::size_t> tasks =
        table ? std::vector<std::size_t>() : TasksOf(session, *words);
    if (!table && !edit) {
        if (target)
            throw UsageError(
                "-o needs --series, --parallel, --add, --remove or --from, or there is "
                "nothing to write");
        for (const std::size_t task : tasks) assignments.Show(task, tasks.size() == 1, outputs);
        return;
    }
    kestrel::EnsureTextField(session.Plan(), kestrel::kRiskFactorsField);
    if (table) AssignFrom(session, *table, assignments);
    for (const std::size_t task : tasks) assignments.Change(task, edit);
    if (target) session.SavePlan(*target);
    outputs.Tell(assignments.Told());
    if (!target) TellError("Nothing is written; name a file with -o to keep this.");
}

}  // namespace refhost
