#include <windows.h>
#include <dlgs.h>
#include <gtest/gtest.h>

#include "platform/win32/Win32Desktop.h"
#include "support/TemporaryFolder.h"
#include "windows/support/DialogScript.h"

namespace kestrel::win32 {
namespace {

using test::DialogScript;

/// An active window that owns the dialogs.
class Dialogs : public testing::Test {
 protected:
    Dialogs()
        : window_(CreateWindowExW(0, L"STATIC", L"owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                  300, 200, nullptr, nullptr, nullptr, nullptr)) {
        SetActiveWindow(window_.Get());
    }

    OwnedWindow window_;
    Win32Desktop desktop_;
};

std::string WithBackslashes(std::string path) {
    for (char& c : path)
        if (c == '/') c = '\\';
    return path;
}

TEST_F(Dialogs, MessagesHaveTheirButtonsTitleTextAndOwner) {
    const struct {
        MessageButtons buttons;
        DialogScript::Step step;
        MessageAnswer answer;
        std::vector<std::string> captions;
    } rows[] = {
        {MessageButtons::Ok, DialogScript::Press(IDOK), MessageAnswer::Ok, {"OK"}},
        {MessageButtons::Ok, DialogScript::Close(), MessageAnswer::Ok, {"OK"}},
        {MessageButtons::OkCancel, DialogScript::Press(IDOK), MessageAnswer::Ok, {"OK", "Cancel"}},
        {MessageButtons::OkCancel, DialogScript::Close(), MessageAnswer::Cancel, {"OK", "Cancel"}},
        {MessageButtons::YesNo, DialogScript::Press(IDYES), MessageAnswer::Yes, {"Yes", "No"}},
        {MessageButtons::YesNo, DialogScript::Press(IDNO), MessageAnswer::No, {"Yes", "No"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.captions.back());
        for (const std::string title : {"", "Größe \xD0\x96"}) {
            const DialogScript script({row.step});
            EXPECT_EQ(desktop_.ShowMessage("50 % of &all 'µ'", row.buttons, title), row.answer);
            ASSERT_EQ(script.Seen().size(), 1u);
            EXPECT_EQ(script.Seen()[0].title, title.empty() ? "Risk Factors" : title);
            EXPECT_EQ(script.Seen()[0].text, "50 % of &all 'µ'");
            EXPECT_EQ(script.Seen()[0].buttons, row.captions);
            EXPECT_EQ(script.Seen()[0].owner, window_.Get());
        }
    }
}

TEST_F(Dialogs, OpensOnlyAFileThatIsThere) {
    const test::TemporaryFolder folder;
    desktop_.WriteFile(folder / "there \xD0\x96.xml", "x");
    const FileDialog dialog{"Pick \xD0\x96",
                            folder / "",
                            "",
                            {{"Risk Factors (*.xml)", "*.xml"}, {"All Files (*.*)", "*.*"}}};
    std::vector<std::string> filters;
    const auto choose = [&](const std::string& name) {
        return [&filters, name](HWND window) {
            const HWND list = GetDlgItem(window, cmb1);
            filters.clear();
            for (WPARAM i = 0; i < static_cast<WPARAM>(SendMessageW(list, CB_GETCOUNT, 0, 0));
                 ++i) {
                char text[200] = "";
                SendMessageA(list, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text));
                filters.push_back(text);
            }
            DialogScript::ChooseFile(name)(window);
        };
    };
    {
        const DialogScript script({choose("there \xD0\x96.xml")});
        EXPECT_EQ(desktop_.OpenFile(dialog), WithBackslashes(folder / "there \xD0\x96.xml"));
        ASSERT_EQ(script.Seen().size(), 1u);
        EXPECT_EQ(script.Seen()[0].title, dialog.title);
        EXPECT_EQ(script.Seen()[0].owner, window_.Get());
        EXPECT_EQ(filters, (std::vector<std::string>{"Risk Factors (*.xml)", "All Files (*.*)"}));
    }
    {
        // The system complains, its dialog stays open and is cancelled.
        HWND first = nullptr;
        const DialogScript script({[&](HWND window) {
                                       first = window;
                                       DialogScript::ChooseFile("absent.xml")(window);
                                   },
                                   [&](HWND complaint) {
                                       DialogScript::Press(IDOK)(complaint);
                                       DialogScript::Press(IDCANCEL)(first);
                                   }});
        EXPECT_EQ(desktop_.OpenFile(dialog), "");
        EXPECT_EQ(script.Seen().size(), 2u);
    }
}

TEST_F(Dialogs, SavingAddsTheExtensionAndAsksBeforeAFileIsReplaced) {
    const test::TemporaryFolder folder;
    desktop_.WriteFile(folder / "there.xml", "x");
    const FileDialog dialog{"Save", folder / "", "xml", {{"XML", "*.xml"}}, "proposed.xml"};
    {
        std::string proposed;
        const DialogScript script({[&](HWND window) {
            HWND field = GetDlgItem(window, cmb13);
            proposed = test::TextOf(field ? field : GetDlgItem(window, edt1));
            DialogScript::ChooseFile("new")(window);
        }});
        EXPECT_EQ(desktop_.SaveFile(dialog), WithBackslashes(folder / "new.xml"));
        EXPECT_EQ(proposed, dialog.initialFile);
        EXPECT_EQ(script.Seen().size(), 1u);
    }
    {
        const DialogScript script(
            {DialogScript::ChooseFile("there.xml"), DialogScript::Press(IDYES)});
        EXPECT_EQ(desktop_.SaveFile(dialog), WithBackslashes(folder / "there.xml"));
        EXPECT_EQ(script.Seen().size(), 2u);
    }
}

TEST_F(Dialogs, AProposedNameThatNoFileCanHaveIsLeftOut) {
    const DialogScript script({DialogScript::Press(IDCANCEL)});
    EXPECT_EQ(desktop_.SaveFile({"Save", "", "", {}, "Plan: <one> | two?"}), "");
    EXPECT_EQ(script.Seen().size(), 1u);
}

}  // namespace
}  // namespace kestrel::win32
