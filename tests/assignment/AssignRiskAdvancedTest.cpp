#include "assignment/AssignmentTest.h"
#include "ui/controls/SelectionListView.h"

namespace kestrel::test {
namespace {

using ui::SelectionListView;

/// The lines, ">" before the selected and "?" behind a grey one.
std::string Lines(const SelectionListView& list) {
    std::string text;
    for (int line = 1; line <= list.Count(); ++line) {
        text += (line > 1 ? "; " : "") + std::string(line == list.Selected() ? ">" : "");
        text += list.At(line).text;
        if (list.At(line).colour == ui::kSystemButtonShadow) text += "?";
    }
    return text;
}

class AdvancedAssignmentTest : public AssignmentTest {
 protected:
    AdvancedAssignmentTest() { Option("AssignView", "2"); }

    static SelectionListView& Risks(User& user) { return user.Get<SelectionListView>("lvwRisks"); }
    static SelectionListView& Choices(User& user) {
        return user.Get<SelectionListView>("lvwChoices");
    }
    static std::string Both(User& user) {
        return Lines(Risks(user)) + " | " + Lines(Choices(user));
    }
    static void ClickLine(User& user, SelectionListView& list, int line, bool twice = false) {
        const Rect bounds = list.LineBounds(line).value();
        MouseEvent event;
        event.x = list.Bounds().x + bounds.x + 1;
        event.y = list.Bounds().y + bounds.y + 1;
        user.TheForm().MouseDown(event);
        event.doubleClick = true;
        if (twice) user.TheForm().MouseDown(event);
    }
};

TEST_F(AdvancedAssignmentTest, EntriesMoveBetweenTheListsByKeysAndMouse) {
    auto task = AddTask("1", "(2(P));(9)");
    Assign([&](User& user) {
        EXPECT_EQ(Caption(user), "1 - T1");
        EXPECT_EQ(Both(user), ">F1; F3 | >F2 (in parallel)");
        user.Press(Key::Down);
        user.PressCtrl(Key::Left);
        user.Press(Key::Space);
        EXPECT_EQ(Both(user), "F1; >F3 | >F2 (in parallel)");
        user.PressCtrl(Key::Right);
        EXPECT_EQ(Both(user), ">F1 | F2 (in parallel); >F3 (in series)");
        user.Press(Key::Enter);
        user.Press(Key::Enter);
        EXPECT_EQ(Both(user), " | >F1 (in series); F2 (in parallel); F3 (in series)");
        user.Press(Key::Tab);
        user.Press(Key::Space);
        user.PressCtrl(Key::Right);
        user.Press(Key::End);
        user.PressCtrl(Key::Left);
        EXPECT_EQ(Both(user), ">F3 | F1 (in parallel); >F2 (in parallel)");
        ClickLine(user, Choices(user), 1);
        user.Press(Key::Enter);
        EXPECT_EQ(Both(user), ">F1; F3 | >F2 (in parallel)");
        ClickLine(user, Choices(user), 1, true);
        ClickLine(user, Risks(user), 3, true);
        EXPECT_EQ(Both(user), "F1; >F2 | >F3 (in series)");
        EXPECT_EQ(Writes(), 0u);
        user.Click("cmdNext");
    });
    EXPECT_EQ(Field(task), "(9,3)");
}

TEST_F(AdvancedAssignmentTest, NextPreviousAndNormalViewKeepTheChangesCancelDropsThem) {
    auto first = AddTask("1");
    auto second = AddTask("2", "(3)");
    int shown = 0;
    Assign([&](User& user) {
        if (++shown == 2) {
            EXPECT_EQ(user.Get<Grid>("TabulonRF").RowCount(), 4);
            EXPECT_EQ(Caption(user), "2 - T2");
            return;
        }
        user.Press(Key::Enter);
        user.Click("cmdNext");
        EXPECT_EQ(Field(first), "(1)");
        EXPECT_EQ(Both(user), ">F1; F2 | >F3 (in series)");
        ClickLine(user, Choices(user), 1);
        user.Press(Key::Space);
        user.Click("cmdPrevious");
        EXPECT_EQ(Field(second), "(3(P))");
        EXPECT_EQ(user.TheForm().Focus(), &Choices(user)) << "the list that had the keyboard";
        user.Click("cmdNext");
        ClickLine(user, Risks(user), 2, true);
        user.Click("cmdNormalView");
    });
    EXPECT_EQ(shown, 2);
    EXPECT_EQ(Field(second), "(3(P));(2)");
    EXPECT_EQ(Stored("AssignView"), "2") << "for this time only";
    EXPECT_EQ(host.plan->recalculations, 1);

    Assign([&](User& user) {
        user.Press(Key::Enter);
        user.Press(Key::Escape);
        EXPECT_FALSE(user.TheForm().IsOpen());
    });
    EXPECT_EQ(Field(second), "(3(P));(2)");
}

TEST_F(AdvancedAssignmentTest, ASummarySaysWhereTheTasksBelowDiffer) {
    auto top = AddSummary("1");
    auto first = AddTask("2", "(1,2(P));(3)", top);
    auto low = AddSummary("3", top);
    auto second = AddTask("4", "(2)", low);
    auto third = AddTask("5", "(2(P))", low);
    auto fourth = AddTask("6", "", top);
    desktop.answers = {MessageAnswer::Ok};
    Assign([&](User& user) {
        EXPECT_EQ(Both(user),
                  " | >F1 (in parallel, on some sub tasks)?; F2 (in series and in parallel, on "
                  "some sub tasks)?; F3 (in series, on some sub tasks)?");
        user.Click("lvwChoices");
        user.Press(Key::Space);
        user.Press(Key::Down);
        user.Press(Key::Enter);
        EXPECT_EQ(Both(user), ">F2 | F1 (in series); >F3 (in series, on some sub tasks)?");
        user.Click("cmdNext");
    });
    EXPECT_EQ(desktop.MessageText(), kApplyToSubTasks);
    EXPECT_EQ(Field(first), "(3,1)") << "factor 3 was not edited";
    EXPECT_EQ(Field(second), "(1)");
    EXPECT_EQ(Field(third), "(1)");
    EXPECT_EQ(Field(fourth), "(1)");
}

TEST_F(AdvancedAssignmentTest, ALongListFollowsItsSelection) {
    StoreFactors(50);
    auto task = AddTask("1");
    Assign([&](User& user) {
        SelectionListView& list = Risks(user);
        const int page = list.VisibleLines();
        ASSERT_LT(page, 45);
        const struct {
            Key key;
            int selected;
        } steps[] = {
            {Key::Up, 1},
            {Key::PageDown, 1 + page},
            {Key::End, 50},
            {Key::Down, 50},
            {Key::PageUp, 50 - page},
            {Key::Home, 1},
            {Key::Down, 2},
            {Key::End, 50},
        };
        for (const auto& step : steps) {
            user.Press(step.key);
            EXPECT_EQ(list.Selected(), step.selected);
            EXPECT_TRUE(list.LineBounds(step.selected));
        }
        ClickLine(user, list, 49, true);
        EXPECT_EQ(list.At(list.Selected()).text, "F50");
        EXPECT_TRUE(list.LineBounds(list.Selected()));
        list.ScrollTo(1);
        EXPECT_FALSE(list.LineBounds(49));
        user.Click("cmdNext");
    });
    EXPECT_EQ(Field(task), "(49)");
}

}  // namespace
}  // namespace kestrel::test
