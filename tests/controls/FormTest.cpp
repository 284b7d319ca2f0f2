#include <gtest/gtest.h>

#include "support/ScriptedRunner.h"
#include "ui/controls/CheckBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/OptionButton.h"
#include "ui/controls/TextBox.h"

namespace kestrel::ui {
namespace {

using test::User;

/// A form with one control of each kind that the keyboard works.
class SampleForm : public Form {
 public:
    SampleForm() : Form("Sample", 200, 100) {
        Add(label, {0, 0, 50, 20});
        Add(text, {50, 0, 150, 20}, kAnchorLeft | kAnchorTop | kAnchorRight);
        Add(first, {0, 20, 50, 20});
        Add(second, {50, 20, 50, 20});
        Add(check, {0, 40, 50, 20});
        Add(grid, {0, 60, 200, 20}, kAnchorAll);
        Add(ok, {100, 80, 50, 20}, kAnchorRight | kAnchorBottom);
        Add(cancel, {150, 80, 50, 20}, kAnchorRight | kAnchorBottom);
        SetDefaultButton(ok);
        SetCancelButton(cancel);
        ok.Click = [this] { ++oks; };
        cancel.Click = [this] { Close(); };
        grid.Clear(1, 1, false);
        grid.OnKeyDown = [this](const KeyEvent& e) {
            ++gridKeys;
            return e.key == Key::Tab || e.key == Key::Enter;
        };
    }

    Label label{"label", "&Name:"};
    TextBox text{"text"};
    OptionGroup group;
    OptionButton first{group, "first", "&First"};
    OptionButton second{group, "second", "&Second"};
    CheckBox check{"check", "&Check && go"};
    Grid grid{"grid"};
    Button ok{"ok", "OK"};
    Button cancel{"cancel", "Cancel"};
    int oks = 0;
    int gridKeys = 0;
    int unloads = 0;

 protected:
    void Form_Unload() override { ++unloads; }
};

TEST(FormTest, TabWalksControlsThatTakeTheKeyboardAndWrapsAround) {
    SampleForm form;
    form.second.SetEnabled(false);
    form.Open();
    User user(form);
    for (const char* name : {"text", "first", "check", "grid"}) {
        ASSERT_NE(form.Focus(), nullptr);
        EXPECT_EQ(form.Focus()->Name(), name);
        user.Press(Key::Tab);
    }
    EXPECT_EQ(form.Focus(), &form.grid) << "the grid keeps Tab";
    user.PressCtrl(Key::Tab);
    EXPECT_EQ(form.Focus(), &form.ok);
    user.Press(Key::Tab);
    user.Press(Key::Tab);
    EXPECT_EQ(form.Focus(), &form.text);
    user.PressShift(Key::Tab);
    EXPECT_EQ(form.Focus(), &form.cancel);
}

TEST(FormTest, EnterAndEscapePressTheirButtonsUnlessTheGridKeepsThem) {
    SampleForm form;
    form.Open();
    User user(form);
    user.Press(Key::Enter);
    EXPECT_EQ(form.oks, 1);
    for (Control* focused : std::initializer_list<Control*>{&form.text, &form.ok, &form.grid}) {
        focused->SetFocus();
        for (const Key key : {Key::Enter, Key::Escape})
            form.KeyDown({.key = key, .repeated = true});
    }
    EXPECT_EQ(form.oks, 1) << "held down, they answer once";
    EXPECT_EQ(form.gridKeys, 1) << "Enter works on in a grid, Esc does not";
    ASSERT_TRUE(form.IsOpen());
    user.Press(Key::Enter);
    EXPECT_EQ(form.oks, 1);
    form.ok.SetEnabled(false);
    form.check.SetFocus();
    user.Press(Key::Enter);
    EXPECT_EQ(form.oks, 1) << "a disabled default button is not pressed";
    user.Press(Key::Escape);
    EXPECT_FALSE(form.IsOpen());
    form.Close();
    EXPECT_EQ(form.unloads, 1);
}

TEST(FormTest, AccessKeysLeadToTheirControls) {
    SampleForm form;
    form.Open();
    User user(form);
    EXPECT_EQ(form.check.Caption(), "Check & go");
    EXPECT_EQ(form.check.MarkedCaption(), "&Check && go");
    user.PressLetter('C', false, true);
    EXPECT_TRUE(form.check.Checked());
    user.PressLetter('S', false, true);
    EXPECT_EQ(form.group.Selected(), &form.second);
    user.Press(Key::Up);
    EXPECT_EQ(form.group.Selected(), &form.first);
    EXPECT_EQ(form.Focus(), &form.first);
    user.PressLetter('N', false, true);
    EXPECT_EQ(form.Focus(), &form.text);
}

TEST(FormTest, LayoutGrowsControlsByTheirAnchorsAndNeverShrinksThem) {
    SampleForm form;
    form.LayOut(300, 250);
    EXPECT_EQ(form.label.Bounds(), (Rect{0, 0, 50, 20}));
    EXPECT_EQ(form.text.Bounds(), (Rect{50, 0, 250, 20}));
    EXPECT_EQ(form.grid.Bounds(), (Rect{0, 60, 300, 170}));
    EXPECT_EQ(form.ok.Bounds(), (Rect{200, 230, 50, 20}));
    form.LayOut(10, 10);
    EXPECT_EQ(form.grid.Bounds(), (Rect{0, 60, 200, 20}));
}

TEST(FormTest, TextIsEditedByWholeCharacters) {
    SampleForm form;
    form.Open();
    User user(form);
    form.KeyPress(0x20AC);
    form.KeyPress(U'x');
    user.Press(Key::Left);
    user.Press(Key::Left);
    form.KeyPress(0x1F600);
    EXPECT_EQ(form.text.Text(), "\xF0\x9F\x98\x80\xE2\x82\xACx");
    user.Press(Key::Delete);
    EXPECT_EQ(form.text.Text(), "\xF0\x9F\x98\x80x");
    user.Press(Key::Back);
    EXPECT_EQ(form.text.Text(), "x");
    const auto before = form.text.Changes();
    form.text.SetReadOnly(true);
    user.Type("y");
    user.Press(Key::Delete);
    EXPECT_EQ(form.text.Text(), "x");
    EXPECT_EQ(form.text.Changes(), before);
}

}  // namespace
}  // namespace kestrel::ui
