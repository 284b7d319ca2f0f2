#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "ui/controls/Form.h"
#include "ui/controls/Grid.h"

namespace kestrel::test {

using ui::Control;
using ui::Form;
using ui::Grid;
using ui::Key;
using ui::KeyEvent;
using ui::MouseEvent;
using ui::Rect;

/// A user at the keyboard and mouse of one open form.
class User {
 public:
    explicit User(Form& form) : form_(form) {}

    Form& TheForm() { return form_; }
    template <class T>
    T& Get(const std::string& name) {
        return dynamic_cast<T&>(*form_.Find(name));
    }

    /// Text typed on the keyboard, ASCII.
    void Type(std::string_view text) {
        for (char c : text) form_.KeyPress(static_cast<unsigned char>(c));
    }
    void Press(Key key, bool shift = false, bool ctrl = false) {
        KeyEvent event;
        event.key = key;
        event.shift = shift;
        event.ctrl = ctrl;
        form_.KeyDown(event);
        if (ctrl || !form_.IsOpen()) return;
        for (const auto& [typing, character] : {std::pair{Key::Back, 8},
                                                {Key::Tab, 9},
                                                {Key::Enter, 13},
                                                {Key::Escape, 27},
                                                {Key::Space, 32}})
            if (key == typing) form_.KeyPress(static_cast<char32_t>(character));
    }
    void PressShift(Key key) { Press(key, true); }
    void PressCtrl(Key key) { Press(key, false, true); }
    void PressLetter(char letter, bool ctrl, bool alt) {
        KeyEvent event;
        event.letter = static_cast<unsigned char>(letter);
        event.ctrl = ctrl;
        event.alt = alt;
        form_.KeyDown(event);
    }
    void Click(const std::string& name) { ClickAt(Get<Control>(name), {}, {}); }
    void ClickCell(const std::string& grid, int row, int column, MouseEvent how = {}) {
        Grid& control = Get<Grid>(grid);
        auto cell = control.Geometry().CellBounds(row, column);
        if (!cell) {
            control.ScrollBy(row - control.Geometry().TopRow());
            cell = control.Geometry().CellBounds(row, column);
        }
        ClickAt(control, cell.value(), how);
    }

 private:
    void ClickAt(Control& control, const Rect& part, MouseEvent how) {
        how.x = control.Bounds().x + part.x + 1;
        how.y = control.Bounds().y + part.y + 1;
        form_.MouseDown(how);
    }

    Form& form_;
};

/// Shows a form to a script. A form that is still open when the script ends is closed by its
/// user.
class ScriptedRunner : public ui::FormRunner {
 public:
    std::function<void(User&)> script = [](User&) {};
    int shown = 0;  ///< forms that stayed open after loading

    void ShowModal(Form& form) override {
        form.Open();
        if (!form.IsOpen()) return;
        ++shown;
        User user(form);
        script(user);
        if (form.IsOpen()) form.CloseByUser();
        if (form.IsOpen()) form.Close();
    }
};

}  // namespace kestrel::test
