#include <stdexcept>

#include "support/AddInTest.h"
#include "support/TemporaryFolder.h"
#include "ui/command_select/frmCommandSelect.h"

namespace kestrel::test {
namespace {

constexpr const char* kRegister =
    "<RiskFactors Version=\"RiskFactors1.00\"><RiskFactor><Name>Rain</Name><Minimum>90</Minimum>"
    "<MostLikely>100</MostLikely><Maximum>110</Maximum><Probability>50</Probability></RiskFactor>"
    "</RiskFactors>";

class CommandTest : public AddInTest {
 protected:
    CommandTest() : globals(desktop) {
        globals.application = host.application;
        Option("OptionSetting", "3");
        const auto note = [this](const char* name) {
            return [this, name](modGlobals&, ui::FormRunner&) { opened += name; };
        };
        windows.assign = note("assign ");
        windows.assignAdvanced = note("advanced ");
        windows.drivingRisks = note("driving ");
        windows.options = note("options ");
    }
    void Run(const std::string& word) { RunCommand(globals, runner, windows, word); }

    modGlobals globals;
    CommandWindows windows;
    std::string opened;
    TemporaryFolder folder;
};

TEST_F(CommandTest, TheSeparatorIsAPointWhileACommandRunsAndTheUsersOwnAfterwards) {
    std::string during;
    runner.script = [&](User&) { during = desktop.locale[LocaleItem::DecimalSeparator]; };
    desktop.locale[LocaleItem::DecimalSeparator] = std::string(",\0;", 3);
    addin.LaunchEdit();
    EXPECT_EQ(during, ".");
    EXPECT_EQ(desktop.locale[LocaleItem::DecimalSeparator], ",");

    host.log.failing = {"Application.ActivePlan"};
    addin.LaunchShow();
    EXPECT_EQ(desktop.locale[LocaleItem::DecimalSeparator], ",") << "a host failure is trapped";

    host.log.failing.clear();
    runner.script = [](User&) { throw std::logic_error("a fault"); };
    EXPECT_THROW(addin.LaunchEdit(), std::logic_error);
    EXPECT_EQ(desktop.locale[LocaleItem::DecimalSeparator], ".");
}

TEST_F(CommandTest, WordsAreMatchedInAnyLetterCase) {
    Run("OPTIONS");
    EXPECT_EQ(opened, "options ");
    runner.shown = 0;
    Run("Edit");
    EXPECT_EQ(runner.shown, 1);
    EXPECT_TRUE(globals.openedFromHost);
    Run("edit ");
    Run("unknown");
    EXPECT_EQ(runner.shown, 1);
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(CommandTest, AnEmptyWordLetsTheUserPick) {
    runner.script = [](User& user) {
        user.Press(Key::End);
        user.Press(Key::Escape);
    };
    Run("");
    EXPECT_EQ(opened, "");
    runner.script = [](User& user) {
        EXPECT_EQ(user.Get<ui::ComboBox>("cboCommand").Text(), "edit");
        user.Press(Key::End);
        user.Press(Key::Enter);
    };
    Run("");
    EXPECT_EQ(opened, "options ");
}

TEST_F(CommandTest, AnOlderHostIsRefusedByAllButShow) {
    host.application->version[2] = 99;
    host.AddTask("1", "Dig");
    for (const char* word : {"edit", "assign", "save", "load", "options"}) {
        SCOPED_TRACE(word);
        desktop.messages.clear();
        Run(word);
        EXPECT_EQ(desktop.MessageText(),
                  "This functionality requires Quillon Risk Analysis version 8.0.100 or later."
                  "\r\n\r\nPlease upgrade to the latest version or contact your administrator.");
    }
    EXPECT_EQ(opened, "");
    EXPECT_EQ(host.plan->recalculations, 0);
    Run("show");
    EXPECT_EQ(opened, "driving ");
}

TEST_F(CommandTest, AssignMakesSureOfTasksAndFactors) {
    Run("assign");
    EXPECT_EQ(desktop.MessageText(), "There are no tasks to assign risks to.");
    EXPECT_EQ(host.plan->recalculations, 1);
    EXPECT_EQ(opened, "");

    host.AddTask("1", "Dig");
    desktop.messages.clear();
    Run("assign");
    EXPECT_EQ(desktop.MessageText(), "No Risk Factors have been loaded into the Plan.");
    EXPECT_EQ(host.plan->texts["RiskFactors"], "<RiskFactors Version=\"RiskFactors1.00\"/>");
    EXPECT_FALSE(globals.openedFromHost);
    EXPECT_EQ(opened, "assign ");
    EXPECT_EQ(runner.shown, 0) << "the editor works unseen";

    desktop.messages.clear();
    Option("AssignView", "2");
    Run("assign");
    Option("AssignView", "3");
    Run("assign");
    EXPECT_EQ(opened, "assign advanced ");
    EXPECT_EQ(desktop.MessageText(), "");
    EXPECT_EQ(host.plan->recalculations, 4);
}

TEST_F(CommandTest, AssignGoesOnWhenTheDefaultFileIsMissing) {
    host.AddTask("1", "Dig");
    Option("OptionSetting", "1");
    Option("FileLocation", "/nowhere.xml");
    Run("assign");
    EXPECT_EQ(desktop.MessageText(), "The file '/nowhere.xml' does not exist.");
    EXPECT_EQ(opened, "assign ");
}

TEST_F(CommandTest, ShowAsksOnlyWhenTheAnalysisIsOutOfDate) {
    host.plan->texts["RiskFactors"] = kRegister;
    Run("show");
    Run("show");
    EXPECT_EQ(globals.RiskFactors.size(), 1u) << "replaced, not appended";
    host.plan->upToDate = false;
    Run("show");
    EXPECT_EQ(opened, "driving driving ");
    EXPECT_EQ(desktop.MessageText(),
              "The risk analysis is out of date.  To update the risk analysis you need to run it "
              "again.\r\n\r\nDo you wish to continue anyway?");
    desktop.answers = {MessageAnswer::Yes};
    Run("show");
    EXPECT_EQ(opened, "driving driving driving ");
}

TEST_F(CommandTest, RunsBetweenTwoIterationsOfAnAnalysisThatGoesOnWithItsOwnRegister) {
    const struct {
        const char* what;
        std::function<void()> between;
        bool firstKeeps = true, secondKeeps = true;  // the coefficients of the analysis
    } rows[] = {
        {"nothing", [] {}},
        {"show", [this] { addin.LaunchShow(); }},
        {"save", [this] { addin.LaunchSave(); }},
        {"assign", [this] { addin.LaunchAssign(); }},
        {"edit", [this] { addin.LaunchEdit(); }},
        {"another first factor",
         [this] { StoreFactors(2, [](int i, auto& f) { f.dblMax = i == 1 ? 120 : 100; }); }, false},
        {"one factor less", [this] { StoreFactors(1); }, true, false},
        {"no factor", [this] { StoreFactors(0); }, false, false},
        {"no document", [this] { host.plan->texts["RiskFactors"] = "mine"; }, false, false},
    };
    runner.script = [](User& user) { user.Press(Key::Enter); };  // OK, where there is one
    host.AddTask("1", "Dig", "(1,2)");
    addin.LaunchStartSchedulon();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        StoreFactors(2);
        desktop.chosenFiles = {folder / "saved.xml"};
        host::AnalysisEvents& listener = *host.application->sinks.at(0);
        listener.PlanBeforeRiskAnalysis(host.plan);
        for (const double percent : {110.0, 120.0, 140.0}) {
            host.plan->randoms = {0.5, 0.5};
            host.plan->finish = percent;
            for (const auto& member : host.plan->Find("RISKFACTORTASKS")->members)
                member->sampled = percent * 100;
            listener.PlanAfterRiskIteration(host.plan);
            if (percent == 110) row.between();
        }
        listener.PlanAfterRiskAnalysis(host.plan);
        const std::string& text = host.plan->texts["RiskFactors"];
        const std::size_t first = text.find("<DurSens>1<"), second = text.find("\"2\"");
        EXPECT_EQ(first < second && first != text.npos, row.firstKeeps) << text;
        EXPECT_EQ(second != text.npos && text.find("<DurSens>1<", second) != text.npos,
                  row.secondKeeps)
            << text;
    }
    EXPECT_EQ(desktop.MessageText(), "");
}

TEST_F(CommandTest, TheListenerIsStartedOnceAndStoppedOnce) {
    addin.LaunchStopSchedulon();
    addin.LaunchStartSchedulon();
    addin.LaunchStartSchedulon();
    EXPECT_EQ(host.application->sinks.size(), 1u);
    addin.LaunchStopSchedulon();
    addin.LaunchStopSchedulon();
    EXPECT_TRUE(host.application->sinks.empty());

    host.log.failing = {"Application.Subscribe"};
    EXPECT_THROW(addin.LaunchStartSchedulon(), HostError);
    host.log.failing.clear();
    addin.LaunchStartSchedulon();
    EXPECT_EQ(host.application->sinks.size(), 1u) << "a failed start can be repeated";
}

TEST_F(CommandTest, WhatACommandLeavesUndoneIsToldInOneMessage) {
    const struct {
        void (clsKestrelDll::*launch)();
        const char* undone;
    } rows[] = {
        {&clsKestrelDll::LaunchAssign, "Risk factors could not be assigned."},
        {&clsKestrelDll::LaunchShow, "The driving risks could not be shown."},
        {&clsKestrelDll::LaunchSave, "The risk factors and assignments could not be saved."},
        {&clsKestrelDll::LaunchLoad, "The risk factors and assignments could not be loaded."},
    };
    host.application->plan = nullptr;
    desktop.WriteFile(folder / "a.xml", "<RiskFactors/>");
    for (const auto& row : rows) {
        desktop.messages.clear();
        desktop.chosenFiles = {folder / "a.xml"};
        if (row.launch == &clsKestrelDll::LaunchLoad) desktop.answers = {MessageAnswer::Yes};
        (addin.*row.launch)();
        ASSERT_FALSE(desktop.messages.empty()) << row.undone;
        EXPECT_EQ(desktop.messages.back().text,
                  std::string(row.undone) +
                      "\r\n\r\nNo plan is open in the host; open one and try again.");
        EXPECT_EQ(desktop.messages.back().title, kApplicationTitle);
    }
    EXPECT_EQ(runner.shown, 0);
    clsKestrelDll alone([] { return host::ApplicationPtr(); }, desktop, runner);
    desktop.messages.clear();
    alone.LaunchEdit();
    EXPECT_EQ(desktop.MessageText(),
              "The risk factors could not be edited.\r\n\r\nThe add-in could not reach its host.");
    EXPECT_THROW(alone.LaunchStartSchedulon(), HostError);
}

}  // namespace
}  // namespace kestrel::test
