#pragma once

#include "ui/controls/ListView.h"
#include "ui/controls/SelectionListView.h"
#include "ui/win32/SystemView.h"

namespace kestrel::ui::win32 {

/// A list of lines below a header. The window keeps no lines of its own: it asks for those that it
/// shows, so long lists cost nothing.
class ListLinesView : public SystemView {
 public:
    ListLinesView(ViewContext& context, ListView& list) : ListLinesView(context, list, 0) {}

    LRESULT Notified(NMHDR& notification) override;
    void After(UINT message, WPARAM wParam, LPARAM lParam) override;

 protected:
    ListLinesView(ViewContext& context, ListView& list, DWORD style);
    void Show() override;

 private:
    void GiveText(LVITEMW& item) const;
    LRESULT Colour(NMLVCUSTOMDRAW& drawing) const;
    void FitColumn() const;

    ListView& list_;
};

/// A list of which one line is selected. Keys that move the selection are the model's.
class SelectionListLinesView : public ListLinesView {
 public:
    SelectionListLinesView(ViewContext& context, SelectionListView& list)
        : ListLinesView(context, list, WS_TABSTOP), list_(list) {}

    LRESULT Notified(NMHDR& notification) override;

 protected:
    void Show() override;

 private:
    int LineStartingWith(const NMLVFINDITEMW& wanted) const;

    SelectionListView& list_;
    bool showing_ = false;  ///< the window is told what the model has selected, not the reverse
};

}  // namespace kestrel::ui::win32
