#include "ui/win32/ControlView.h"

#include <stdexcept>

#include "ui/controls/Chart.h"
#include "ui/controls/Grid.h"
#include "ui/win32/ButtonView.h"
#include "ui/win32/ChoiceViews.h"
#include "ui/win32/ComboBoxView.h"
#include "ui/win32/LabelView.h"
#include "ui/win32/ListLinesView.h"
#include "ui/win32/ProgressBarView.h"
#include "ui/win32/SpinButtonView.h"
#include "ui/win32/TextBoxView.h"

namespace kestrel::ui::win32 {
namespace {

using View = std::unique_ptr<ControlView>;

/// A view of kind V when the control is of kind C.
template <class C, class V>
bool Make(View& view, ViewContext& context, Control& control) {
    auto* const wanted = dynamic_cast<C*>(&control);
    if (wanted) view = std::make_unique<V>(context, *wanted);
    return wanted != nullptr;
}

/// A list that can be selected from is a list too: the more special kind comes first.
bool MakeSystemView(View& view, ViewContext& context, Control& control) {
    return Make<Button, ButtonView>(view, context, control) ||
           Make<CheckBox, CheckBoxView>(view, context, control) ||
           Make<OptionButton, OptionButtonView>(view, context, control) ||
           Make<Label, LabelView>(view, context, control) ||
           Make<Frame, FrameView>(view, context, control) ||
           Make<TextBox, TextBoxView>(view, context, control) ||
           Make<ComboBox, ComboBoxView>(view, context, control) ||
           Make<SpinButton, SpinButtonView>(view, context, control) ||
           Make<ProgressBar, ProgressBarView>(view, context, control) ||
           Make<SelectionListView, SelectionListLinesView>(view, context, control) ||
           Make<ListView, ListLinesView>(view, context, control);
}

}  // namespace

View MakeView(ViewContext& context, Control& control) {
    View view;
    if (MakeSystemView(view, context, control)) return view;
    if (auto* const grid = dynamic_cast<Grid*>(&control)) return MakeGridView(context, *grid);
    if (auto* const chart = dynamic_cast<Chart*>(&control)) return MakeChartView(context, *chart);
    throw std::logic_error("no window shows a control like " + control.Name());
}

}  // namespace kestrel::ui::win32
