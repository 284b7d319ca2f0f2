#include "refhost/windows/console/DialogAnswerer.h"

#include <dlgs.h>

#include <array>
#include <utility>
#include <vector>

#include "platform/win32/WideText.h"

namespace refhost {

using kestrel::MessageAnswer;
using kestrel::MessageButtons;

namespace {

/// A timer's callback is given nothing to find its object by.
thread_local DialogAnswerer* current = nullptr;

constexpr UINT kInterval = 10;  ///< milliseconds, the system's least
constexpr int kPatience = 200;  ///< visits until a dialog that stays is cancelled
constexpr int kMessageText = 0xFFFF;

bool HasClass(HWND window, const wchar_t* name) {
    std::array<wchar_t, 64> found{};
    GetClassNameW(window, found.data(), static_cast<int>(found.size()));
    return std::wstring_view(found.data()) == name;
}

std::string TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    return kestrel::win32::Utf8({text.data(), static_cast<std::size_t>(length)});
}

template <class Visit>
void ForEachChild(HWND parent, Visit visit) {
    EnumChildWindows(
        parent,
        [](HWND child, LPARAM context) -> BOOL {
            (*reinterpret_cast<Visit*>(context))(child);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&visit));
}

/// The field for the file name, where each kind of file dialog has it.
HWND FileNameField(HWND dialog) {
    for (const int id : {cmb13, edt1})
        if (const HWND field = GetDlgItem(dialog, id)) return field;
    HWND first = nullptr;
    ForEachChild(dialog, [&](HWND child) {
        if (!first && HasClass(child, L"Edit") && IsWindowVisible(child)) first = child;
    });
    return first;
}

/// The visible buttons. The button of a box with only one may have the code of Cancel, so that
/// Esc closes the box.
std::vector<int> Buttons(HWND box) {
    std::vector<int> codes;
    ForEachChild(box, [&](HWND child) {
        if (HasClass(child, L"Button") && (GetWindowLongW(child, GWL_STYLE) & WS_VISIBLE))
            codes.push_back(GetDlgCtrlID(child));
    });
    return codes;
}

MessageButtons KindOf(const std::vector<int>& buttons) {
    if (buttons.size() < 2) return MessageButtons::Ok;
    for (const int code : buttons)
        if (code == IDYES) return MessageButtons::YesNo;
    return MessageButtons::OkCancel;
}

void Press(HWND dialog, int code) {
    PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(code, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, code)));
}

}  // namespace

DialogAnswerer::DialogAnswerer(kestrel::Desktop& desktop) : desktop_(desktop) {
    current = this;
    timer_ = SetTimer(nullptr, 0, kInterval, OnTimer);
}

DialogAnswerer::~DialogAnswerer() {
    static_cast<void>(KillTimer(nullptr, timer_));  // fails only for what is no timer
    current = nullptr;
}

void DialogAnswerer::AnswerFileDialogWith(std::string path, std::string name) {
    path_ = std::move(path);
    name_ = std::move(name);
    pathIsNew_ = true;
}

void DialogAnswerer::OnTimer(HWND, UINT, UINT_PTR, DWORD) noexcept {
    if (current) current->Look();
}

BOOL DialogAnswerer::OnWindow(HWND window, LPARAM self) noexcept {
    auto& answerer = *reinterpret_cast<DialogAnswerer*>(self);
    try {
        if (HasClass(window, L"#32770") && IsWindowVisible(window) && IsWindowEnabled(window))
            answerer.Visit(window);
    } catch (...) {
        answerer.failure_ = std::current_exception();
        Press(window, IDCANCEL);
    }
    return TRUE;
}

void DialogAnswerer::Look() {
    if (std::exchange(answering_, true)) return;
    EnumThreadWindows(GetCurrentThreadId(), OnWindow, reinterpret_cast<LPARAM>(this));
    std::erase_if(visits_, [](const auto& visited) { return !IsWindow(visited.first); });
    answering_ = false;
}

void DialogAnswerer::Visit(HWND dialog) {
    const int visits = ++visits_[dialog];
    if (visits > kPatience) {
        visits_[dialog] = 1;
        Press(dialog, IDCANCEL);
    } else if (visits == 1) {
        if (GetDlgItem(dialog, kMessageText))
            AnswerMessage(dialog);
        else
            AnswerFileDialog(dialog);
    }
}

std::string DialogAnswerer::Message(HWND box) const {
    std::string text = TextOf(GetDlgItem(box, kMessageText));
    if (path_.empty()) return text;
    if (const auto at = text.find(path_); at != text.npos) text.replace(at, path_.size(), name_);
    return text;
}

void DialogAnswerer::AnswerMessage(HWND box) {
    const std::vector<int> buttons = Buttons(box);
    switch (desktop_.ShowMessage(Message(box), KindOf(buttons), TextOf(box))) {
        case MessageAnswer::Yes:
            return Press(box, IDYES);
        case MessageAnswer::No:
            return Press(box, IDNO);
        case MessageAnswer::Cancel:
            return Press(box, IDCANCEL);
        case MessageAnswer::Ok:
            return Press(box, buttons.size() == 1 ? buttons.front() : IDOK);
    }
}

void DialogAnswerer::AnswerFileDialog(HWND dialog) {
    const HWND field = FileNameField(dialog);
    if (!std::exchange(pathIsNew_, false) || !field) return Press(dialog, IDCANCEL);
    SendMessageW(field, WM_SETTEXT, 0,
                 reinterpret_cast<LPARAM>(kestrel::win32::Wide(path_).c_str()));
    Press(dialog, IDOK);
}

}  // namespace refhost
