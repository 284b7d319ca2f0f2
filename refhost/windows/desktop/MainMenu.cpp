#include "refhost/windows/desktop/MainMenu.h"

#include "platform/win32/WideText.h"

namespace refhost::win32 {
namespace {

using Command = WorkbenchCommand;

constexpr WORD kFirstCommand = 100;
constexpr WORD kFirstRecent = 1000;

constexpr BYTE kCtrl = FCONTROL | FVIRTKEY, kPlain = FVIRTKEY,
               kCtrlShift = FCONTROL | FSHIFT | FVIRTKEY;

struct Key {
    BYTE modifiers = 0;
    WORD code = 0;  ///< 0 for none
};

struct Entry {
    int menu;             ///< its place in the bar
    const wchar_t* text;  ///< nullptr: a line; with the key behind a tab
    Command command = Command::About;
    Key key{};
    Key otherKey{};  ///< of the number pad
};

constexpr const wchar_t* kMenus[] = {L"&File", L"&Risk", L"Risk &Factors", L"&View", L"&Help"};

constexpr Entry kEntries[] = {
    {0, L"&Open...\tCtrl+O", Command::Open, {kCtrl, 'O'}},
    {0, L"&Save\tCtrl+S", Command::Save, {kCtrl, 'S'}},
    {0, L"Save &As...\tCtrl+Shift+S", Command::SaveAs, {kCtrlShift, 'S'}},
    {0, nullptr},
    {0, nullptr},  // the files opened last stand between
    {0, L"E&xit\tAlt+F4", Command::Exit},
    {1, L"&Run Analysis...\tF9", Command::RunAnalysis, {kPlain, VK_F9}},
    {1, L"R&esults...\tShift+F9", Command::ShowResults, {FSHIFT | FVIRTKEY, VK_F9}},
    {1, L"Re&port...", Command::WriteReport},
    {2, L"&Edit...\tF4", Command::EditFactors, {kPlain, VK_F4}},
    {2, L"&Assign to Task...\tF5", Command::AssignFactors, {kPlain, VK_F5}},
    {2, L"&Driving Risks...\tF6", Command::ShowDrivingRisks, {kPlain, VK_F6}},
    {2, nullptr},
    {2, L"&Save to File...", Command::SaveFactors},
    {2, L"&Load from File...", Command::LoadFactors},
    {2, nullptr},
    {2, L"&Import Table...", Command::ImportTable},
    {2, L"E&xport Table...", Command::ExportTable},
    {2, nullptr},
    {2, L"&Options...", Command::FactorOptions},
    {3, L"Zoom &In\tCtrl++", Command::ZoomIn, {kCtrl, VK_OEM_PLUS}, {kCtrl, VK_ADD}},
    {3, L"Zoom &Out\tCtrl+-", Command::ZoomOut, {kCtrl, VK_OEM_MINUS}, {kCtrl, VK_SUBTRACT}},
    {3, L"&Whole Plan\tCtrl+0", Command::WholePlan, {kCtrl, '0'}, {kCtrl, VK_NUMPAD0}},
    {3, nullptr},
    {3, L"Go to &Today\tCtrl+T", Command::GoToToday, {kCtrl, 'T'}},
    {3, L"&Go to Selected Task\tCtrl+G", Command::GoToSelectedTask, {kCtrl, 'G'}},
    {3, nullptr},
    {3,
     L"&Expand All\tCtrl+Shift++",
     Command::ExpandAll,
     {kCtrlShift, VK_OEM_PLUS},
     {kCtrlShift, VK_ADD}},
    {3,
     L"&Collapse All\tCtrl+Shift+-",
     Command::CollapseAll,
     {kCtrlShift, VK_OEM_MINUS},
     {kCtrlShift, VK_SUBTRACT}},
    {4, L"&Keys\tF1", Command::ShowKeys, {kPlain, VK_F1}},
    {4, L"&About Kestrel", Command::About},
};

WORD NumberOf(Command command) {
    return static_cast<WORD>(kFirstCommand + static_cast<WORD>(command));
}

HACCEL MakeKeys() {
    std::vector<ACCEL> keys;
    for (const Entry& entry : kEntries)
        for (const Key& key : {entry.key, entry.otherKey})
            if (key.code) keys.push_back({key.modifiers, key.code, NumberOf(entry.command)});
    return CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size()));
}

/// "&1 C:\plans\crane.kplan", with "&" in a path doubled.
std::wstring RecentText(std::size_t place, const std::string& path) {
    std::wstring text = L"&" + std::to_wstring(place + 1) + L" ";
    for (const wchar_t c : kestrel::win32::Wide(path))
        text += c == L'&' ? L"&&" : std::wstring(1, c);
    return text;
}

}  // namespace

MainMenu::MainMenu() : bar_(CreateMenu()), recent_(CreatePopupMenu()), keys_(MakeKeys()) {
    HMENU menus[std::size(kMenus)];
    for (std::size_t i = 0; i < std::size(kMenus); ++i) {
        menus[i] = CreatePopupMenu();
        AppendMenuW(bar_, MF_POPUP, reinterpret_cast<UINT_PTR>(menus[i]), kMenus[i]);
    }
    bool recentPlaced = false;
    for (const Entry& entry : kEntries) {
        const HMENU menu = menus[entry.menu];
        if (entry.text) {
            AppendMenuW(menu, MF_STRING, NumberOf(entry.command), entry.text);
            continue;
        }
        AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
        if (recentPlaced) continue;
        recentPlaced = true;
        AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(recent_), L"&Recent Files");
    }
}

MainMenu::~MainMenu() {
    DestroyMenu(bar_);  // fails harmlessly when the window's end has taken it along
    DestroyAcceleratorTable(keys_);
}

void MainMenu::Update(const Workbench& bench, const std::vector<std::string>& recentFiles) {
    for (const Entry& entry : kEntries)
        if (entry.text)
            EnableMenuItem(
                bar_, NumberOf(entry.command),
                static_cast<UINT>(MF_BYCOMMAND |
                                  (bench.IsEnabled(entry.command) ? MF_ENABLED : MF_GRAYED)));
    while (DeleteMenu(recent_, 0, MF_BYPOSITION)) {
    }
    for (std::size_t i = 0; i < recentFiles.size(); ++i)
        AppendMenuW(recent_, MF_STRING, kFirstRecent + i, RecentText(i, recentFiles[i]).c_str());
    if (recentFiles.empty()) AppendMenuW(recent_, MF_STRING | MF_GRAYED, 0, L"(none)");
}

std::optional<WorkbenchCommand> MainMenu::CommandOf(WORD number) {
    for (const Entry& entry : kEntries)
        if (entry.text && NumberOf(entry.command) == number) return entry.command;
    return std::nullopt;
}

std::optional<std::size_t> MainMenu::RecentFileOf(WORD number) {
    if (number < kFirstRecent || number >= kFirstRecent + RecentFiles::kMost) return std::nullopt;
    return static_cast<std::size_t>(number - kFirstRecent);
}

}  // namespace refhost::win32
