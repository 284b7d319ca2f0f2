#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "support/FakeDesktop.h"
#include "support/ScriptedRunner.h"
#include "ui/progress/frmMessageBox.h"
#include "ui/progress/frmProgress.h"
#include "ui/progress/frmTextProgress.h"

namespace kestrel::test {
namespace {

TEST(ProgressTest, EveryStepIsShownBeforeTheNextIsComputed) {
    std::string seen;
    ui::frmProgress* form = nullptr;
    ui::frmProgress progress([&] {
        seen += form->txtMessage.Text() + " " + std::to_string(form->ProgressBar1.Value()) + "/" +
                std::to_string(form->ProgressBar1.Max()) + "; ";
    });
    form = &progress;
    progress.Open();
    progress.SetProgressRange(50, "Factors");
    progress.SetPos(25);
    progress.SetMessage("Almost", 49);
    progress.SetProgressRange(10, "Again");
    EXPECT_EQ(seen, "Factors 0/50; Factors 25/50; Almost 49/50; Again 0/10; ");
    EXPECT_FALSE(progress.CancelRequested());
    progress.CloseByUser();
    EXPECT_TRUE(progress.CancelRequested());
}

class TextProgressTest : public testing::Test {
 protected:
    TextProgressTest() {
        form.Open();
        for (const char* step : {"one", "two", "three"}) form.AddToDo(step);
    }
    /// Texts of the steps, finished ones in brackets, then the step in progress.
    std::string State() const {
        std::string state;
        for (int i = 1; i <= form.lvwProgress.Count(); ++i) {
            const auto& item = form.lvwProgress.At(i);
            state += (item.colour == 0x808080 ? "[" + item.text + "]" : item.text) + " ";
        }
        return state + std::to_string(form.CurrentItem());
    }

    FakeDesktop desktop;
    int refreshes = 0;
    ui::frmTextProgress form{desktop, [this] { ++refreshes; }};
};

TEST_F(TextProgressTest, StepsAreFinishedInTurn) {
    form.Done(0, "");
    EXPECT_EQ(State(), "[one] two three 2");
    form.Done(0, "");
    form.Done(0, "");
    EXPECT_EQ(State(), "[one] [two] [three] 4");
    EXPECT_THROW(form.Done(0, ""), std::out_of_range);
    EXPECT_EQ(State(), "[one] [two] [three] 4");
}

TEST_F(TextProgressTest, ANamedStepBecomesTheOneInProgress) {
    form.Done(2, "ready");
    EXPECT_EQ(State(), "one [ready] three 2");
    form.Done(0, "");
    EXPECT_EQ(State(), "one [ready] three 3");
    form.UpdateToDo(1, "again");
    EXPECT_EQ(State(), "again [ready] three 1");
    form.UpdateToDo(0, "");
    EXPECT_EQ(State(), " [ready] three 1");
    EXPECT_EQ(refreshes, 2);
    EXPECT_THROW(form.UpdateToDo(4, "x"), std::out_of_range);
    EXPECT_EQ(form.CurrentItem(), 1);
}

TEST_F(TextProgressTest, OnlyEnglishWindowsAreMadeLower) {
    const struct {
        std::uint16_t language;
        int height, adjusted;
    } rows[] = {{1033, 1200, 700}, {2057, 1000, 500}, {1033, 999, 200}, {1031, 999, 999}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.height);
        desktop.language = row.language;
        EXPECT_EQ(form.AdjustedHeight(row.height), row.adjusted);
        EXPECT_EQ(form.UserLanguage(), row.language);
    }
    EXPECT_EQ(form.lvwProgress.HeaderWidth(), form.lvwProgress.Bounds().width - 20);
}

TEST(MessageBoxTest, EachWayOfAnsweringHasItsResult) {
    const struct {
        const char* name;
        std::function<void(User&)> answer;
        int result;
    } rows[] = {
        {"Yes", [](User& user) { user.Click("cmdYes"); }, 1},
        {"No", [](User& user) { user.Click("cmdNo"); }, 2},
        {"Yes to All", [](User& user) { user.Click("cmdYesAll"); }, 3},
        {"Cancel", [](User& user) { user.Click("cmdNotoAll"); }, 4},
        {"Enter", [](User& user) { user.Press(Key::Enter); }, 1},
        {"Alt+A", [](User& user) { user.PressLetter('A', false, true); }, 3},
        {"Esc", [](User& user) { user.Press(Key::Escape); }, 4},
        {"closed", [](User&) {}, 4},
    };
    ui::frmMessageBox box;
    ScriptedRunner runner;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        runner.script = row.answer;
        runner.ShowModal(box);
        EXPECT_EQ(box.Result(), row.result);
        EXPECT_FALSE(box.IsOpen());
    }
}

}  // namespace
}  // namespace kestrel::test
