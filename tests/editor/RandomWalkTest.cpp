#include <random>

#include "base/NumberText.h"
#include "editor/EditorTest.h"
#include "ui/editor/CellRules.h"
#include "ui/editor/RiskGrid.h"
#include "util/Colour.h"

namespace kestrel::test {
namespace {

/// A user who hits keys and cells blindly, seeded. After each step the grid must be what the
/// rules make of it.
class RandomWalk : public EditorTest, public testing::WithParamInterface<unsigned> {
 protected:
    RandomWalk() : random(GetParam()) {}

    int Below(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }

    void Step(User& user) {
        settled = false;
        const int kind = Below(20);
        if (kind < 9) {
            static const std::string characters = "0123456789.:%|(aB &\b";
            const auto pick = static_cast<std::size_t>(Below(static_cast<int>(characters.size())));
            user.Type(characters.substr(pick, 1));
        } else if (kind < 15) {
            const Key keys[] = {Key::Down, Key::Up,   Key::Enter, Key::Tab,      Key::Right,
                                Key::Left, Key::Home, Key::End,   Key::PageDown, Key::F2};
            const Key key = keys[Below(10)];
            user.Press(key, Below(3) == 0);
            settled = key == Key::Down || key == Key::Up || key == Key::Enter || key == Key::Tab;
        } else if (kind < 18) {
            MouseEvent how;
            how.shift = Below(5) == 0;
            how.ctrl = !how.shift && Below(4) == 0;
            user.ClickCell("Tabulon1", 1 + Below(grid->RowCount() - 1), Below(kRiskColumns), how);
        } else if (kind == 18) {
            if (grid->IsEditing()) user.Press(Key::Escape);
        } else {
            desktop.answers = {Below(3) == 0 ? MessageAnswer::Yes : MessageAnswer::No};
            if (Below(2) == 0) {
                grid->SetFocus();
                user.Press(Key::Delete);
            } else {
                user.Click("cmdDeleteRisk");
                grid->SetFocus();
            }
            desktop.answers.clear();
        }
    }

    void Check() const {
        const int entry = ui::LastRow(*grid);
        ASSERT_GE(entry, 1);
        ASSERT_TRUE(grid->IsDataCell(grid->CurrentRow(), grid->CurrentColumn()));
        if (settled || grid->CurrentRow() != entry) {
            ASSERT_FALSE(ui::RowHasContent(*grid, entry)) << "the entry row is blank";
        }
        for (int row = 1; row <= entry; ++row) {
            ASSERT_EQ(Cell(row, Grid::kRowHeader), std::to_string(row) + ".");
            if (row < entry) CheckFactor(row);
        }
    }

    void CheckFactor(int row) const {
        for (int column = kDurMinColumn; column <= kLikelihoodColumn; ++column) {
            if (!settled && row == grid->CurrentRow()) break;
            ASSERT_EQ(ui::NormalisedPercent(Cell(row, column)), Cell(row, column))
                << row << "," << column;
        }
        if (!settled) return;
        bool followed = false;
        for (int other = 1; other < ui::LastRow(*grid); ++other)
            followed |= ui::WholeNumber(Cell(other, kCorrelatedToColumn)) == row;
        const int target = ui::WholeNumber(Cell(row, kCorrelatedToColumn)).value_or(0);
        ASSERT_EQ(grid->Editable(row, kLikelihoodColumn), target <= 0) << row;
        ASSERT_EQ(grid->Editable(row, kCorrelatedToColumn), !followed) << row;
        ASSERT_EQ(grid->CellColour(row, kLikelihoodColumn),
                  target > 0 ? ui::kSystemGreyText : ui::kWhite);
    }

    std::mt19937 random;
    bool settled = false;  ///< the last step left a row or cell by a key
};

TEST_P(RandomWalk, KeepsTheGridSoundAndWhatOkStoresIsWhatItShowed) {
    const int factors = Below(7);
    StoreFactors(factors, [&](int i, clsRiskFactor& f) {
        f.dblProb = Below(101);
        if (Below(4) == 0 && i > 2) f.CorrelatedTo = 1 + Below(2);
    });
    host.AddTask("1", "Dig", factors > 2 ? "(3(P));(1,2)" : "");
    int stored = 0;
    for (int session = 0; session < 40; ++session) {
        std::vector<std::string> shown;
        bool confirmed = false;
        Edit([&](User& user) {
            for (int i = 0; i < 60; ++i) {
                Step(user);
                ASSERT_TRUE(user.TheForm().IsOpen());
                ASSERT_NO_FATAL_FAILURE(Check()) << "session " << session << " step " << i;
            }
            ClickOk(user);
            confirmed = !user.TheForm().IsOpen();
            for (int row = 1; row <= LastRiskRow(*grid); ++row)
                for (int column = 0; column < kRiskColumns; ++column)
                    shown.push_back(Cell(row, column));
        });
        if (HasFatalFailure()) return;
        if (!confirmed) continue;
        ++stored;
        ASSERT_EQ(shown.size(), addin.Globals().RiskFactors.size() * kRiskColumns);
        Edit([&](User&) {
            for (std::size_t i = 0; i < shown.size(); ++i) {
                const int row = 1 + static_cast<int>(i) / kRiskColumns;
                const int column = static_cast<int>(i) % kRiskColumns;
                std::string before = shown[i];
                if (column == kCorrelatedToColumn)
                    before = std::to_string(ui::WholeNumber(before).value());
                else if (column != kDescriptionColumn && std::erase(before, '%') > 0)
                    before = ui::FormatPercentCell(ParseNumber(before));
                ASSERT_EQ(Cell(row, column), before) << row << "," << column;
            }
        });
    }
    EXPECT_GT(stored, 0) << "no walk was ever confirmed";
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomWalk, testing::Range(1u, 9u));

}  // namespace
}  // namespace kestrel::test
