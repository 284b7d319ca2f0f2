#pragma once

#include "store/GridRegister.h"
#include "support/AddInTest.h"
#include "support/TemporaryFolder.h"
#include "ui/editor/frmEditRiskFactors.h"

namespace kestrel::test {

/// The editor, opened through the "edit" command on a plan in memory.
class EditorTest : public AddInTest {
 protected:
    EditorTest() { Option("OptionSetting", "3"); }

    void Edit(const Script& script) {
        runner.script = [&](User& user) {
            grid = &user.Get<Grid>("Tabulon1");
            script(user);
        };
        addin.LaunchEdit();
    }

    static void ClickOk(User& user) { user.Click("cmdOKRisk"); }
    std::string Cell(int row, int column) const { return grid->Text(row, column); }
    std::string Current() const {
        return std::to_string(grid->CurrentRow()) + "," + std::to_string(grid->CurrentColumn());
    }
    /// A column's texts from row 1 on, separated by blanks; the entry row's is empty.
    std::string Column(int column) const {
        std::string texts;
        for (int row = 1; row < grid->RowCount(); ++row) texts += Cell(row, column) + " ";
        return texts;
    }
    void TypeInto(User& user, int row, int column, std::string_view text) const {
        user.ClickCell("Tabulon1", row, column);
        user.Type(text);
    }

    std::string File(const std::string& name, const std::string& content) {
        const std::string path = folder / name;
        desktop.WriteFile(path, content);
        return path;
    }

    TemporaryFolder folder;
    Grid* grid = nullptr;  ///< while a script runs
};

}  // namespace kestrel::test
