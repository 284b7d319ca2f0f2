#pragma once

#include <functional>
#include <optional>
#include <string>

#include "ui/controls/ListView.h"

namespace kestrel::ui {

/// A list whose user selects one line. Arrow keys, Home, End and the page keys move the
/// selection; lines that do not fit are scrolled.
class SelectionListView : public ListView {
 public:
    static constexpr int kHeaderHeight = 22;
    static constexpr int kLineHeight = 18;

    /// The header shows the caption.
    SelectionListView(std::string name, const std::string& header) : ListView(std::move(name)) {
        SetCaption(header);
    }

    /// @name Events, each optional
    ///@{
    std::function<bool(const KeyEvent&)> OnKeyDown;  ///< true: the list does nothing more
    std::function<void()> DblClick;                  ///< on a line, which is selected by then
    ///@}

    /// The selected line, from 1; 0 for none.
    int Selected() const { return selected_; }
    /// 0 selects none; beyond the last line raises std::out_of_range.
    void Select(int index);
    void Clear() override;

    /// Nothing for a line that is scrolled out of sight.
    std::optional<Rect> LineBounds(int index) const;
    int TopLine() const { return topLine_; }
    /// Lines that fit in whole, at least one.
    int VisibleLines() const;
    /// Moves the lines shown, not the selection.
    void ScrollTo(int topLine);

    void SetBounds(const Rect& bounds) override;
    bool TakesFocus() const override { return true; }
    bool KeyDown(const KeyEvent& event) override;
    void MouseDown(const MouseEvent& event) override;

 private:
    int selected_ = 0;
    int topLine_ = 1;
};

}  // namespace kestrel::ui
