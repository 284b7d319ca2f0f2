#pragma once

#include <cstddef>
#include <string>

#include "ui/controls/Control.h"

namespace kestrel::ui {

/// One line of text that the user can edit, unless it is read-only.
class TextBox : public Control {
 public:
    explicit TextBox(std::string name) : Control(std::move(name)) {}

    const std::string& Text() const { return text_; }
    /// The caret goes behind the text.
    void SetText(std::string text);

    bool ReadOnly() const { return readOnly_; }
    void SetReadOnly(bool readOnly) { readOnly_ = readOnly; }

    /// Byte offset of the caret in the text.
    std::size_t Caret() const { return caret_; }

    bool TakesFocus() const override { return true; }
    bool KeyDown(const KeyEvent& event) override;
    bool KeyPress(char32_t character) override;

 private:
    std::string text_;
    std::size_t caret_ = 0;
    bool readOnly_ = false;
};

}  // namespace kestrel::ui
