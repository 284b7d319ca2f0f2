#include "refhost/workbench/Workbench.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "TestPaths.h"
#include "base/Errors.h"
#include "host/clsKestrelDll.h"
#include "platform/Files.h"
#include "refhost/cli/Commands.h"
#include "refhost/files/PlanFile.h"
#include "refhost/workbench/frmResults.h"
#include "refhost/workbench/frmRunAnalysis.h"
#include "refhost/workbench/frmSaveChanges.h"
#include "support/FakeDesktop.h"
#include "support/MemorySettings.h"
#include "support/ScriptedRunner.h"
#include "ui/progress/frmProgress.h"

namespace refhost {
namespace {

using Command = WorkbenchCommand;
using kestrel::MessageAnswer;
using kestrel::test::User;
using test::MemorySettings;

/// The add-in linked in, where the real window reaches it through COM.
class DirectCommands : public AddInCommands {
 public:
    explicit DirectCommands(kestrel::clsKestrelDll& dll) : dll_(dll) {}
    void LaunchEdit() override { dll_.LaunchEdit(); }
    void LaunchAssign() override { dll_.LaunchAssign(); }
    void LaunchShow() override { dll_.LaunchShow(); }
    void LaunchSave() override { dll_.LaunchSave(); }
    void LaunchLoad() override { dll_.LaunchLoad(); }
    void LaunchOptions() override { dll_.LaunchOptions(); }
    void LaunchStartSchedulon() override {
        if (isMissing) throw kestrel::HostError("The add-in is not there.");
        dll_.LaunchStartSchedulon();
    }
    bool isMissing = false;

 private:
    kestrel::clsKestrelDll& dll_;
};

/// A window that nobody sees; its user may close the progress form.
class BlindWindow : public WorkbenchWindow {
 public:
    void Refresh() override { ++refreshed; }
    void ShowProgress(kestrel::ui::Form& form) override {
        form.Open();
        progress = &form;
    }
    void RefreshProgress() override {
        if (cancels && progress) progress->CloseByUser();
    }
    void HideProgress() noexcept override { progress = nullptr; }
    void Quit() override { quit = true; }
    Minute Now() override { return 46000 * kMinutesPerDay; }

    int refreshed = 0;
    bool cancels = false;
    bool quit = false;
    kestrel::ui::Form* progress = nullptr;
};

class WorkbenchTest : public testing::Test {
 protected:
    WorkbenchTest() {
        std::filesystem::create_directories(folder);
        runner.script = [this](User& user) {
            captions.push_back(user.TheForm().Caption());
            if (dynamic_cast<frmSaveChanges*>(&user.TheForm()))
                user.Click(saveAnswer);
            else if (dynamic_cast<frmRunAnalysis*>(&user.TheForm()))
                user.Click("cmdRun");
            else if (onForm)
                onForm(user);
        };
    }
    ~WorkbenchTest() override { std::filesystem::remove_all(folder); }

    /// A copy of the example that may be changed.
    std::string Example() {
        const std::string copy = folder + "/ferry.kplan";
        std::filesystem::copy_file(
            std::string(KESTREL_SOURCE_DIR) + "/examples/ferry-terminal.kplan", copy,
            std::filesystem::copy_options::overwrite_existing);
        return copy;
    }
    void Change() {
        host.OpenPlan()->TaskAt(2)->UserValues()->PutItem("RiskFactors", "(3)");
        bench.Sync();
    }

    /// Of its own: tests run side by side.
    const std::string folder = testing::TempDir() + "kestrel_" +
                               testing::UnitTest::GetInstance()->current_test_info()->name();
    kestrel::test::FakeDesktop desktop;
    kestrel::test::ScriptedRunner runner;
    MemorySettings settings;
    ReferenceHost host{settings, "."};
    kestrel::clsKestrelDll dll{[this] { return host::ApplicationPtr(&host, [](auto*) {}); },
                               desktop, runner};
    DirectCommands addIn{dll};
    BlindWindow window;
    Workbench bench{{host, settings, desktop, runner, addIn, window,
                     [] { return std::make_unique<kestrel::test::FakeDesktop>(); }}};
    std::string saveAnswer = "cmdCancel";
    std::function<void(User&)> onForm;
    std::vector<std::string> captions;  ///< of the forms shown
};

TEST_F(WorkbenchTest, AnAnalysisGivesTheFiguresOfTheCommandLine) {
    bench.Open(Example());
    bench.Run(Command::RunAnalysis);
    ASSERT_NE(bench.Results(), nullptr) << desktop.MessageText();
    EXPECT_EQ(captions, (std::vector<std::string>{"Run Risk Analysis", "Analysis Results"}));
    const auto rows = DistributionTable(bench.Results()->results).rows;
    // The figures that the example's story tells.
    EXPECT_EQ(rows[0][1], "2027-08-11 16:00");
    EXPECT_EQ(rows[3][1], "2027-10-10 16:50");
    EXPECT_EQ(rows[3][3], "31,251,974.45");
    EXPECT_EQ(bench.StatusText(), "1000 iterations, seed 1: P50 2027-10-07, P80 2027-11-01");
    EXPECT_EQ(bench.FinishText(), "Finish 2027-08-11 16:00") << "durations are put back";
    EXPECT_EQ(window.progress, nullptr);
    const auto critical = [&](std::size_t task) {
        return TaskTable::Text(*host.OpenPlan(), bench.View()->Figures(), task,
                               TaskColumn::Critical);
    };
    // As 'analyse --criticality' tells; a summary is critical with any task below it.
    EXPECT_EQ(critical(3) + " " + critical(6), "0.0% 71.8%");
    EXPECT_EQ(critical(0) + " " + critical(4), "92.1% 85.4%");
    EXPECT_EQ(bench.Document().Title(), "Eastmere ferry terminal* - Kestrel");

    bench.Run(Command::ShowDrivingRisks);
    EXPECT_EQ(captions.back(), "Driving Risks");
    EXPECT_EQ(desktop.MessageText(), "") << "the results are up to date";
    window.cancels = true;
    const PlanResults* results = bench.Results();
    bench.Run(Command::RunAnalysis);
    EXPECT_EQ(bench.Results(), results) << "a cancelled analysis leaves them";
    desktop.messages.clear();
    Change();
    EXPECT_EQ(critical(0), "92.1%") << "what the analysis found stays";
    EXPECT_EQ(bench.StatusText(),
              "1000 iterations, seed 1: P50 2027-10-07, P80 2027-11-01 (out of date)");
    bench.Run(Command::ShowDrivingRisks);
    EXPECT_EQ(desktop.messages.size(), 1u) << "asks whether to show results out of date";

    bench.Run(Command::Save);
    EXPECT_EQ(bench.Document().Title(), "Eastmere ferry terminal - Kestrel");
    const std::string saved = kestrel::ReadWholeFile(bench.Document().Path());
    const auto tasks = CriticalTaskTable(*bench.Results()).rows;
    const auto last = std::find_if(tasks.begin(), tasks.end(), [&](const auto& task) {
        return task[3] == rows[10][1] && task[4] == rows[13][1];
    });
    ASSERT_NE(last, tasks.end()) << "some task always ends the plan, so has its P50 and P80";
    EXPECT_EQ((*last)[2], "100.0%");
    bench.Open(bench.Document().Path());
    ASSERT_NE(bench.Results(), nullptr) << desktop.MessageText();
    EXPECT_EQ(DistributionTable(bench.Results()->results).rows, rows);
    EXPECT_EQ(CriticalTaskTable(*bench.Results()).rows, tasks);
    EXPECT_EQ(critical(0), "92.1%");
    EXPECT_NE(bench.StatusText().find("P80 2027-11-01 (out of date)"), std::string::npos);
    onForm = [&](User& user) {
        auto& form = dynamic_cast<frmResults&>(user.TheForm());
        EXPECT_NE(form.lblAnalysis.Caption().find("The plan has changed"), std::string::npos);
        user.Click("OptionFactors");
        EXPECT_FALSE(form.cmdCalculate.Visible()) << "the plan that was analysed is gone";
    };
    bench.Run(Command::ShowResults);
    bench.Run(Command::Save);
    EXPECT_EQ(kestrel::ReadWholeFile(bench.Document().Path()), saved);
}

TEST_F(WorkbenchTest, ACancelledOrFailedAnalysisKeepsNoResults) {
    bench.Open(Example());
    window.cancels = true;
    bench.Run(Command::RunAnalysis);
    EXPECT_EQ(bench.Results(), nullptr);
    EXPECT_EQ(desktop.MessageText().rfind("The analysis was cancelled after 1 ", 0), 0u)
        << desktop.MessageText();
    EXPECT_EQ(bench.FinishText(), "Finish 2027-08-11 16:00");
    EXPECT_FALSE(bench.IsEnabled(Command::ShowResults));
    desktop.messages.clear();
    addIn.isMissing = true;
    bench.Run(Command::RunAnalysis);
    EXPECT_EQ(desktop.MessageText(), "The add-in is not there.");
    EXPECT_EQ(bench.Results(), nullptr);
}

TEST_F(WorkbenchTest, TheReportIsThatOfTheCommandLineAndLeavesThePlan) {
    const std::string path = Example();
    bench.Open(path);
    ASSERT_EQ(RunCommandLine({"report", path, "-o", folder + "/line.html", "--assumptions",
                              "percentages,assignments"}),
              0);
    const std::string page = folder + "/ferry.html";
    const struct {
        const char* button;
        bool chooses, cancels, written;
    } rows[] = {{"cmdCancel", true, false, false},
                {"cmdOk", false, false, false},
                {"cmdOk", true, true, false},
                {"cmdOk", true, false, true}};
    for (const auto& row : rows) {
        onForm = [&](User& user) {
            user.Click("cmdHelp");
            user.Click("chkDistributions");
            user.Click(row.button);
        };
        desktop.chosenFiles.clear();
        if (row.chooses) desktop.chosenFiles = {page};
        window.cancels = row.cancels;
        bench.Run(Command::WriteReport);
        EXPECT_EQ(captions.back(), "Risk Factors and Duration Distributions Report");
        EXPECT_EQ(std::filesystem::exists(page), row.written) << row.button;
    }
    EXPECT_EQ(kestrel::ReadWholeFile(page), kestrel::ReadWholeFile(folder + "/line.html"));
    EXPECT_EQ(desktop.saveDialogs.back().initialFile, page);
    EXPECT_EQ(desktop.helpTopics.size(), 4u);
    EXPECT_EQ(desktop.messages.size(), 2u) << desktop.MessageText();
    EXPECT_FALSE(bench.Document().HasChanges());
}

TEST_F(WorkbenchTest, ATableReplacesTheRegisterOnceConfirmedAndWhole) {
    bench.Open(Example());
    const std::string table = folder + "/ferry-risks.csv";
    desktop.chosenFiles = {table};
    bench.Run(Command::ExportTable);
    EXPECT_EQ(desktop.saveDialogs.back().initialFile, table);
    const std::string text = kestrel::ReadWholeFile(table);
    const std::string before = host.OpenPlan()->GetText("RiskFactors");
    const struct {
        std::string table;
        MessageAnswer answer;
        const char* told;
        bool changed;
    } rows[] = {{text, MessageAnswer::Yes, "", false},
                {text + "Strike,90,100,x\n", MessageAnswer::Yes, "line 17, column Dur Max", false},
                {text.substr(0, text.find('\n') + 1) + "Strike\n", MessageAnswer::Yes,
                 "Tasks carry risk factor 1", false},
                {text + "Strike\n", MessageAnswer::No, "", false},
                {text + "Strike\n", MessageAnswer::Yes, "", true}};
    for (const auto& row : rows) {
        kestrel::ReplaceWholeFile(table, row.table);
        desktop.messages.clear();
        desktop.answers = {row.answer};
        desktop.chosenFiles = {table};
        bench.Run(Command::ImportTable);
        EXPECT_NE(desktop.MessageText().find(row.told), std::string::npos) << desktop.MessageText();
        EXPECT_EQ(host.OpenPlan()->GetText("RiskFactors") != before, row.changed) << row.told;
    }
}

TEST_F(WorkbenchTest, UnsavedChangesAreGivenUpOnlyOnRequest) {
    const struct {
        const char* answer;
        bool closes, saved;
    } rows[] = {
        {"cmdCancel", false, false},
        {"cmdDiscard", true, false},
        {"cmdSave", true, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.answer);
        const std::string path = Example();
        bench.Open(path);
        ASSERT_TRUE(bench.MayClose()) << "nothing to ask yet";
        Change();
        EXPECT_TRUE(bench.Document().HasChanges());
        saveAnswer = row.answer;
        window.quit = false;
        bench.Run(Command::Exit);
        EXPECT_EQ(window.quit, row.closes);
        const PlanData file = ReadPlan(desktop, path).plan;
        const std::string* text = FindText(file.tasks[2].userValues, "RiskFactors");
        EXPECT_EQ(text && *text == "(3)", row.saved);
        saveAnswer = "cmdDiscard";
    }
    bench.Open(Example());
    const std::string kept = host.OpenPlan()->TaskAt(2)->UserValues()->Item("RiskFactors");
    Change();
    host.OpenPlan()->TaskAt(2)->UserValues()->PutItem("RiskFactors", kept);
    EXPECT_FALSE(bench.Document().HasChanges()) << "a change taken back is none";
}

TEST_F(WorkbenchTest, WhatCannotBeReadOrWrittenIsToldAndChangesNothing) {
    const std::string path = Example();
    bench.Open(path);
    const std::string broken = folder + "/broken.kplan";
    kestrel::ReplaceWholeFile(broken, "<Plan Version=\"1\" Name=\"Crane\"");
    for (const std::string& bad : {broken, folder + "/missing.kplan", std::string()}) {
        desktop.messages.clear();
        bench.Open(bad);
        EXPECT_EQ(desktop.messages.size(), 1u) << bad;
        EXPECT_EQ(bench.Document().Path(), path);
        EXPECT_EQ(host.OpenPlan()->Name(), "Eastmere ferry terminal");
    }
    EXPECT_EQ(bench.Document().Recent().Paths(), std::vector<std::string>{path});
    Change();
    desktop.messages.clear();
    desktop.chosenFiles = {folder + "/no such folder/x.kplan"};
    bench.Run(Command::SaveAs);
    EXPECT_EQ(desktop.messages.size(), 1u);
    EXPECT_EQ(bench.Document().Path(), path);
    EXPECT_TRUE(bench.Document().HasChanges());
}

TEST_F(WorkbenchTest, AFileThatSomebodyElseHasChangedIsOverwrittenOnlyWhenTheUserAgrees) {
    const std::string path = Example();
    bench.Open(path);
    Change();
    kestrel::ReplaceWholeFile(path, "theirs");
    bench.Run(Command::Save);  // not agreed to
    EXPECT_EQ(desktop.messages.size(), 1u) << desktop.MessageText();
    EXPECT_EQ(kestrel::ReadWholeFile(path), "theirs");
    EXPECT_TRUE(bench.Document().HasChanges());
    desktop.answers = {kestrel::MessageAnswer::Yes};
    bench.Run(Command::Save);
    EXPECT_FALSE(bench.Document().HasChanges());
    EXPECT_NE(kestrel::ReadWholeFile(path), "theirs");
    Change();
    bench.Run(Command::Save);
    EXPECT_EQ(desktop.messages.size(), 2u) << "its own file is no news";
}

TEST_F(WorkbenchTest, AProjectFileIsSavedAsAPlanBesideIt) {
    const std::string project = folder + "/garage.v2.xml";
    kestrel::ReplaceWholeFile(
        project,
        "<Project xmlns=\"http://schemas.example.com/project\"><Name>Garage</Name>"
        "<StartDate>2026-01-05T08:00:00</StartDate><Tasks><Task><UID>1</UID><ID>1</ID>"
        "<Name>Build</Name><OutlineLevel>1</OutlineLevel><Duration>PT8H0M0S</Duration>"
        "<Start>2026-01-06T08:00:00</Start><Finish>2026-01-06T17:00:00</Finish>"
        "<Deadline>2026-02-05T08:00:00</Deadline></Task></Tasks></Project>");
    desktop.chosenFiles = {project};
    bench.Run(Command::Open);
    ASSERT_NE(bench.View(), nullptr) << desktop.MessageText();
    for (const char* told : {"0 of 1 task", "1 day earlier, 1 Build", "1 x deadline"})
        EXPECT_NE(desktop.MessageText().find(told), std::string::npos) << desktop.MessageText();
    EXPECT_EQ(bench.Document().Path(), "");
    desktop.chosenFiles = {folder + "/garage.kplan"};
    bench.Run(Command::Save);
    EXPECT_EQ(desktop.saveDialogs.back().initialFile, folder + "/garage.v2.kplan");
    EXPECT_EQ(bench.Document().Path(), folder + "/garage.kplan");
    EXPECT_EQ(bench.Document().Recent().Paths(),
              (std::vector<std::string>{folder + "/garage.kplan", project}));
}

TEST_F(WorkbenchTest, CommandsWithoutAPlanDoNothing) {
    for (const Command command :
         {Command::Save, Command::SaveAs, Command::RunAnalysis, Command::ShowResults,
          Command::EditFactors, Command::AssignFactors, Command::ShowDrivingRisks, Command::ZoomIn,
          Command::GoToToday, Command::ExpandAll}) {
        EXPECT_FALSE(bench.IsEnabled(command));
        bench.Run(command);
    }
    EXPECT_TRUE(captions.empty());
    EXPECT_EQ(desktop.MessageText(), "");
    EXPECT_EQ(bench.Document().Title(), "Kestrel");
    bench.Run(Command::Exit);
    EXPECT_TRUE(window.quit);
}

TEST_F(WorkbenchTest, RunDialogRefusesWhatIsNoNumber) {
    AnalysisSettings start;
    const struct {
        const char *iterations, *seed;
        bool accepted;
    } rows[] = {
        {"1", "0", true},         {" 500 ", " 18446744073709551615 ", true},
        {"0", "1", false},        {"-5", "1", false},
        {"10000001", "1", false}, {"1e3", "1", false},
        {"", "1", false},         {"10", "", false},
        {"10", "-1", false},      {"10", "18446744073709551616", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.iterations) + ", " + row.seed);
        desktop.messages.clear();
        frmRunAnalysis form(desktop, start);
        form.Open();
        form.txtIterations.SetText(row.iterations);
        form.txtSeed.SetText(row.seed);
        form.cmdRun_Click();
        EXPECT_EQ(form.Result().has_value(), row.accepted);
        EXPECT_EQ(form.IsOpen(), !row.accepted);
        EXPECT_EQ(desktop.messages.empty(), row.accepted);
    }
}

TEST_F(WorkbenchTest, ResultsShowEitherMeasureAndCopyTheTable) {
    PlanResults results;
    results.settings.iterations = 3;
    results.results.finish = {46003.0, 46001.0, 46002.0};
    results.results.cost = {30, 10, 20.5};
    results.results.deterministicFinish = 46001 * kMinutesPerDay;
    results.results.deterministicCost = 5;
    results.without = results.results;
    bool cancels = true;
    frmResults form(desktop, results, false, [&](Outcome outcome) {
        Priorities found;
        found.question.outcome = outcome;
        for (int id = 1; id <= 60; ++id) {
            found.factors.push_back({id, "Factor", 100.0 - id, 1});
            found.sequence.push_back({id, 100.0 - id, 1});
        }
        found.all = 100;
        return cancels ? std::nullopt : std::optional(found);
    });
    form.Open();
    User user(form);
    const auto drawn = [&] {
        const auto drawing = form.plotResult.Draw(600, 400, kestrel::ui::TextWidth);
        EXPECT_LE(drawing.height, 400);
        std::string texts;
        for (const auto& text : drawing.texts) texts += text.text + "|";
        return texts;
    };
    EXPECT_NE(drawn().find("Project finish"), std::string::npos);
    EXPECT_NE(form.lblAnalysis.Caption().find("The plan has changed"), std::string::npos);
    const auto before = form.plotResult.Changes();
    user.Click("OptionCost");
    EXPECT_GT(form.plotResult.Changes(), before);
    EXPECT_NE(drawn().find("Project cost"), std::string::npos);
    EXPECT_NE(drawn().find("P50 21"), std::string::npos) << drawn();
    const std::string first[][5] = {{"As planned", "2025-12-10 00:00", "", "5.00", ""},
                                    {"Chance to keep that", "33.3%", "", "0.0%", ""},
                                    {"Standard deviation", "1.0 days", "", "10.00", ""},
                                    {"Mean", "2025-12-11 00:00", "1.0 days", "20.17", "15"}};
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 5; ++column)
            EXPECT_EQ(form.gridResults.Text(row + 1, column), first[row][column]);

    const struct {
        const char *finish, *cost, *said;
    } targets[] = {
        {"2025-12-11 00:00", "10", "by then 66.7%, to cost no more 33.3%, both 33.3%"},
        {"2025-12-10", "30", "by then 66.7%, to cost no more 100.0%, both 66.7%"},
        {"soon", "30", "Give the target finish as"},
        {"2025-12-10", "3,0", "Give the target cost as"},
    };
    for (const auto& row : targets) {
        form.txtTargetFinish.SetText(row.finish);
        form.txtTargetCost.SetText(row.cost);
        EXPECT_NE(form.lblChances.Caption().find(row.said), std::string::npos)
            << form.lblChances.Caption();
    }

    user.Click("OptionJoint");
    EXPECT_EQ(form.gridResults.Text(1, 3), "0.0%") << "as planned";
    for (const auto& row : targets) {
        form.txtTargetFinish.SetText(row.finish);
        form.txtTargetCost.SetText(row.cost);
        const std::string said = row.said;
        const auto share = said.rfind("both ");
        const std::string corner =
            share == std::string::npos ? "" : "Both kept " + said.substr(share + 5) + "|";
        EXPECT_EQ(drawn().find("Both kept"), drawn().find(corner.empty() ? "Both kept" : corner));
        EXPECT_EQ(drawn().find("Both kept") == std::string::npos, corner.empty());
    }

    user.Click("OptionFactors");
    user.Click("cmdCalculate");
    EXPECT_FALSE(results.costCosts) << "cancelled";
    cancels = false;
    user.Click("cmdCalculate");
    ASSERT_TRUE(results.costCosts);
    EXPECT_EQ(form.Focus(), &form.gridResults);
    EXPECT_EQ(form.gridResults.RowCount(), 61);
    EXPECT_NE(drawn().find(" more|"), std::string::npos) << "what has no room stands in one";
}

TEST(RecentFilesTest, TheLatestStandFirstOnce) {
    MemorySettings settings;
    RecentFiles recent(settings);
    for (int i = 1; i <= 10; ++i) recent.Add("f" + std::to_string(i));
    recent.Add("f5");
    recent.Remove("f9");
    recent.Remove("unknown");
    EXPECT_EQ(RecentFiles(settings).Paths(),
              (std::vector<std::string>{"f5", "f10", "f8", "f7", "f6", "f4", "f3"}));
}

}  // namespace
}  // namespace refhost
