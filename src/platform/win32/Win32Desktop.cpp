#include "platform/win32/Win32Desktop.h"

#include <windows.h>
#include <htmlhelp.h>
#include <shellapi.h>

#include <array>
#include <string>

#include "base/Errors.h"
#include "platform/Files.h"
#include "platform/HelpPage.h"
#include "platform/win32/Clipboard.h"
#include "platform/win32/Handles.h"
#include "platform/win32/MsxmlParser.h"
#include "platform/win32/Paths.h"
#include "platform/win32/WideText.h"

namespace kestrel::win32 {
namespace {

UINT BoxStyle(MessageButtons buttons) {
    switch (buttons) {
        case MessageButtons::OkCancel:
            return MB_OKCANCEL;
        case MessageButtons::YesNo:
            return MB_YESNO;
        case MessageButtons::Ok:
            break;
    }
    return MB_OK;
}

/// A box that cannot be shown gives the answer that destroys nothing.
MessageAnswer Answer(int chosen, MessageButtons buttons) {
    switch (buttons) {
        case MessageButtons::OkCancel:
            return chosen == IDOK ? MessageAnswer::Ok : MessageAnswer::Cancel;
        case MessageButtons::YesNo:
            return chosen == IDYES ? MessageAnswer::Yes : MessageAnswer::No;
        case MessageButtons::Ok:
            break;
    }
    return MessageAnswer::Ok;
}

/// A directory search expands them. Besides the two that users know there are three that DOS
/// programs used.
bool HasWildcard(std::wstring_view path) {
    if (path.starts_with(L"\\\\?\\")) path.remove_prefix(4);
    return path.find_first_of(L"*?<>\"") != path.npos;
}

/// The name that the viewer's module exports for the text at hand: the narrow function, unless
/// the text holds letters that the user's code page lacks.
HWND DisplayTopic(HMODULE viewer, const std::string& location) {
    const std::string ansi = Ansi(location);
    if (FromAnsi(ansi) == location)
        if (const auto show = GetProcAddress(viewer, "HtmlHelpA"))
            return reinterpret_cast<decltype(&HtmlHelpA)>(reinterpret_cast<void*>(show))(
                nullptr, ansi.c_str(), HH_DISPLAY_TOPIC, 0);
    if (const auto show = GetProcAddress(viewer, "HtmlHelpW"))
        return reinterpret_cast<decltype(&HtmlHelpW)>(reinterpret_cast<void*>(show))(
            nullptr, Wide(location).c_str(), HH_DISPLAY_TOPIC, 0);
    return nullptr;
}

bool OpenInBrowser(const std::string& page) {
    const auto answer = reinterpret_cast<INT_PTR>(
        ShellExecuteW(nullptr, nullptr, SystemPath(page).c_str(), nullptr, nullptr, SW_SHOWNORMAL));
    return answer > 32;  // its sign of success
}

}  // namespace

MessageAnswer Win32Desktop::ShowMessage(const std::string& text, MessageButtons buttons,
                                        const std::string& title) {
    const std::wstring caption = Wide(title.empty() ? kApplicationTitle : title);
    const int chosen =
        MessageBoxW(GetActiveWindow(), Wide(text).c_str(), caption.c_str(), BoxStyle(buttons));
    return Answer(chosen, buttons);
}

void Win32Desktop::Beep() {
    // A machine without sound is silent.
    static_cast<void>(MessageBeep(MB_OK));
}

bool Win32Desktop::FileIsThere(const std::string& path) {
    const std::wstring wide = SystemPath(path);
    if (wide.empty() || HasWildcard(wide)) return false;
    WIN32_FIND_DATAW found{};
    const SearchHandle search(FindFirstFileW(wide.c_str(), &found));
    return search && !(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY);
}

std::string Win32Desktop::ReadFile(const std::string& path) { return ReadWholeFile(path); }

void Win32Desktop::WriteFile(const std::string& path, std::string_view bytes) {
    ReplaceWholeFile(path, bytes);
}

XmlDocument Win32Desktop::ParseXml(std::string_view bytes) { return ParseXmlBytes(bytes); }

std::string Win32Desktop::LocaleString(LocaleItem item) {
    const LCID locale = GetUserDefaultLCID();
    const auto code = static_cast<LCTYPE>(item);
    const int length = GetLocaleInfoA(locale, code, nullptr, 0);
    std::string buffer(static_cast<std::size_t>(length), '\0');
    if (length == 0 || GetLocaleInfoA(locale, code, buffer.data(), length) == 0) return {};
    return FromAnsi(buffer.substr(0, buffer.find('\0')));
}

void Win32Desktop::SetLocaleString(LocaleItem item, const std::string& value) {
    // Where a policy forbids the change the user's own value stands; numbers are written and read
    // with "." all the same.
    static_cast<void>(
        SetLocaleInfoA(GetUserDefaultLCID(), static_cast<LCTYPE>(item), Ansi(value).c_str()));
}

std::uint16_t Win32Desktop::UserLanguage() { return GetUserDefaultLangID(); }

std::optional<RegistryValue> Win32Desktop::UserRegistryValue(const std::string& key,
                                                             const std::string& name) {
    RegistryKey open;
    if (RegOpenKeyA(HKEY_CURRENT_USER, Ansi(key).c_str(), open.Out()) != ERROR_SUCCESS)
        return std::nullopt;
    std::array<char, 2048> buffer;
    DWORD type = REG_NONE;
    DWORD size = static_cast<DWORD>(buffer.size());
    if (RegQueryValueExA(open.Get(), Ansi(name).c_str(), nullptr, &type,
                         reinterpret_cast<BYTE*>(buffer.data()), &size) != ERROR_SUCCESS)
        return std::nullopt;
    return RegistryValue{type, std::string(buffer.data(), size)};
}

std::string Win32Desktop::DecodeSystemText(std::string_view bytes) { return FromAnsi(bytes); }

void Win32Desktop::SetClipboardText(const std::string& text) { Clipboard().PutText(text); }

void Win32Desktop::ShowHelpTopic(const std::string& location) {
    // The viewer's window lives in this process and may outlive the add-in, so its module is
    // never let go. It is part of the system: a file of its name beside the host is not it.
    const HMODULE viewer = LoadLibraryExW(L"hhctrl.ocx", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (viewer && DisplayTopic(viewer, location)) return;
    const std::string page = HelpPage(location);
    if (!page.empty() && FileIsThere(page) && OpenInBrowser(page)) return;
    throw DataError("The help topic '" + location +
                    "' cannot be shown; see whether the help file is there.");
}

}  // namespace kestrel::win32
