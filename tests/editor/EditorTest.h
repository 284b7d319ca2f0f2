#pragma once

#include <gtest/gtest.h>

#include <unistd.h>
#include <filesystem>
#include <functional>
#include <string>

#include "host/clsKestrelDll.h"
#include "store/GridRegister.h"
#include "store/RegisterDocument.h"
#include "support/FakeDesktop.h"
#include "support/FakeHost.h"
#include "support/ScriptedRunner.h"
#include "ui/editor/frmEditRiskFactors.h"

namespace kestrel::test {

/// The editor, opened through the "edit" command on a plan in memory.
class EditorTest : public testing::Test {
 protected:
    using Script = std::function<void(User&)>;

    EditorTest() : addin([this] { return host.application; }, desktop, runner) {
        Option("OptionSetting", "3");
        folder = std::filesystem::temp_directory_path() /
                 ("kestrel-editor-" + std::to_string(::getpid()));
        std::filesystem::create_directories(folder);
    }
    ~EditorTest() override { std::filesystem::remove_all(folder); }

    void Option(const std::string& key, const std::string& value) {
        host.application->settings[{"RiskFactors", "RiskFactors", key}] = value;
    }

    /// Stores `count` factors named F1, F2, ... in the plan. `change` sees each of them.
    void StoreFactors(int count, const std::function<void(int, clsRiskFactor&)>& change = {}) {
        modGlobals globals(desktop);
        for (int i = 1; i <= count; ++i) {
            auto factor = std::make_shared<clsRiskFactor>();
            factor->strDescription = "F" + std::to_string(i);
            if (change) change(i, *factor);
            globals.RiskFactors.push_back(factor);
        }
        SaveRegisterToPlan(globals, *host.plan);
    }

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

    FakeHost host;
    FakeDesktop desktop;
    ScriptedRunner runner;
    clsKestrelDll addin;
    std::filesystem::path folder;
    Grid* grid = nullptr;  ///< while a script runs
};

}  // namespace kestrel::test
