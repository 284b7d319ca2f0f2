#include "editor/EditorTest.h"

namespace kestrel::test {
namespace {

constexpr const char* kBlank =
    "A Risk Factor's description cannot be blank.  Please enter a valid description.";

TEST_F(EditorTest, OkRefusesABlankDescriptionAndShowsIt) {
    StoreFactors(3);
    auto task = host.AddTask("1", "Dig", "(1,2)");
    Edit([&](User& user) {
        TypeInto(user, 2, 0, " ");
        user.ClickCell("Tabulon1", 3, 4);
        ClickOk(user);
        EXPECT_TRUE(user.TheForm().IsOpen());
        EXPECT_EQ(Current(), "2,0");
        EXPECT_TRUE(grid->IsEditing());
        EXPECT_EQ(user.TheForm().Focus(), grid);
        user.Click("cmdSave");
        EXPECT_TRUE(desktop.saveDialogs.empty());
    });
    EXPECT_EQ(desktop.MessageText(), std::string(kBlank) + " | " + kBlank);
    EXPECT_EQ(host.log.Count("UserValues.PutItem"), 0u);
}

TEST_F(EditorTest, OkRefusesFiguresThatCannotBe) {
    const struct {
        int column;
        const char* typed;
        const char* message;
        int refused = kDescriptionColumn;  ///< the column that becomes current
    } cases[] = {
        {kLikelihoodColumn, "100.01", "The Risk Probability must be between 0-100",
         kLikelihoodColumn},
        {kLikelihoodColumn, "100", ""},
        {kDurMinColumn, "100.00", ""},
        {kCostLikelyColumn, "99",
         "The \r\nCost Likely Risk Percentage cannot be less than the \r\nCost Min Risk Percentage "
         "in Row: 2",
         kCostLikelyColumn},
        {kDurMaxColumn, "99.99",
         "The \r\nDur Max Risk Percentage cannot be less than the \r\nDur Likely Risk Percentage "
         "in Row: 2",
         kDurMaxColumn},
        {kCostMinColumn, "120",
         "The \r\nCost Likely Risk Percentage cannot be less than the \r\nCost Min Risk Percentage "
         "in Row: 2",
         kCostLikelyColumn},
        {kDurMinColumn, "2:",
         "\"2:\" in row 2, column \"Dur Min\", is not a number that can be used. Enter a "
         "percentage, "
         "for example 12.5.",
         kDurMinColumn},
        {kCorrelatedToColumn, "715%",
         "\"715%\" in row 2, column \"Likelihood Correlated to\", is not a number that can be "
         "used. "
         "Enter the number of a risk factor, for example 12, or 0 for none.",
         kCorrelatedToColumn},
        {kCostMaxColumn, "5%:00",
         "The \r\nCost Max Risk Percentage cannot be less than the "
         "\r\nCost Likely Risk Percentage in Row: 2",
         kCostMaxColumn},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.column << " " << c.typed);
        StoreFactors(2);
        const std::string before = host.plan->texts["RiskFactors"];
        desktop.messages.clear();
        Edit([&](User& user) {
            TypeInto(user, 2, c.column, c.typed);
            ClickOk(user);
            EXPECT_EQ(user.TheForm().IsOpen(), *c.message != '\0');
            if (user.TheForm().IsOpen()) {
                EXPECT_EQ(Current(), "2," + std::to_string(c.refused));
                EXPECT_EQ(user.TheForm().Focus(), grid);
            }
        });
        EXPECT_EQ(desktop.MessageText(), c.message);
        if (*c.message != '\0') {
            EXPECT_EQ(host.plan->texts["RiskFactors"], before);
        }
    }
}

TEST_F(EditorTest, ARefusalElsewhereStillLooksAtTheRowThatItLeaves) {
    const std::pair<int, const char*> refused[] = {{kDescriptionColumn, " "},
                                                   {kDurMinColumn, "2:"}};
    for (const auto& [column, typed] : refused)
        for (const char* button : {"cmdOKRisk", "cmdSave"}) {
            SCOPED_TRACE(std::to_string(column) + button);
            StoreFactors(2);
            Edit([&](User& user) {
                TypeInto(user, 2, column, typed);
                TypeInto(user, 1, kCorrelatedToColumn, "999999");
                user.Click(button);
                EXPECT_EQ(Current(), "2," + std::to_string(column));
                EXPECT_EQ(grid->Text(1, kCorrelatedToColumn), "0");
            });
        }
}

TEST_F(EditorTest, TheLikelihoodIsReportedBeforeTheOrder) {
    StoreFactors(1);
    Edit([&](User& user) {
        TypeInto(user, 1, kLikelihoodColumn, "101");
        TypeInto(user, 1, kDurMaxColumn, "1");
        ClickOk(user);
    });
    EXPECT_EQ(desktop.MessageText(), "The Risk Probability must be between 0-100");
}

TEST_F(EditorTest, ARefusedOkHasRenumberedTheTasksAndDoesSoAgain) {
    StoreFactors(4);
    auto task = host.AddTask("1", "Dig", "(1,2,3,4)");
    Edit([&](User& user) {
        user.ClickCell("Tabulon1", 2, 0);
        desktop.answers = {MessageAnswer::Yes};
        user.Press(Key::Delete);
        TypeInto(user, 1, kDurMinColumn, ".");
        ClickOk(user);
        EXPECT_EQ(task->texts["RiskFactors"], "(1,2,3,4)") << "not before every cell can be read";
        TypeInto(user, 1, kDurMinColumn, "90");
        TypeInto(user, 1, kLikelihoodColumn, "101");
        ClickOk(user);
        EXPECT_EQ(task->texts["RiskFactors"], "(1,2,3)");
        TypeInto(user, 1, kLikelihoodColumn, "50");
        ClickOk(user);
        EXPECT_FALSE(user.TheForm().IsOpen());
    });
    EXPECT_EQ(task->texts["RiskFactors"], "(1,2)");
}

TEST_F(EditorTest, CancelAfterDeletionsChangesNothing) {
    StoreFactors(3);
    auto task = host.AddTask("1", "Dig", "(1,2,3)");
    const std::string before = host.plan->texts["RiskFactors"];
    Edit([&](User& user) {
        desktop.answers = {MessageAnswer::Yes};
        user.Press(Key::Delete);
        user.Click("cmdCancelRisk");
        EXPECT_FALSE(user.TheForm().IsOpen());
    });
    EXPECT_EQ(host.plan->texts["RiskFactors"], before);
    EXPECT_EQ(task->texts["RiskFactors"], "(1,2,3)");
}

TEST_F(EditorTest, AFailureKeepsTheWindowAndItsRows) {
    StoreFactors(2);
    Edit([&](User& user) {
        TypeInto(user, 1, kDurMinColumn, "1");
        host.log.failing = {"Plan.SetText"};
        ClickOk(user);
        EXPECT_TRUE(user.TheForm().IsOpen()) << "the host refuses";
        EXPECT_EQ(desktop.messages.back().text.find("The risk factors could not be stored"), 0u);
        EXPECT_EQ(Column(0), "F1 F2  ");
        host.log.failing.clear();
        ClickOk(user);
        EXPECT_FALSE(user.TheForm().IsOpen());
    });
    EXPECT_EQ(addin.Globals().RiskFactors[0]->dblMin, 1);
}

}  // namespace
}  // namespace kestrel::test
