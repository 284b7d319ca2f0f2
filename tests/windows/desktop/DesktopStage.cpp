#include "windows/desktop/DesktopStage.h"

#include <cstdlib>

#include "TestPaths.h"
#include "platform/win32/WideText.h"

namespace refhost::win32 {
namespace {

using kestrel::test::WindowUser;

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

/// Whether a child of the window shows the text as a part of its own.
bool Says(HWND window, const std::wstring& text) {
    struct Search {
        const std::wstring& text;
        bool found = false;
    } search{text};
    EnumChildWindows(
        window,
        [](HWND child, LPARAM into) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(into);
            wanted.found = TextOf(child).find(wanted.text) != std::wstring::npos;
            return !wanted.found;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

}  // namespace

DesktopStage::DesktopStage() {
    const auto folder = std::filesystem::temp_directory_path() /
                        ("kestrel-desktop-" + std::to_string(GetCurrentProcessId()));
    std::filesystem::create_directories(folder);
    folder_ = folder.string();
}

DesktopStage::~DesktopStage() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

std::string DesktopStage::Copy(const std::string& example) {
    std::filesystem::copy_file(std::string(KESTREL_SOURCE_DIR) + "/examples/" + example,
                               Path(example), std::filesystem::copy_options::overwrite_existing);
    return Path(example);
}

void DesktopStage::Work(const std::string& path, const std::function<void(WindowUser&)>& script) {
    DesktopProgram program(host);
    AddInLink addIn(host, program);
    window_ = std::make_unique<MainWindow>(
        MainWindow::Parts{GetModuleHandleW(nullptr), host, settings, desktop, runner_, addIn});
    kestrel::test::WhileWorking(
        [&] {
            window_->Show(SW_SHOWNORMAL);
            window_->Bench().Open(path);
            window_->RunMessages();
        },
        script);
    window_.reset();
}

std::wstring DesktopStage::Title() const { return TextOf(window_->Handle()); }

void DesktopStage::WaitForTitle(WindowUser& user, const std::wstring& title) {
    user.WaitUntil("the title is " + kestrel::win32::Utf8(title), [&] {
        return GetActiveWindow() == window_->Handle() && IsWindowEnabled(window_->Handle()) &&
               Title() == title;
    });
}

void DesktopStage::CloseByKeys(WindowUser& user, const std::wstring& caption) {
    const HWND window = user.WaitForWindow(caption);
    user.Press(VK_ESCAPE);
    user.WaitUntilGone(window);
}

void DesktopStage::AnswerMessage(WindowUser& user, const std::string& text, WORD key) {
    HWND box = nullptr;
    user.WaitUntil("a message says " + text, [&] {
        box = GetActiveWindow();
        return box && box != window_->Handle() && Says(box, kestrel::win32::Wide(text));
    });
    user.Press(key);
    user.WaitUntilGone(box);
}

void DesktopStage::Leave(WindowUser& user, bool unsaved) {
    const HWND window = window_->Handle();
    user.Press(VK_MENU, VK_F4);
    if (unsaved) {
        user.WaitForWindow(L"Kestrel");
        user.Press(VK_MENU, 'D');
    }
    user.WaitUntilGone(window);
}

}  // namespace refhost::win32
