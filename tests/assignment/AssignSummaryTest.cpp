#include "assignment/AssignmentTest.h"

namespace kestrel::test {
namespace {

TEST_F(AssignmentTest, ShowsWhatTheTasksBelowASummaryHaveInCommon) {
    // Children in plan order; "<" opens a summary among them and ">" closes it.
    const struct {
        std::vector<const char*> children;
        const char* shown;  // factor 1
    } cases[] = {
        {{}, ".-"},
        {{"(2)", ""}, ".-"},
        {{"(1)", "(2,1)"}, "xs"},
        {{"(1(P))", "(1(P));(2)"}, "xp"},
        {{"(1)", "(2)"}, "x?s"},
        {{"", "(1(P))"}, "x?p"},
        {{"(1)", "(1(P))"}, "xs?"},
        {{"(1(P))", "(1)"}, "xs?"},
        {{"", "(1(P))", "(1)"}, "x?s?"},
        {{"(1)", "(1(P))", "", "(1)"}, "x?s?"},
        {{"<", "(1)", "(1)", ">"}, "xs"},
        {{"<", "<", "(1)", "(2)", ">", ">"}, "x?s"},
        {{"<", "(1)", ">", "(1)"}, "x?s"},  // a level that begins with a summary
        {{"(1)", "<", "(1)", ">"}, "xs"},
        {{"(1)", "<", "(2)", ">"}, "xs"},  // each level is compared with its own first child
        {{"(1)", "<", "(1(P))", ">"}, "xs"},
        {{"<", "(2)", ">", "<", "(1(P))", "<", "(1)", "(1(P))", ">", ">"}, "xs?"},
        {{"*", "(1)"}, "xs"},  // a task of another kind counts for nothing
    };
    for (const auto& c : cases) {
        std::string tree;
        for (const char* child : c.children) tree += std::string(child) + " ";
        SCOPED_TRACE(tree);
        host.plan->tasks.clear();
        std::vector<TaskPtr> open{AddSummary("1")};
        int id = 1;
        for (const std::string child : c.children) {
            if (child == ">") {
                open.pop_back();
            } else if (child == "<") {
                open.push_back(AddSummary(std::to_string(++id), open.back()));
            } else {
                auto task = AddTask(std::to_string(++id), child == "*" ? "" : child, open.back());
                if (child == "*") task->type = 2;
            }
        }
        Assign([&](User& user) { EXPECT_EQ(Row(TheGrid(user), 1), c.shown); });
    }
}

TEST_F(AssignmentTest, AnEditOfASummaryReachesEveryTaskBelowAfterOneQuestion) {
    auto top = AddSummary("1");
    auto first = AddTask("2", "(1)", top);
    auto middle = AddSummary("3", top);
    auto second = AddTask("4", "(1(P));(3)", middle);
    auto low = AddSummary("5", middle);
    auto third = AddTask("6", "", low);
    auto other = AddTask("7", "", low);
    other->type = 2;
    auto outside = AddTask("8", "(2)");

    const auto edit = [&](User& user) {
        EXPECT_EQ(Rows(user), "xs .- xs");
        ClickCells(user, "S1 A2");
        EXPECT_EQ(Rows(user), "xp xs xs");
        user.Click("cmdOk");
        EXPECT_FALSE(user.TheForm().IsOpen());
    };
    desktop.answers = {MessageAnswer::Cancel};
    Assign(edit);
    EXPECT_EQ(Writes(), 0u);

    desktop.answers = {MessageAnswer::Ok};
    Assign(edit);
    EXPECT_EQ(desktop.MessageText(), std::string(kApplyToSubTasks) + " | " + kApplyToSubTasks);
    EXPECT_EQ(desktop.messages[0].buttons, MessageButtons::OkCancel);
    EXPECT_EQ(Field(first), "(1(P));(2)");
    EXPECT_EQ(Field(second), "(1(P));(3,2)");
    EXPECT_EQ(Field(third), "(1(P));(2)");
    EXPECT_EQ(Field(top), "(1,2,3)") << "summaries carry nothing themselves";
    EXPECT_EQ(Field(low), "(1,2,3)");
    EXPECT_EQ(Field(other), "");
    EXPECT_EQ(Field(outside), "(2)");
}

TEST_F(AssignmentTest, EditingAGreyedRowEndsTheGrey) {
    auto top = AddSummary("1");
    auto first = AddTask("2", "(1)", top);
    auto second = AddTask("3", "(2)", top);
    desktop.answers = {MessageAnswer::Ok};
    Assign([&](User& user) {
        EXPECT_EQ(Rows(user), "x?s x?s .-");
        ClickCells(user, "A1 A1");
        EXPECT_EQ(Rows(user), "xs x?s .-");
        user.Click("cmdOk");
    });
    EXPECT_EQ(Field(first), "(1)");
    EXPECT_EQ(Field(second), "(2,1)") << "factor 2 was not edited";
}

}  // namespace
}  // namespace kestrel::test
