#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ui/controls/Control.h"

namespace kestrel::ui {

/// A drop-down list of fixed choices.
class ComboBox : public Control {
 public:
    explicit ComboBox(std::string name) : Control(std::move(name)) {}

    std::function<void()> Click;  ///< after the user has chosen

    const std::vector<std::string>& Items() const { return items_; }
    void AddItem(std::string text);

    /// From 0; -1 while nothing is chosen.
    int ListIndex() const { return listIndex_; }
    /// Raises std::out_of_range beyond the list; -1 chooses nothing.
    void SetListIndex(int index);
    /// The chosen text; empty while nothing is chosen.
    std::string Text() const;

    bool TakesFocus() const override { return true; }
    bool KeyDown(const KeyEvent& event) override;

 private:
    std::vector<std::string> items_;
    int listIndex_ = -1;
};

}  // namespace kestrel::ui
