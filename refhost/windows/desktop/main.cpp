#include <windows.h>
#include <commctrl.h>
#include <shellapi.h>

#include <exception>
#include <memory>
#include <string>

#include "platform/win32/ComApartment.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32Desktop.h"
#include "refhost/system/SettingsFile.h"
#include "refhost/system/System.h"
#include "refhost/windows/desktop/AddInLink.h"
#include "refhost/windows/desktop/DesktopProgram.h"
#include "refhost/windows/desktop/MainWindow.h"
#include "ui/win32/WindowRunner.h"

namespace {

using namespace refhost;

/// The plan or project file on the command line; empty without one.
std::string FileOnCommandLine() {
    int count = 0;
    const std::unique_ptr<wchar_t*, decltype(&LocalFree)> words(
        CommandLineToArgvW(GetCommandLineW(), &count), LocalFree);
    return words && count > 1 ? kestrel::win32::Utf8(words.get()[1]) : std::string();
}

int Run(HINSTANCE module, int show) {
    const kestrel::win32::ComApartment com;
    InitCommonControls();
    kestrel::win32::Win32Desktop desktop;
    kestrel::ui::win32::WindowRunner runner(module);
    SettingsFile settings;
    ReferenceHost host(settings, InstallationFolder());
    win32::DesktopProgram program(host);
    win32::AddInLink addIn(host, program);
    win32::MainWindow window({module, host, settings, desktop, runner, addIn});
    window.Show(show);
    if (const std::string path = FileOnCommandLine(); !path.empty()) window.Bench().Open(path);
    return window.RunMessages();
}

}  // namespace

int WINAPI wWinMain(HINSTANCE module, HINSTANCE, wchar_t*, int show) {
    try {
        return Run(module, show);
    } catch (const std::exception& failure) {
        MessageBoxW(nullptr, kestrel::win32::Wide(failure.what()).c_str(), L"Kestrel",
                    MB_OK | MB_ICONERROR);
        return 1;
    }
}
