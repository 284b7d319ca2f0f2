#include <gtest/gtest.h>

#include <stdexcept>

#include "ui/controls/ComboBox.h"
#include "ui/controls/OptionButton.h"
#include "ui/controls/ProgressBar.h"
#include "ui/controls/SpinButton.h"

namespace kestrel::ui {
namespace {

KeyEvent Pressed(Key key) {
    KeyEvent event;
    event.key = key;
    return event;
}

TEST(ComboBoxTest, KeysChooseWithinTheList) {
    ComboBox combo("combo");
    for (const char* text : {"edit", "assign", "show"}) combo.AddItem(text);
    EXPECT_EQ(combo.Text(), "");
    int clicks = 0;
    combo.Click = [&] { ++clicks; };
    combo.KeyDown(Pressed(Key::Up));
    EXPECT_EQ(combo.Text(), "edit");
    combo.KeyDown(Pressed(Key::End));
    combo.KeyDown(Pressed(Key::Down));
    EXPECT_EQ(combo.Text(), "show");
    EXPECT_EQ(clicks, 2) << "a key that changes nothing is no choice";
    EXPECT_THROW(combo.SetListIndex(3), std::out_of_range);
}

TEST(OptionButtonTest, SelectingRunsClickOnceAndClearsTheOthers) {
    OptionGroup group;
    OptionButton first(group, "first", ""), second(group, "second", "");
    int clicks = 0;
    second.Click = [&] { ++clicks; };
    EXPECT_EQ(group.Selected(), nullptr);
    first.Select();
    second.Select();
    second.Select();
    EXPECT_EQ(clicks, 1);
    EXPECT_FALSE(first.Selected());
    first.SetEnabled(false);
    first.Select();
    EXPECT_EQ(group.Selected(), &second);
}

TEST(SpinButtonTest, KeysAndHalvesSpin) {
    SpinButton spin("spin");
    spin.SetBounds({0, 0, 10, 20});
    int value = 0;
    spin.SpinUp = [&] { ++value; };
    spin.SpinDown = [&] { value -= 10; };
    spin.KeyDown(Pressed(Key::Up));
    MouseEvent upper, lower;
    upper.y = 9;
    lower.y = 10;
    spin.MouseDown(upper);
    spin.MouseDown(lower);
    EXPECT_EQ(value, -8);
}

TEST(ProgressBarTest, PositionStaysInRange) {
    ProgressBar bar("bar");
    bar.SetRange(0, 50);
    bar.SetValue(25);
    EXPECT_EQ(bar.Value(), 25);
    bar.SetValue(51);
    EXPECT_EQ(bar.Value(), 50);
    bar.SetRange(0, -1);
    EXPECT_EQ(bar.Max(), 0);
    EXPECT_EQ(bar.Value(), 0);
}

}  // namespace
}  // namespace kestrel::ui
