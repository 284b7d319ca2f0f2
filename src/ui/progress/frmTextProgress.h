#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/Desktop.h"
#include "ui/controls/Form.h"
#include "ui/controls/ListView.h"

namespace kestrel::ui {

/// A list of steps that are ticked off one by one. Steps count from 1; a step that is not there
/// raises std::out_of_range, and nothing has changed then.
class frmTextProgress : public Form {
 public:
    /// `refresh` repaints the list at once; given by whoever shows the form.
    explicit frmTextProgress(Desktop& desktop, std::function<void()> refresh = {});

    /// The step in progress.
    std::int32_t CurrentItem() const { return currentItem_; }

    void AddToDo(const std::string& text);
    /// Greys the step, with `text` in place of its own unless that is empty. Index 0 stands for
    /// the step in progress, and the next one is in progress then; any other index makes its step
    /// the one in progress.
    void Done(std::int32_t index, const std::string& text);
    /// Replaces the step's text, by an empty one too. Index 0 stands for the step in progress;
    /// any other index makes its step the one in progress.
    void UpdateToDo(std::int32_t index, const std::string& text);

    /// The height that the window takes when it is sized to `height`. Deliberately so for the
    /// English languages 1033 and 2057 only: 500 less, and 200 where that leaves less than 500.
    int AdjustedHeight(int height) override;
    /// The user's language when the window was last sized; 0 before.
    std::uint16_t UserLanguage() const { return userLanguage_; }

    ListView lvwProgress{"lvwProgress"};

 protected:
    void Form_Load() override;

 private:
    Desktop& desktop_;
    std::function<void()> refresh_;
    std::int32_t currentItem_ = 1;
    std::uint16_t userLanguage_ = 0;
};

}  // namespace kestrel::ui
