#include <windows.h>
#include <gtest/gtest.h>

#include <future>
#include <thread>

#include "TestPaths.h"
#include "base/Errors.h"
#include "platform/Files.h"
#include "platform/win32/Handles.h"
#include "platform/win32/Paths.h"
#include "platform/win32/SystemMessage.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32Desktop.h"
#include "support/TemporaryFolder.h"

namespace kestrel::win32 {
namespace {

TEST(WindowsFiles, AFileThatMayNotBeWrittenKeepsItsTextAndNothingStaysBeside) {
    const test::TemporaryFolder folder;
    const std::string path = folder / "file";
    const std::wstring wide = SystemPath(path);
    ReplaceWholeFile(path, "old");
    const auto expectRefused = [&](const char* why, DWORD reason) {
        SCOPED_TRACE(why);
        try {
            ReplaceWholeFile(path, "new");
            ADD_FAILURE() << "no error";
        } catch (const DataError& error) {
            EXPECT_EQ(error.what(),
                      "The file '" + path + "' cannot be written: " + SystemMessage(reason) + ".");
        }
        EXPECT_EQ(folder.EntryCount(), 1u);
    };
    for (const DWORD shared : {FILE_SHARE_READ, FILE_SHARE_READ | FILE_SHARE_WRITE}) {
        const FileHandle reader(
            CreateFileW(wide.c_str(), GENERIC_READ, shared, nullptr, OPEN_EXISTING, 0, nullptr));
        ASSERT_TRUE(reader);
        expectRefused("another program reads it", ERROR_SHARING_VIOLATION);
    }
    SetFileAttributesW(wide.c_str(), FILE_ATTRIBUTE_READONLY);
    expectRefused("write-protected", ERROR_ACCESS_DENIED);
    SetFileAttributesW(wide.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(ReadWholeFile(path), "old");
    EXPECT_NO_THROW(ReplaceWholeFile("NUL", "x")) << "a device is written straight";
}

TEST(WindowsFiles, PathsBecomeAbsoluteAndLongOnesGetThePrefix) {
    const std::string name(250, 'n');
    const std::wstring wideName = Wide(name);
    const struct {
        std::string path;
        std::wstring system;
    } rows[] = {
        {"C:/a/./b\\..\\c \xC3\xA4.xml", L"C:\\a\\c \xE4.xml"},
        {"\\\\server/share/x", L"\\\\server\\share\\x"},
        {"C:/" + name, L"\\\\?\\C:\\" + wideName},
        {"//server/share/" + name, L"\\\\?\\UNC\\server\\share\\" + wideName},
        {"\\\\?\\C:\\" + name, L"\\\\?\\C:\\" + wideName},
        {"", L""},
        {std::string("C:\\a\0b", 6), L""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path);
        EXPECT_EQ(SystemPath(row.path), row.system);
    }
}

TEST(SystemMessages, AreOneSentenceWithoutItsEnd) {
    for (const DWORD error :
         {ERROR_FILE_NOT_FOUND, ERROR_BAD_EXE_FORMAT, ERROR_SHARING_VIOLATION}) {
        const std::string message = SystemMessage(error);
        EXPECT_GT(message.size(), 8u);
        EXPECT_EQ(message.find_first_of("\r\n"), message.npos) << message;
        EXPECT_EQ(message.find_last_of(" ."), message.find_last_of(" ")) << message;
        EXPECT_NE(message.back(), ' ') << message;
    }
    EXPECT_EQ(SystemMessage(DWORD{0x20001234}), "error 0x20001234");
}

std::string TextOnClipboard() {
    if (!OpenClipboard(nullptr)) return "not open";
    const HANDLE data = GetClipboardData(CF_UNICODETEXT);
    const auto* text = static_cast<const wchar_t*>(data ? GlobalLock(data) : nullptr);
    const std::string utf8 = text ? Utf8(text) : "nothing";
    CloseClipboard();
    return utf8;
}

TEST(WindowsClipboard, HoldsTheTextWithAndWithoutAnActiveWindow) {
    const OwnedWindow window(CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 9, 9, nullptr,
                                             nullptr, nullptr, nullptr));
    Win32Desktop desktop;
    for (const HWND active : {HWND{}, window.Get()}) {
        SetActiveWindow(active);
        for (const std::string text : {"ID\tGröße \xF0\x9F\x8C\x8A\t\r\n1\t\r\n", ""}) {
            desktop.SetClipboardText(text);
            EXPECT_EQ(TextOnClipboard(), text);
        }
    }
}

TEST(WindowsClipboard, TellsThatAnotherProgramHoldsIt) {
    std::promise<void> opened;
    std::promise<void> done;
    std::thread other([&] {
        const OwnedWindow window(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE,
                                                 nullptr, nullptr, nullptr));
        EXPECT_TRUE(OpenClipboard(window.Get()));
        opened.set_value();
        done.get_future().wait();
        CloseClipboard();
    });
    opened.get_future().wait();
    Win32Desktop desktop;
    EXPECT_THROW(desktop.SetClipboardText("x"), DataError);
    done.set_value();
    other.join();
    EXPECT_NO_THROW(desktop.SetClipboardText("y"));
    EXPECT_EQ(TextOnClipboard(), "y");
}

TEST(WindowsHelp, TheSystemsViewerIsAskedForTheTopicWithoutOwner) {
    // One that notes what it is asked for takes the place of the system's, in this build's Wine.
    // Beside the program, where it also is, nobody is to look.
    wchar_t folder[MAX_PATH] = L"";
    GetSystemDirectoryW(folder, MAX_PATH);
    ASSERT_TRUE(CopyFileW(Wide(KESTREL_BINARY_DIR "/hhctrl.ocx").c_str(),
                          (folder + std::wstring(L"\\hhctrl.ocx")).c_str(), FALSE));
    Win32Desktop desktop;
    const auto lastCall = [&folder] {
        const HMODULE viewer = GetModuleHandleW(L"hhctrl.ocx");
        wchar_t path[MAX_PATH] = L"";
        GetModuleFileNameW(viewer, path, MAX_PATH);
        EXPECT_TRUE(std::wstring(path).starts_with(folder)) << Utf8(path);
        const auto last = reinterpret_cast<const wchar_t* (*)()>(
            reinterpret_cast<void*>(GetProcAddress(viewer, "LastHelpCall")));
        return last ? Utf8(last()) : "the system's own viewer was asked";
    };
    desktop.ShowHelpTopic("C:\\Größe\\Help.chm::/a.html");
    EXPECT_EQ(lastCall(), "A free 0 C:\\Größe\\Help.chm::/a.html");
    desktop.ShowHelpTopic("C:\\\xD0\x96\\Help.chm::/a.html");
    EXPECT_EQ(lastCall(), "W free 0 C:\\\xD0\x96\\Help.chm::/a.html");
    EXPECT_THROW(desktop.ShowHelpTopic("C:\\Help.chm::/absent.html"), DataError);
}

}  // namespace
}  // namespace kestrel::win32
