#include <windows.h>
#include <commctrl.h>
#include <gmock/gmock.h>

#include "platform/win32/WideText.h"
#include "ui/command_select/frmCommandSelect.h"
#include "ui/controls/CheckBox.h"
#include "ui/controls/ListView.h"
#include "ui/controls/OptionButton.h"
#include "ui/controls/TextBox.h"
#include "ui/driving_risks/frmTornado.h"
#include "ui/progress/frmMessageBox.h"
#include "windows/forms/AllForms.h"

/// The add-in's commands, worked by keyboard and mouse; the outcome stands in host and plan.
namespace kestrel::test {
namespace {

using Script = std::function<void(WindowUser&, HWND)>;

class WorkingFormsTest : public testing::Test, protected Stage {
 protected:
    void Work(const std::function<void()>& command, const wchar_t* caption, const Script& script) {
        WhileWorking(command, [&](WindowUser& user) {
            const HWND window = user.WaitForWindow(caption);
            script(user, window);
            user.WaitUntilGone(window);
        });
    }
    std::string FocusedName() const { return runner.TheForm().Focus()->Name(); }
    void WaitForFocus(WindowUser& user, const std::string& name) {
        user.WaitUntil(name + " has the keyboard", [&] {
            return FocusedName() == name && GetFocus() == runner.WindowOf(name);
        });
    }
};

TEST_F(WorkingFormsTest, OptionsAreChosenByKeyboardAlone) {
    Setting("OptionSetting") = "3";
    Work([&] { addin.LaunchOptions(); }, L"Options",
         [&](WindowUser& user, HWND) {
             WaitForFocus(user, "OptionButton3");
             user.Press(VK_DOWN);  // round to the first, which opens the file's text box
             WaitForFocus(user, "OptionButton1");
             user.Press(VK_TAB);
             WaitForFocus(user, "txtFileName");
             user.Type("c:\\my factors.xml");
             user.Press(VK_MENU, 'C');
             WaitForFocus(user, "OptionAdvanced");
             user.Press(VK_TAB);
             WaitForFocus(user, "chkIterations");
             user.Press(VK_SPACE);
             user.WaitUntil("the box is ticked",
                            [&] { return runner.Get<ui::CheckBox>("chkIterations").Checked(); });
             user.Press(VK_RETURN);
         });
    EXPECT_EQ(Setting("FileLocation"), "c:\\my factors.xml");
    EXPECT_EQ(Setting("OptionSetting"), "1");
    EXPECT_EQ(Setting("CalculationOption"), "2");
    EXPECT_EQ(Setting("ShowIterations"), "TRUE");
}

TEST_F(WorkingFormsTest, OptionsAreChosenByMouseAndEscapeStoresNothing) {
    Setting("OptionSetting") = "2";
    Work([&] { addin.LaunchOptions(); }, L"Options",
         [&](WindowUser& user, HWND) {
             HWND option = nullptr, browse = nullptr;
             user.OnUi([&] {
                 option = runner.WindowOf("OptionButton1");
                 browse = runner.WindowOf("cmdBrowse");
                 EXPECT_FALSE(IsWindowEnabled(browse));
                 EXPECT_EQ(SendMessageW(option, BM_GETCHECK, 0, 0), BST_UNCHECKED);
             });
             desktop.chosenFiles = {"c:\\chosen.xml"};
             user.Click(option);
             user.WaitUntil("the browse button can be pressed",
                            [&] { return IsWindowEnabled(browse); });
             user.OnUi([&] { EXPECT_EQ(SendMessageW(option, BM_GETCHECK, 0, 0), BST_CHECKED); });
             user.Click(browse);
             user.WaitUntil("the chosen file is shown", [&] {
                 wchar_t text[40]{};
                 GetWindowTextW(runner.WindowOf("txtFileName"), text, 40);
                 return std::wstring(text) == L"c:\\chosen.xml";
             });
             user.Press(VK_ESCAPE);
         });
    EXPECT_EQ(Setting("OptionSetting"), "2");
    EXPECT_EQ(Setting("FileLocation"), "");
}

TEST_F(WorkingFormsTest, TextIsTypedCorrectedAndPastedAsInEveryTextBox) {
    Setting("OptionSetting") = "1";
    Work([&] { addin.LaunchOptions(); }, L"Options",
         [&](WindowUser& user, HWND) {
             user.Press(VK_TAB);
             WaitForFocus(user, "txtFileName");
             user.Type("abx");
             user.Press(VK_BACK);
             user.Press(VK_HOME);
             user.Press(VK_DELETE);
             user.Type("Z");
             user.Press(VK_SHIFT, VK_END);
             user.Press(VK_CONTROL, 'X');
             user.Press(VK_CONTROL, 'V');
             user.Press(VK_CONTROL, 'V');
             user.WaitUntil("the model has the text",
                            [&] { return runner.Get<ui::TextBox>("txtFileName").Text() == "Zbb"; });
             user.Press(VK_RETURN);
         });
    EXPECT_EQ(Setting("FileLocation"), "Zbb");
}

TEST_F(WorkingFormsTest, TheAssignmentDialogWalksTheTasks) {
    Setting("AssignView") = "1";
    Work([&] { addin.LaunchAssign(); }, L"Assign Risk Factors",
         [&](WindowUser& user, HWND) {
             WaitForFocus(user, "TabulonRF");
             user.Press(VK_SPACE);
             user.Press(VK_MENU, 'N');
             user.WaitUntil("the second task is shown", [&] { return host.plan->currentRow == 2; });
             user.OnUi([&] {
                 wchar_t text[40]{};
                 GetWindowTextW(runner.WindowOf("lblSelectedTask"), text, 40);
                 EXPECT_EQ(std::wstring(text), L"11 - T11");
             });
             WaitForFocus(user, "TabulonRF");
             user.Press(VK_MENU, 'N');
             user.WaitUntil("the third task is shown", [&] { return host.plan->currentRow == 3; });
             WaitForFocus(user, "TabulonRF");
             user.Press(VK_DOWN);
             user.Press(VK_SPACE);
             user.Press(VK_MENU, 'O');
         });
    EXPECT_EQ(Field(1), "(1)");
    EXPECT_EQ(Field(2), "");
    EXPECT_EQ(Field(3), "(2)");
}

TEST_F(WorkingFormsTest, AHeldEscapeEndsTheEditAndNoMore) {
    Work([&] { addin.LaunchEdit(); }, L"Edit Risk Factors",
         [&](WindowUser& user, HWND) {
             user.Type("x");
             user.Hold(VK_ESCAPE, 3);
             user.Type("y");
             user.WaitUntil("the grid is typed in",
                            [&] { return runner.Get<ui::Grid>("Tabulon1").Text(1, 0) == "y"; });
             user.Press(VK_ESCAPE);
             user.Press(VK_ESCAPE);
         });
}

TEST_F(WorkingFormsTest, FactorsGoFromListToListByKeysAndDoubleClick) {
    Setting("AssignView") = "2";
    Work([&] { addin.LaunchAssign(); }, L"Assign Risk Factors",
         [&](WindowUser& user, HWND) {
             WaitForFocus(user, "lvwRisks");
             user.Press(VK_DOWN);
             user.Press(VK_CONTROL, VK_RIGHT);
             user.WaitUntil("F2 has moved", [&] {
                 return SendMessageW(runner.WindowOf("lvwChoices"), LVM_GETITEMCOUNT, 0, 0) == 1;
             });
             HWND risks = nullptr;
             RECT line{LVIR_LABEL, 0, 0, 0};
             user.OnUi([&] {
                 risks = runner.WindowOf("lvwRisks");
                 SendMessageW(risks, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&line));
             });
             user.DoubleClick(risks, {line.left + 10, (line.top + line.bottom) / 2});
             user.WaitUntil("F1 has moved", [&] {
                 return SendMessageW(runner.WindowOf("lvwChoices"), LVM_GETITEMCOUNT, 0, 0) == 2;
             });
             user.Press(VK_TAB);
             WaitForFocus(user, "lvwChoices");
             user.Press('F');
             user.Press(VK_HOME);
             user.Press(VK_SPACE);
             user.WaitUntil("F1 works in parallel", [&] {
                 return runner.Get<ui::ListView>("lvwChoices").At(1).text == "F1 (in parallel)";
             });
             user.Press(VK_MENU, 'V');
             user.WaitUntil("the other view is open",
                            [&] { return runner.TheForm().Find("TabulonRF"); });
             user.WaitForWindow(L"Assign Risk Factors");
             user.Press(VK_MENU, 'O');
         });
    EXPECT_EQ(Field(1), "(1(P));(2)");
}

TEST_F(WorkingFormsTest, TheCommandPickerTakesArrowsAndDropsDown) {
    std::string chosen;
    const auto pick = [&](const Script& script) {
        ui::frmCommandSelect picker;
        Work([&] { runner.ShowModal(picker); }, L"Risk Factors", script);
        return picker.Confirmed() ? picker.Command() : "-";
    };
    EXPECT_EQ(pick([&](WindowUser& user, HWND) {
                  user.Press(VK_DOWN);
                  user.Press(VK_RETURN);
              }),
              "assign");
    EXPECT_EQ(pick([&](WindowUser& user, HWND) {
                  user.Press(VK_F4);
                  user.WaitUntil("the list is down", [&] {
                      return SendMessageW(runner.WindowOf("cboCommand"), CB_GETDROPPEDSTATE, 0, 0);
                  });
                  user.Press(VK_END);
                  user.Press(VK_RETURN);  // the list's, not the form's
                  user.WaitUntil("the list is up", [&] {
                      return !SendMessageW(runner.WindowOf("cboCommand"), CB_GETDROPPEDSTATE, 0, 0);
                  });
                  user.Press(VK_RETURN);
              }),
              "options");
    EXPECT_EQ(pick([](WindowUser& user, HWND) { user.Press(VK_ESCAPE); }), "-");
}

TEST_F(WorkingFormsTest, AQuestionIsAnsweredByEveryKeyThatItsButtonsName) {
    const struct {
        const char* what;
        WORD held;
        WORD key;
        int answer;
    } rows[] = {
        {"Enter presses the default button", 0, VK_RETURN, 1},
        {"Alt and the access key", VK_MENU, 'N', 2},
        {"the access key alone, where nothing is typed", 0, 'A', 3},
        {"Esc is the last button", 0, VK_ESCAPE, 4},
        {"closing the window, too", VK_MENU, VK_F4, 4},
        {"Space presses the button that has the keyboard", 0, VK_SPACE, 1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        ui::frmMessageBox box;
        Work([&] { runner.ShowModal(box); }, L"Quillon Risk Analysis",
             [&](WindowUser& user, HWND) { user.Press(row.held, row.key); });
        EXPECT_EQ(box.Result(), row.answer);
    }
}

TEST_F(WorkingFormsTest, TheNumberOfTopRisksSpinsByMouseAndKeys) {
    Setting("ShowTopRisks", "Options") = "2";
    Work([&] { addin.LaunchShow(); }, L"Driving Risks",
         [&](WindowUser& user, HWND) {
             HWND spin = nullptr;
             user.OnUi([&] { spin = runner.WindowOf("SpinButton1"); });
             const auto shows = [&](const wchar_t* number) {
                 user.WaitUntil("the number is " + win32::Utf8(number), [&] {
                     wchar_t text[8]{};
                     GetWindowTextW(runner.WindowOf("txtTopRisks"), text, 8);
                     return std::wstring(text) == number;
                 });
             };
             user.Click(spin, {5, 4});
             shows(L"3");
             WaitForFocus(user, "SpinButton1");
             user.Press(VK_DOWN);
             user.Press(VK_DOWN);
             shows(L"1");
             user.Press(VK_MENU, 'O');
             user.WaitUntil("the grid of the cost is shown", [&] {
                 return IsWindowVisible(runner.WindowOf("gridCost")) &&
                        !IsWindowVisible(runner.WindowOf("gridDur"));
             });
             user.Press(VK_F1);
             user.WaitUntil("help is shown", [&] { return !desktop.helpTopics.empty(); });
             user.Press(VK_ESCAPE);
         });
    EXPECT_THAT(desktop.helpTopics.at(0), testing::HasSubstr("Analysing_the_effect"));
}

}  // namespace
}  // namespace kestrel::test
