#include "editor/EditorTest.h"
#include "util/Colour.h"

namespace kestrel::test {
namespace {

TEST_F(EditorTest, OpensWithOneNumberedEntryRowOnAnEmptyPlan) {
    Edit([&](User& user) {
        EXPECT_EQ(user.TheForm().Caption(), "Edit Risk Factors");
        EXPECT_EQ(user.TheForm().Focus(), grid);
        EXPECT_EQ(grid->RowCount(), 2);
        EXPECT_EQ(Cell(1, Grid::kRowHeader), "1.");
        EXPECT_EQ(Cell(0, kDescriptionColumn), "\r\nDescription");
        EXPECT_EQ(Cell(0, kDurLikelyColumn), "\r\nDur Likely");
        EXPECT_EQ(Cell(0, kCorrelatedToColumn), "Likelihood\r\nCorrelated to");
        EXPECT_EQ(user.Get<ui::Button>("cmdDeleteRisk").Caption(), "Delete Risk");
    });
    EXPECT_EQ(runner.shown, 1);
}

TEST_F(EditorTest, ADescriptionAloneBecomesAFactorWithDefaults) {
    Edit([&](User& user) {
        user.Type("Frost");
        user.Press(Key::Down);
        EXPECT_EQ(Cell(1, kDescriptionColumn), "Frost");
        for (int column = kDurMinColumn; column <= kLikelihoodColumn; ++column)
            EXPECT_EQ(Cell(1, column), "100.00%") << column;
        EXPECT_EQ(Cell(1, kCorrelatedToColumn), "0");
        EXPECT_EQ(Cell(2, Grid::kRowHeader), "2.");
        EXPECT_EQ(Column(kDescriptionColumn), "Frost  ");
        EXPECT_EQ(Current(), "2,0");
        ClickOk(user);
    });
    ASSERT_EQ(addin.Globals().RiskFactors.size(), 1u);
    EXPECT_EQ(addin.Globals().RiskFactors[0]->strDescription, "Frost");
    EXPECT_NE(host.plan->texts["RiskFactors"].find("<RiskFactor ID=\"1\"><Name>Frost</Name>"),
              std::string::npos);
}

TEST_F(EditorTest, AFactorStillBeingTypedIsStoredByOk) {
    Edit([&](User& user) {
        user.Type("Frost");
        ClickOk(user);
        EXPECT_FALSE(user.TheForm().IsOpen());
    });
    EXPECT_EQ(addin.Globals().RiskFactors.size(), 1u);
}

TEST_F(EditorTest, TheEntryRowWantsItsDescriptionFirst) {
    Edit([&](User& user) {
        user.Press(Key::Right);
        user.Type("5");
        user.Press(Key::F2);
        user.Press(Key::Back);
        EXPECT_EQ(desktop.beeps, 3);
        user.ClickCell("Tabulon1", 1, kDurMinColumn, {.doubleClick = true});
        user.ClickCell("Tabulon1", 0, kDurMinColumn, {.doubleClick = true});
        EXPECT_EQ(desktop.beeps, 4) << "once, and nothing for a header";
        EXPECT_EQ(Cell(1, kDurMinColumn), "");
        EXPECT_FALSE(grid->IsEditing());
    });
}

TEST_F(EditorTest, RefusedCharactersAreDroppedInSilence) {
    StoreFactors(1);
    Edit([&](User& user) {
        TypeInto(user, 1, kDurMaxColumn, "a1b:|c.2-");
        EXPECT_EQ(Cell(1, kDurMaxColumn), "1:.2");
        TypeInto(user, 1, kCorrelatedToColumn, ".");
        EXPECT_EQ(Cell(1, kCorrelatedToColumn), "0");
        EXPECT_FALSE(grid->IsEditing());
    });
    EXPECT_EQ(desktop.beeps, 0);
}

TEST_F(EditorTest, KeysMoveAsTheyShould) {
    StoreFactors(3);
    const struct {
        const char* from;
        Key key;
        bool shift;
        const char* to;
        int beeps;
    } cases[] = {
        {"1,3", Key::Up, false, "1,3", 1},       {"3,3", Key::Up, false, "2,3", 0},
        {"4,2", Key::Down, false, "4,2", 1},     {"1,2", Key::Enter, true, "1,2", 1},
        {"3,2", Key::Enter, true, "2,2", 0},     {"4,0", Key::Tab, false, "4,1", 0},
        {"1,8", Key::Tab, false, "2,0", 0},      {"4,8", Key::Tab, false, "4,8", 0},
        {"2,0", Key::Tab, true, "1,8", 0},       {"1,0", Key::Tab, true, "1,0", 0},
        {"2,4", Key::Tab, true, "2,3", 0},       {"2,8", Key::Right, false, "2,8", 0},
        {"2,0", Key::Left, false, "2,0", 0},     {"2,4", Key::Home, false, "2,0", 0},
        {"2,4", Key::PageDown, false, "4,4", 0},
    };
    Edit([&](User& user) {
        for (const auto& c : cases) {
            SCOPED_TRACE(testing::Message() << c.from << " key " << static_cast<int>(c.key));
            grid->SetCurrentCell(c.from[0] - '0', c.from[2] - '0');
            desktop.beeps = 0;
            user.Press(c.key, c.shift);
            EXPECT_EQ(Current(), c.to);
            EXPECT_EQ(desktop.beeps, c.beeps);
            EXPECT_EQ(grid->SelectedRows().size() == 1 ? grid->CurrentRow() : 0,
                      grid->CurrentRow());
        }
        for (const Key key : {Key::Down, Key::Enter}) {
            grid->SetCurrentCell(1, 2);
            user.Press(key);
            EXPECT_EQ(Current(), "2,2");
        }
    });
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(EditorTest, KeysWorkOnTheTextWhileACellIsEdited) {
    StoreFactors(1);
    const std::string before = host.plan->texts["RiskFactors"];
    Edit([&](User& user) {
        user.Type("ac|");
        for (const Key key : {Key::Left, Key::Right, Key::Home, Key::Delete}) user.Press(key);
        EXPECT_EQ(Cell(1, 0), "c") << "Delete deletes a character, not the factor";
        EXPECT_EQ(Current(), "1,0");
        user.Press(Key::Escape);
        EXPECT_EQ(Cell(1, 0), "F1") << "Esc gives the text back first";
        user.TheForm().KeyDown({.key = Key::Escape, .repeated = true});
        EXPECT_TRUE(user.TheForm().IsOpen()) << "and held down does no more";
        user.Type("Gone");
        user.Press(Key::Tab);
        user.Press(Key::Escape);
        EXPECT_FALSE(user.TheForm().IsOpen());
    });
    EXPECT_EQ(host.plan->texts["RiskFactors"], before);
}

TEST_F(EditorTest, APasteGoesInWholeOrNotAtAllAndSaysSo) {
    StoreFactors(3, [](int i, clsRiskFactor& f) { f.CorrelatedTo = i == 2 ? 1 : 0; });
    const struct {
        int row, column;
        const char* pasted;
        const char* told;
    } cases[] = {
        {3, kDescriptionColumn, "Größe Über Ωμέγα 雨", ""},
        {3, kDescriptionColumn, "a|b", "cannot hold the character"},
        {3, kDescriptionColumn, "Rain\r\nFrost", "more than one cell or line"},
        {3, kDescriptionColumn, "F1\t100.00%", "more than one cell or line"},
        {3, kDescriptionColumn, "a\x01", "control characters"},
        {3, kDurMinColumn, "12.5%", ""},
        {3, kDurMinColumn, "12,5%", "is not a percentage"},
        {3, kCorrelatedToColumn, "1", ""},
        {3, kCorrelatedToColumn, "1.0", "not the number of a risk factor"},
        {2, kLikelihoodColumn, "5", "change it there"},
        {1, kCorrelatedToColumn, "3", "Other risk factors are correlated"},
        {4, kDurMinColumn, "5", "begins with its description"},
    };
    Edit([&](User&) {
        for (const auto& c : cases) {
            SCOPED_TRACE(c.pasted);
            grid->MoveTo(c.row, c.column);
            const std::string before = Cell(c.row, c.column);
            desktop.messages.clear();
            EXPECT_TRUE(grid->Paste(c.pasted));
            EXPECT_EQ(Cell(c.row, c.column), *c.told ? before : c.pasted);
            EXPECT_EQ(desktop.messages.size(), *c.told ? 1u : 0u);
            EXPECT_NE(desktop.MessageText().find(c.told), std::string::npos);
            if (grid->IsEditing()) grid->CancelEdit();
        }
    });
}

TEST_F(EditorTest, CopiesTheSelectedRowsAsText) {
    StoreFactors(2);
    Edit([&](User& user) {
        user.Press(Key::Down);
        EXPECT_TRUE(user.TheForm().KeyDown({.ctrl = true, .letter = U'C'}));
        EXPECT_FALSE(user.TheForm().KeyDown({.letter = U'C'})) << "typed, not copied";
        desktop.clipboardFails = true;
        user.PressLetter('C', true, false);
        EXPECT_EQ(desktop.MessageText(),
                  "The rows could not be copied.\r\n\r\nThe clipboard cannot be used.");
    });
    EXPECT_EQ(desktop.ClipboardText(),
              "F2\t100.00%\t100.00%\t100.00%\t100.00%\t100.00%\t100.00%\t100.00%\t0\t\r\n");
}

}  // namespace
}  // namespace kestrel::test
