#pragma once

#include "support/AddInTest.h"
#include "util/Colour.h"

namespace kestrel::test {

/// The assignment windows, opened through the "assign" command on a plan with factors F1, F2, F3.
class AssignmentTest : public AddInTest {
 protected:
    using TaskPtr = std::shared_ptr<FakeTask>;

    AssignmentTest() {
        Option("OptionSetting", "3");
        StoreFactors(3);
        host.plan->currentRow = 1;
    }

    void Assign(const Script& script) {
        runner.script = script;
        addin.LaunchAssign();
    }

    TaskPtr AddTask(const std::string& id, const std::string& field = {},
                    const TaskPtr& parent = nullptr) {
        return host.AddTask(id, "T" + id, field, parent.get());
    }
    /// The summary's own field is never read.
    TaskPtr AddSummary(const std::string& id, const TaskPtr& parent = nullptr) {
        auto task = AddTask(id, "(1,2,3)", parent);
        task->type = host::kSummaryTask;
        return task;
    }
    static const std::string& Field(const TaskPtr& task) { return task->texts["RiskFactors"]; }
    std::size_t Writes() const { return host.log.Count("UserValues.PutItem"); }

    static std::string Caption(User& user) {
        return user.Get<Control>("lblSelectedTask").Caption();
    }
};

inline constexpr const char* kApplyToSubTasks =
    "Changes made on summary tasks will be applied to all sub tasks.  Apply changes?";

inline constexpr int kAssigned = 0, kInSeries = 2;

inline Grid& TheGrid(User& user) { return user.Get<Grid>("TabulonRF"); }

/// A row of the assignment grid: one sign for "Assigned" ("x" ticked, "." not), one for "In Series"
/// ("s" ticked, "p" not, "-" no box), each followed by "?" where it is greyed.
inline std::string Row(const Grid& grid, int row) {
    const auto grey = [&](int column) {
        return grid.CellColour(row, column) == ui::kSystemButtonShadow ? "?" : "";
    };
    std::string text = grid.Checked(row, kAssigned) ? "x" : ".";
    text += grey(kAssigned);
    text += !grid.IsCheckCell(row, kInSeries) ? "-" : grid.Checked(row, kInSeries) ? "s" : "p";
    return text + grey(kInSeries);
}

inline std::string Rows(User& user) {
    std::string text;
    for (int row = 1; row < TheGrid(user).RowCount(); ++row)
        text += (row > 1 ? " " : "") + Row(TheGrid(user), row);
    return text;
}

/// Clicks on "Assigned" (A) and "In Series" (S) of a factor: "A3 S3".
inline void ClickCells(User& user, const std::string& cells) {
    for (std::size_t i = 0; i + 1 < cells.size(); i += 3)
        user.ClickCell("TabulonRF", cells[i + 1] - '0', cells[i] == 'A' ? kAssigned : kInSeries);
}

}  // namespace kestrel::test
