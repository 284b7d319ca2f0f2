#include "ui/win32/LabelView.h"

#include "platform/win32/Gdi.h"
#include "platform/win32/WideText.h"

namespace kestrel::ui::win32 {
namespace {

constexpr int kTwoLines = 30;  ///< height that has room for them, in units

bool BreaksLines(const Label& label) { return label.Bounds().height >= kTwoLines; }

}  // namespace

// SS_CENTERIMAGE sets a single line to the middle of the window's height, beside a text box too.
LabelView::LabelView(ViewContext& context, Label& label)
    : SystemView(context, label, WC_STATICW,
                 BreaksLines(label) ? SS_LEFT : SS_LEFT | SS_CENTERIMAGE | SS_ENDELLIPSIS),
      label_(label),
      breaksLines_(BreaksLines(label)) {}

int LabelView::MissingHeight() const {
    if (!breaksLines_) return 0;
    const kestrel::win32::WindowDc dc(Window());
    const kestrel::win32::Selection font(dc.Get(), context_.font);
    const std::wstring text = kestrel::win32::Wide(label_.MarkedCaption());
    RECT lines{0, 0, context_.Pixels(label_.Bounds().width), 0};
    DrawTextW(dc.Get(), text.c_str(), static_cast<int>(text.size()), &lines,
              DT_CALCRECT | DT_WORDBREAK | DT_EXPANDTABS);
    const int missing = static_cast<int>(lines.bottom) - context_.Pixels(label_.Bounds().height);
    return missing > 0 ? missing : 0;
}

}  // namespace kestrel::ui::win32
