#include <gtest/gtest.h>

#include <map>
#include <random>
#include <variant>

#include "support/ScriptedRunner.h"
#include "ui/editor/RiskGrid.h"
#include "windows/forms/AllForms.h"

/// The editor under a user who hits keys blindly: what the real window makes of real input is what
/// the form makes of the same events.
namespace kestrel::test {
namespace {

struct KeyStep {
    Key key = Key::Down;
    bool shift = false;
};
using Step = std::variant<char, KeyStep>;  ///< a character typed, or a key

std::vector<Step> Walk(unsigned seed) {
    std::mt19937 random(seed);
    const auto below = [&](std::size_t count) { return random() % count; };
    const std::string characters = "0123456789.%aB";
    const Key keys[] = {Key::Down, Key::Up,   Key::Enter, Key::Tab, Key::Right,
                        Key::Left, Key::Home, Key::End,   Key::F2,  Key::Back};
    std::vector<Step> steps;
    for (int i = 0; i < 250; ++i)
        if (below(2) == 0)
            steps.emplace_back(characters[below(characters.size())]);
        else
            steps.emplace_back(KeyStep{keys[below(std::size(keys))], below(4) == 0});
    return steps;
}

WORD VirtualKey(Key key) {
    static const std::map<Key, WORD> codes = {
        {Key::Down, VK_DOWN},   {Key::Up, VK_UP},     {Key::Enter, VK_RETURN}, {Key::Tab, VK_TAB},
        {Key::Right, VK_RIGHT}, {Key::Left, VK_LEFT}, {Key::Home, VK_HOME},    {Key::End, VK_END},
        {Key::F2, VK_F2},       {Key::Back, VK_BACK}};
    return codes.at(key);
}

/// Every cell, and which one is current.
std::string Shown(const Grid& grid) {
    std::string all = std::to_string(grid.CurrentRow()) + "," +
                      std::to_string(grid.CurrentColumn()) + (grid.IsEditing() ? "|" : "") + "\n";
    for (int row = 0; row < grid.RowCount(); ++row, all += "\n")
        for (int column = 0; column < kRiskColumns; ++column) all += grid.Text(row, column) + "\t";
    return all;
}

struct Outcome {
    std::string shown;   ///< before OK
    std::string stored;  ///< the plan's register after it
};

Outcome InWindow(const std::vector<Step>& steps) {
    Stage stage;
    Outcome outcome;
    WhileWorking([&] { stage.addin.LaunchEdit(); },
                 [&](WindowUser& user) {
                     const HWND window = user.WaitForWindow(L"Edit Risk Factors");
                     for (const Step& step : steps)
                         if (const auto* key = std::get_if<KeyStep>(&step))
                             user.Press(key->shift ? VK_SHIFT : 0, VirtualKey(key->key));
                         else
                             user.Type({&std::get<char>(step), 1});
                     user.WaitUntil("all input has been worked", [] { return !GetInputState(); });
                     user.OnUi([&] { outcome.shown = Shown(stage.runner.Get<Grid>("Tabulon1")); });
                     user.Press(VK_MENU, 'O');
                     user.WaitUntil("OK has been pressed", [] { return !GetInputState(); });
                     if (IsWindow(window)) user.CloseAll();
                 });
    outcome.stored = stage.host.plan->texts["RiskFactors"];
    return outcome;
}

Outcome InModel(const std::vector<Step>& steps) {
    Stage stage;
    Outcome outcome;
    ScriptedRunner runner;
    runner.script = [&](User& user) {
        for (const Step& step : steps)
            if (const auto* key = std::get_if<KeyStep>(&step))
                user.Press(key->key, key->shift);
            else
                user.Type({&std::get<char>(step), 1});
        outcome.shown = Shown(user.Get<Grid>("Tabulon1"));
        user.PressLetter('O', false, true);
    };
    clsKestrelDll addin([&] { return stage.host.application; }, stage.desktop, runner);
    addin.LaunchEdit();
    outcome.stored = stage.host.plan->texts["RiskFactors"];
    return outcome;
}

class EditorWalk : public testing::TestWithParam<unsigned> {};

TEST_P(EditorWalk, EndsInTheWindowAsItDoesInTheForm) {
    const std::vector<Step> steps = Walk(GetParam());
    const Outcome window = InWindow(steps), model = InModel(steps);
    EXPECT_EQ(window.shown, model.shown);
    EXPECT_EQ(window.stored, model.stored);
}

INSTANTIATE_TEST_SUITE_P(Seeds, EditorWalk, testing::Range(1u, 7u));

}  // namespace
}  // namespace kestrel::test
