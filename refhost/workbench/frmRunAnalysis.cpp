#include "refhost/workbench/frmRunAnalysis.h"

#include <charconv>
#include <string>

#include "base/Text.h"
#include "refhost/engine/Analysis.h"

namespace refhost {
namespace {

using namespace kestrel::ui;

constexpr int kWidth = 400, kHeight = 150, kMargin = 12, kRow = 24, kLabelWidth = 80;
constexpr int kButtonWidth = 90, kButtonHeight = 26;

/// A whole number, blanks around it skipped; nothing for anything else.
template <class Number>
std::optional<Number> WholeNumber(std::string_view text) {
    text = kestrel::Trimmed(text, " ");
    Number number{};
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (failure != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

}  // namespace

frmRunAnalysis::frmRunAnalysis(kestrel::Desktop& desktop, const AnalysisSettings& settings)
    : Form("Run Risk Analysis", kWidth, kHeight), desktop_(desktop), settings_(settings) {
    txtIterations.SetText(std::to_string(settings.iterations));
    txtSeed.SetText(std::to_string(settings.seed));
    const int boxLeft = kMargin + kLabelWidth;
    int top = kMargin;
    for (const auto& [label, box] : {std::pair<Label*, TextBox*>{&lblIterations, &txtIterations},
                                     std::pair<Label*, TextBox*>{&lblSeed, &txtSeed}}) {
        Add(*label, {kMargin, top + 3, kLabelWidth, kRow - 3});
        Add(*box, {boxLeft, top, kWidth - boxLeft - kMargin, kRow});
        top += kRow + 6;
    }
    Add(lblHint, {boxLeft, top, kWidth - boxLeft - kMargin, kRow});
    const int buttonTop = kHeight - kMargin - kButtonHeight;
    Add(cmdRun, {kWidth - kMargin - 2 * kButtonWidth - 8, buttonTop, kButtonWidth, kButtonHeight});
    Add(cmdCancel, {kWidth - kMargin - kButtonWidth, buttonTop, kButtonWidth, kButtonHeight});
    cmdRun.Click = [this] { cmdRun_Click(); };
    cmdCancel.Click = [this] { Close(); };
    SetDefaultButton(cmdRun);
    SetCancelButton(cmdCancel);
}

void frmRunAnalysis::Refuse(TextBox& box, const std::string& text) {
    desktop_.ShowMessage(text, kestrel::MessageButtons::Ok, Caption());
    box.SetFocus();
}

void frmRunAnalysis::cmdRun_Click() {
    const auto iterations = WholeNumber<std::int32_t>(txtIterations.Text());
    if (!iterations || *iterations < 1 || *iterations > kMostIterations)
        return Refuse(txtIterations, "The number of iterations must be a whole number from 1 to " +
                                         std::to_string(kMostIterations) + ".");
    const auto seed = WholeNumber<std::uint64_t>(txtSeed.Text());
    if (!seed)
        return Refuse(txtSeed, "The seed must be a whole number from 0 to 18446744073709551615.");
    settings_.iterations = *iterations;
    settings_.seed = *seed;
    result_ = settings_;
    Close();
}

}  // namespace refhost
