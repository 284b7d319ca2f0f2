#pragma once

/// What a user does, as controls and forms are told of it by whoever shows them.
namespace kestrel::ui {

enum class Key {
    Character,  ///< a letter or digit; see KeyEvent::letter
    Back,
    Tab,
    Enter,
    Escape,
    Space,
    PageUp,
    PageDown,
    End,
    Home,
    Left,
    Up,
    Right,
    Down,
    Delete,
    F2,
};

/// A key going down. A key that yields a character is reported a second time, by that character
/// (8 for Backspace), as a key press; combinations with Alt or Ctrl are not.
struct KeyEvent {
    Key key = Key::Character;
    bool shift = false;
    bool ctrl = false;
    bool alt = false;
    char32_t letter = 0;    ///< upper case, for Key::Character
    bool repeated = false;  ///< held down: not the first report of this press
};

/// Enter or Esc held down. It has given its answer, and must not answer what stands there next
/// too: the window behind the one that it closed, or the whole form after one cell.
inline bool AnswersAgain(const KeyEvent& event) {
    return event.repeated && (event.key == Key::Enter || event.key == Key::Escape);
}

/// A mouse button going down at a place within the form or, where a control is told, within the
/// control. Whoever shows a push button may wait for the release and report it then.
struct MouseEvent {
    int x = 0;
    int y = 0;
    bool shift = false;
    bool ctrl = false;
    bool doubleClick = false;
};

}  // namespace kestrel::ui
