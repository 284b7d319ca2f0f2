#include "editor/EditorTest.h"
#include "ui/editor/RiskGrid.h"
#include "util/Colour.h"

namespace kestrel::test {
namespace {

constexpr int kLike = kLikelihoodColumn, kCorr = kCorrelatedToColumn;
constexpr const char* kToItself = "A Risk Factor cannot be correlated to itself.";
constexpr const char* kInvalid =
    "Invalid entry. Please enter the number of the risk factor you wish to correlate this risk "
    "factor to, for example 12.  Enter 0 to remove correlation.";

TEST_F(EditorTest, AFollowerTakesTheOthersLikelihoodAndLocksBothCells) {
    StoreFactors(5, [](int i, clsRiskFactor& f) { f.dblProb = 10 * i; });
    Edit([&](User& user) {
        TypeInto(user, 3, kCorr, "5");
        user.Press(Key::Up);
        EXPECT_EQ(Cell(3, kLike), "50.00%");
        EXPECT_FALSE(grid->Editable(3, kLike));
        EXPECT_EQ(grid->CellColour(3, kLike), ui::kSystemGreyText);
        EXPECT_FALSE(grid->Editable(5, kCorr));
        TypeInto(user, 1, kCorr, "3");
        TypeInto(user, 5, kLike, "7");
        user.Press(Key::Down);
        EXPECT_EQ(Cell(3, kLike), "7.00%");
        EXPECT_EQ(Cell(1, kLike), "7.00%") << "through the whole chain";
        TypeInto(user, 1, kCorr, "0");

        TypeInto(user, 3, kLike, "1");
        TypeInto(user, 5, kCorr, "1");
        EXPECT_EQ(Cell(3, kLike) + Cell(5, kCorr), "7.00%0") << "locked cells refuse typing";

        TypeInto(user, 3, kCorr, "0");
        user.Press(Key::Down);
        EXPECT_TRUE(grid->Editable(3, kLike));
        EXPECT_EQ(grid->CellColour(5, kCorr), ui::kWhite);
    });
    EXPECT_EQ(desktop.MessageText(), "");
}

TEST_F(EditorTest, CorrelationsThatCannotBeAreRefused) {
    StoreFactors(11);
    const struct {
        const char* typed;
        const char* message;
        const char* left;
    } cases[] = {
        {"2", kToItself, "0"}, {"12", kInvalid, "0"},
        {"99", kInvalid, "0"}, {"11", "", "11"},
        {"1:", "", "1:"},      {"00", "", "00"},
        {"5%", "", "5%"},      {"9999999999", kInvalid, "0"},
        {"011", "", "011"},
    };
    Edit([&](User& user) {
        for (const auto& c : cases) {
            SCOPED_TRACE(c.typed);
            desktop.messages.clear();
            TypeInto(user, 2, kCorr, c.typed);
            user.ClickCell("Tabulon1", 4, 0);
            EXPECT_EQ(desktop.MessageText(), c.message);
            EXPECT_EQ(Cell(2, kCorr), c.left);
            EXPECT_EQ(Current(), *c.message ? "2,8" : "4,0");
        }
        TypeInto(user, 2, kCorr, "1");
        user.Press(Key::Back);
        user.Press(Key::Up);
        EXPECT_EQ(Cell(2, kCorr), "0") << "blank means none";
    });
}

TEST_F(EditorTest, LocksShowTheCorrelationsThatWereStored) {
    for (const auto& [follower, leader] : {std::pair{4, 1}, {1, 4}}) {
        StoreFactors(4,
                     [&](int i, clsRiskFactor& f) { f.CorrelatedTo = i == follower ? leader : 0; });
        Edit([&](User& user) {
            for (int i = 0; i < 2; ++i) {
                for (int row = 1; row <= 4; ++row) {
                    EXPECT_EQ(grid->Editable(row, kLike), row != follower) << row;
                    EXPECT_EQ(grid->Editable(row, kCorr), row != leader) << row;
                }
                user.Press(Key::Down);
            }
        });
    }
}

TEST_F(EditorTest, DeletingARowClosesUpNumbersAndCorrelations) {
    const int targets[] = {0, 0, 2, 0, 4, 5};
    StoreFactors(6, [&](int i, clsRiskFactor& f) { f.CorrelatedTo = targets[i - 1]; });
    auto task = host.AddTask("1", "Dig", "(2,4(P));(1,6)");
    Edit([&](User& user) {
        user.ClickCell("Tabulon1", 2, 0);
        user.Click("cmdDeleteRisk");
        EXPECT_EQ(grid->RowCount(), 8) << "No deletes nothing";
        desktop.answers = {MessageAnswer::Yes};
        user.Press(Key::Delete);
        EXPECT_EQ(grid->RowCount(), 8) << "the button has the keyboard";
        user.ClickCell("Tabulon1", 2, 0);
        user.Press(Key::Delete);
        EXPECT_EQ(Column(0), "F1 F3 F4 F5 F6  ");
        EXPECT_EQ(Column(Grid::kRowHeader), "1. 2. 3. 4. 5. 6. ");
        EXPECT_EQ(Column(kCorr), "0 0 0 3 4  ");
        EXPECT_EQ(Current(), "2,0");
        EXPECT_EQ(task->texts["RiskFactors"], "(2,4(P));(1,6)") << "tasks wait for OK";
        ClickOk(user);
    });
    EXPECT_EQ(task->texts["RiskFactors"], "(3(P));(1,5)");
    EXPECT_EQ(
        desktop.MessageText(),
        "Do you want to delete the selected Risk? | Do you want to delete the selected Risk?");
}

TEST_F(EditorTest, RowsMarkedByMouseAreAllDeleted) {
    StoreFactors(6, [](int i, clsRiskFactor& f) { f.CorrelatedTo = i == 6 ? 5 : 0; });
    auto task = host.AddTask("1", "Dig", "(1,2,3,4,5,6)");
    MouseEvent ctrl;
    ctrl.ctrl = true;
    Edit([&](User& user) {
        user.ClickCell("Tabulon1", 2, 0);
        for (const int row : {3, 4, 7}) user.ClickCell("Tabulon1", row, 0, ctrl);
        desktop.answers = {MessageAnswer::Yes};
        user.Click("cmdDeleteRisk");
        EXPECT_EQ(Column(0), "F1 F5 F6  ");
        EXPECT_EQ(Column(kCorr), "0 0 2  ") << "the entry row, marked too, stays";
        EXPECT_FALSE(grid->Editable(2, kCorr));
        ClickOk(user);
    });
    EXPECT_EQ(task->texts["RiskFactors"], "(1,2,3)");
}

TEST_F(EditorTest, DeletionTakesWhatIsSelectedAndStopsAtABlankRow) {
    const struct {
        const char* what;
        int factors;
        Script select;
        bool byKey;
        const char* left;
        bool toldOfBlank;
    } cases[] = {
        {"rows marked by mouse are forgotten when a key selects another", 4,
         [](User& user) {
             user.ClickCell("Tabulon1", 1, 0);
             user.ClickCell("Tabulon1", 3, 0, {.shift = true});
             user.Press(Key::Down);
         },
         true, "F1 F2 F3  ", false},
        {"rows selected by keys", 4,
         [](User& user) {
             user.ClickCell("Tabulon1", 1, 0);
             user.Press(Key::PageDown, true);
         },
         true, " ", false},
        {"rows selected by arrows", 5,
         [](User& user) {
             user.ClickCell("Tabulon1", 4, 0);
             for (const Key key : {Key::Up, Key::Up, Key::Right, Key::Up, Key::Down})
                 user.Press(key, true);
         },
         true, "F1 F5  ", false},
        {"a blank row that is not the current one", 1,
         [](User& user) {
             user.ClickCell("Tabulon1", 2, 0);
             for (int i = 0; i < 2; ++i) user.ClickCell("Tabulon1", 1, 0, {.ctrl = true});
         },
         true, "F1  ", true},
        {"a factor still being typed is deleted as one", 2,
         [this](User& user) { TypeInto(user, 3, 0, "Frost"); }, false, "F1 F2  ", false},
        {"a blank row", 1, [](User& user) { user.ClickCell("Tabulon1", 2, 0); }, false, "F1  ",
         true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        StoreFactors(c.factors, [](int i, clsRiskFactor& f) { f.CorrelatedTo = i == 2 ? 1 : 0; });
        desktop.messages.clear();
        Edit([&](User& user) {
            c.select(user);
            desktop.answers = {MessageAnswer::Yes};
            desktop.beeps = 0;
            if (c.byKey)
                user.Press(Key::Delete);
            else
                user.Click("cmdDeleteRisk");
            EXPECT_EQ(Column(0), c.left);
            EXPECT_EQ(desktop.beeps, c.toldOfBlank ? 0 : 1) << "no new row is needed";
            EXPECT_EQ(user.TheForm().Focus() == grid, c.byKey || c.toldOfBlank);
            EXPECT_TRUE(!c.toldOfBlank || grid->CurrentRow() == 2) << "the blank one";
            EXPECT_EQ(grid->Editable(1, kCorr), std::string(c.left).substr(0, 5) != "F1 F2")
                << "factor 2 keeps its lock";
        });
        EXPECT_EQ(desktop.messages.back().text == "Cannot Delete Selected Risk as Row Empty",
                  c.toldOfBlank);
    }
}

}  // namespace
}  // namespace kestrel::test
