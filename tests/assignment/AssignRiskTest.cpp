#include "assignment/AssignmentTest.h"

namespace kestrel::test {
namespace {

TEST_F(AssignmentTest, ShowsAndWritesTheFieldOfAnOrdinaryTask) {
    const struct {
        const char* field;
        const char* shown;
        const char* clicks;
        const char* written;
    } cases[] = {
        {"", ".- .- .-", "A3", "(3)"},
        {"", ".- .- .-", "A3 S3", "(3(P))"},
        {"(1)", "xs .- .-", "A3 S3", "(3(P));(1)"},
        {"(2(P));(1)", "xs xp .-", "S2", "(1,2)"},
        {"(1,2(P));(3)", "xp xp xs", "A2 S3", "(1,3(P))"},
        {"(2)", ".- xs .-", "A2", ""},
        {"(2)", ".- xs .-", "A2 A2", "(2)"},
        {"(2(P))", ".- xp .-", "A2 A2", "(2)"},
        {"1,2", "xs xs .-", "S1 S1 A3", "(1,2,3)"},
        {"(9,2)", ".- xs .-", "A2 A1", "(9,1)"},
        {"(9,2(P));(8)", ".- xp .-", "A2 A1", "(9(P));(8,1)"},
        {"(1)", "xs .- .-", "S2", "(1)"},
    };
    auto task = AddTask("1");
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.field << " " << c.clicks);
        task->texts["RiskFactors"] = c.field;
        Assign([&](User& user) {
            EXPECT_EQ(Caption(user), "1 - T1");
            EXPECT_EQ(Rows(user), c.shown);
            ClickCells(user, c.clicks);
            user.Click("cmdOk");
            EXPECT_FALSE(user.TheForm().IsOpen());
        });
        EXPECT_EQ(Field(task), c.written);
    }
    EXPECT_EQ(desktop.MessageText(), "");
}

TEST_F(AssignmentTest, WorksByKeyboardAlone) {
    auto task = AddTask("1", "(1)");
    Assign([&](User& user) {
        user.Press(Key::Space);
        user.Press(Key::Down);
        user.Press(Key::Space);
        user.Press(Key::Right);
        user.Press(Key::Right);
        user.Press(Key::Space);
        EXPECT_EQ(Rows(user), ".- xp .-");
        user.Press(Key::Enter);
    });
    EXPECT_EQ(Field(task), "(2(P))");
    Assign([&](User& user) {
        user.Press(Key::Space);
        user.Press(Key::Escape);
        EXPECT_FALSE(user.TheForm().IsOpen());
    });
    EXPECT_EQ(Field(task), "(2(P))") << "cancelled";
}

TEST_F(AssignmentTest, WithoutEditsNothingIsAskedOrWritten) {
    auto summary = AddSummary("1");
    AddTask("2", "(1(P));(9)", summary);
    Assign([&](User& user) {
        user.Click("cmdNext");
        user.Click("cmdPrevious");
        EXPECT_EQ(user.TheForm().Focus()->Name(), "TabulonRF")
            << "the keyboard goes on in the list";
        user.Click("cmdOk");
    });
    EXPECT_EQ(Writes(), 0u);
    EXPECT_EQ(desktop.MessageText(), "");
    EXPECT_EQ(host.plan->recalculations, 1);
}

TEST_F(AssignmentTest, NextAndPreviousSaveAndStopAtTheEnds) {
    auto first = AddTask("1", "(1)");
    auto second = AddTask("2", "(2(P))");
    Assign([&](User& user) {
        ClickCells(user, "A3");
        user.Click("cmdPrevious");
        EXPECT_EQ(Caption(user), "1 - T1");
        EXPECT_EQ(Field(first), "(1,3)");
        user.Click("cmdNext");
        EXPECT_EQ(Caption(user), "2 - T2");
        EXPECT_EQ(Rows(user), ".- xp .-");
        EXPECT_EQ(TheGrid(user).Text(3, 1), "F3");
        ClickCells(user, "A2");
        user.PressLetter('N', false, true);
        EXPECT_EQ(host.plan->currentRow, 2);
        EXPECT_EQ(Field(second), "");
        user.Click("cmdPrevious");
        EXPECT_EQ(Rows(user), "xs .- xs");
        user.Click("cmdClose");
    });
    EXPECT_EQ(Writes(), 2u) << "edits are forgotten once saved";
    EXPECT_EQ(host.plan->currentRow, 1);
    EXPECT_TRUE(host.plan->autoCalculate);
    EXPECT_EQ(host.log.Count("Plan.PutAutoCalculate"), 8u);
}

TEST_F(AssignmentTest, InAnotherViewNextSavesAndDoesNothingElse) {
    auto task = AddTask("1");
    AddTask("2");
    Assign([&](User& user) {
        ClickCells(user, "A1");
        host.plan->viewType = "Histogram";
        user.Click("cmdNext");
        EXPECT_EQ(Field(task), "(1)");
        EXPECT_EQ(Caption(user), "1 - T1");
        EXPECT_EQ(Rows(user), "xs .- .-");
        EXPECT_EQ(host.plan->currentRow, 1);
    });
}

TEST_F(AssignmentTest, WithoutATaskThatCanCarryFactorsBothViewsAreOff) {
    auto task = AddTask("1", "(1)");
    const struct {
        const char* view;
        std::int32_t row;
        std::int16_t type;
        const char* label;
    } cases[] = {
        {"Histogram", 1, 0, "No task is selected."},
        {"GanttChart", 0, 0, "No task is selected."},
        {"GanttChart", 2, 0, "No task is selected."},
        {"GanttChart", 1, 2, "1 - T1 (a task of this kind carries no risk factors)"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.view << " " << c.row << " " << c.type);
        host.plan->viewType = c.view;
        host.plan->currentRow = c.row;
        task->type = c.type;
        Option("AssignView", "1");
        Assign([&](User& user) {
            EXPECT_EQ(Caption(user), c.label);
            ClickCells(user, "A1 S1 A2");
            user.Press(Key::Space);
            EXPECT_EQ(Rows(user), ".- .- .-");
            user.Click("cmdOk");
            EXPECT_FALSE(user.TheForm().IsOpen());
        });
        Option("AssignView", "2");
        Assign([&](User& user) {
            EXPECT_EQ(Caption(user), c.label);
            EXPECT_FALSE(user.Get<Control>("lvwRisks").Enabled());
            user.PressCtrl(Key::Right);
            host.plan->viewType = "GanttChart";
            task->type = 0;
            host.plan->currentRow = 0;
            user.Click("cmdNext");
            EXPECT_TRUE(user.Get<Control>("lvwRisks").Enabled()) << "Next has come to a task";
        });
    }
    EXPECT_EQ(Writes(), 0u);
}

TEST_F(AssignmentTest, AnEmptyRegisterAndNamesWithMarksAreShownAsTheyAre) {
    host.plan->texts["RiskFactors"] = "<RiskFactors Version=\"RiskFactors1.00\"/>";
    auto task = host.AddTask("1", "Q&A && <R>", "(1)");
    Assign([&](User& user) {
        EXPECT_EQ(Caption(user), "1 - Q&A && <R>");
        EXPECT_EQ(TheGrid(user).RowCount(), 1);
        user.Press(Key::Space);
        user.Press(Key::Down);
        user.Click("cmdNext");
        user.Click("cmdOk");
    });
    EXPECT_EQ(Field(task), "(1)");
}

TEST_F(AssignmentTest, TheWindowReturnsToWhereItWasLeft) {
    AddTask("1");
    const auto place = [](User& user) {
        const auto& position = user.TheForm().Position();
        return position ? testing::PrintToString(std::make_pair(position->top, position->left))
                        : "nowhere";
    };
    for (const char* view : {"1", "2"}) {
        Option("AssignView", view);
        host.application->settings.erase({"RiskFactors", "RiskFactors", "Top"});
        host.application->settings.erase({"RiskFactors", "RiskFactors", "Left"});
        Assign([&](User& user) {
            EXPECT_EQ(place(user), "(180, 20.25)");
            user.TheForm().SetPosition({-7.5, 42});
            user.Click("cmdClose");
        });
        EXPECT_EQ(Stored("Top"), "42");
        EXPECT_EQ(Stored("Left"), "-7.5");
        Assign([&](User& user) { EXPECT_EQ(place(user), "(42, -7.5)"); });
    }
    Option("Top", "1,5");
    Assign([&](User& user) { EXPECT_EQ(place(user), "nowhere"); });
    EXPECT_EQ(Stored("Top"), "1,5");
}

TEST_F(AssignmentTest, AFailingHostCallLeavesTasksAndGridAlone) {
    auto top = AddSummary("1");
    auto first = AddTask("2", "(1)", top);
    auto second = AddTask("3", "(1)", top);
    Assign([&](User& user) {
        ClickCells(user, "A2");
        host.log.failing = {"UserValues.Item"};
        user.Click("cmdOk");
        EXPECT_TRUE(user.TheForm().IsOpen());
        user.Click("cmdNext");
        EXPECT_EQ(Caption(user), "1 - T1");
        EXPECT_EQ(Rows(user), "xs xs .-");
        EXPECT_TRUE(host.plan->autoCalculate);
        EXPECT_EQ(Writes(), 0u);
        const std::string told = "The task's risk factors could not be saved; the changes are";
        ASSERT_EQ(desktop.messages.size(), 2u) << "one for each button";
        for (const auto& message : desktop.messages)
            EXPECT_EQ(message.text.substr(0, told.size()), told);

        desktop.answers = {MessageAnswer::Ok};
        host.log.failing = {"Task.Name"};
        user.Click("cmdNext");
        EXPECT_EQ(Field(second), "(1,2)") << "saved before the next task was asked for";
        EXPECT_EQ(Caption(user), "1 - T1");
        EXPECT_EQ(desktop.messages.back().text.find("The task's risk factors could not be shown."),
                  0u);
        host.log.failing.clear();
    });
    host.log.failing = {"Task.TaskType"};
    addin.LaunchAssign();
    EXPECT_EQ(runner.shown, 1) << "a task that cannot be read is not shown";
}

}  // namespace
}  // namespace kestrel::test
