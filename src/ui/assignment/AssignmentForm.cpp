#include "ui/assignment/AssignmentForm.h"

#include <string>

#include "base/NumberText.h"
#include "store/RegisterDocument.h"
#include "store/modSettings.h"
#include "util/Trapped.h"
#include "util/modToolBox.h"
#include "util/modeHelp.h"

namespace kestrel::ui {
namespace {

constexpr int kMargin = kAssignmentMargin, kButtonWidth = 92, kButtonHeight = 26, kLine = 20;
constexpr int kEnglishLabelWidth = 86, kLabelWidth = 130;

/// The label is English: where that is the user's language its room is measured to fit, others
/// see it in fonts that may be wider.
int LabelWidth(std::uint16_t language) {
    constexpr std::uint16_t kEnglishUnitedStates = 1033, kEnglishUnitedKingdom = 2057;
    return language == kEnglishUnitedStates || language == kEnglishUnitedKingdom
               ? kEnglishLabelWidth
               : kLabelWidth;
}

constexpr const char* kNotShown = "The task's risk factors could not be shown.";
constexpr const char* kNotSaved =
    "The task's risk factors could not be saved; the changes are still in this window.";

/// A caption that shows the text as it is: "&" would mark an access key.
std::string LiteralCaption(const std::string& text) {
    std::string caption;
    for (const char c : text) caption.append(c == '&' ? 2 : 1, c);
    return caption;
}

/// Runs the work with automatic recalculation off, and on again however it ends.
template <typename Work>
void WithoutRecalculation(host::Plan& plan, Work work) {
    const auto resume = [&] { Trapped([&] { plan.PutAutoCalculate(true); }); };
    plan.PutAutoCalculate(false);
    try {
        work();
    } catch (...) {
        resume();
        throw;
    }
    resume();
}

}  // namespace

AssignmentForm::AssignmentForm(modGlobals& globals, int designWidth, int designHeight)
    : Form("Assign Risk Factors", designWidth, designHeight), globals_(globals) {
    const int labelWidth = LabelWidth(globals.desktop.UserLanguage());
    Add(Label1, {kMargin, kMargin, labelWidth, kLine});
    const int taskLeft = kMargin + labelWidth;
    Add(lblSelectedTask, {taskLeft, kMargin, designWidth - kMargin - taskLeft, kLine},
        kAnchorLeft | kAnchorTop | kAnchorRight);
    SetCancelButton(cmdClose);
    cmdNext.Click = [this] { cmdNext_Click(); };
    cmdPrevious.Click = [this] { cmdPrevious_Click(); };
    cmdHelp.Click = [this] { cmdHelp_Click(); };
    cmdClose.Click = [this] { cmdClose_Click(); };
}

void AssignmentForm::AddButtons(std::initializer_list<Button*> buttons) {
    int left = DesignWidth() - static_cast<int>(buttons.size()) * (kButtonWidth + kMargin);
    for (Button* button : buttons) {
        Add(*button, {left, DesignHeight() - kMargin - kButtonHeight, kButtonWidth, kButtonHeight},
            kAnchorRight | kAnchorBottom);
        left += kButtonWidth + kMargin;
    }
}

void AssignmentForm::Form_Load() {
    const bool loaded = TrappedAndTold(globals_.desktop, kNotShown, [this] {
        RestorePosition();
        OpenRegister(globals_, *OpenPlan(globals_));
        ShowRegister();
        LoadTask();
    });
    if (!loaded) Close();
}

void AssignmentForm::RestorePosition() {
    const std::string left = GetLeft(*globals_.application), top = GetTop(*globals_.application);
    // A place that cannot be read is no reason to refuse the window.
    Trapped([&] { SetPosition({ParseNumber(left), ParseNumber(top)}); });
}

void AssignmentForm::Form_Unload() {
    if (!Position()) return;
    Trapped([this] {
        SaveTop(*globals_.application, GeneralText(Position()->top));
        SaveLeft(*globals_.application, GeneralText(Position()->left));
    });
}

void AssignmentForm::LoadTask() {
    const auto factorCount = static_cast<std::int32_t>(globals_.RiskFactors.size());
    shown_ = ReadShownTask(GetSelectedTask(*globals_.application), factorCount);
    lblSelectedTask.SetCaption(LiteralCaption(shown_.label));
    ShowTask(shown_);
}

void AssignmentForm::SaveTask() {
    if (shown_.assignable) SaveAssignments(globals_.desktop, shown_.task, Edits());
}

void AssignmentForm::MoveBy(std::int32_t rows) {
    TrappedAndTold(globals_.desktop, kNotSaved, [&] {
        const host::PlanPtr plan = OpenPlan(globals_);
        WithoutRecalculation(*plan, [&] {
            SaveTask();
            TrappedAndTold(globals_.desktop, kNotShown, [&] { ShowNeighbour(*plan, rows); });
        });
    });
    FactorList().SetFocus();
}

void AssignmentForm::ShowNeighbour(host::Plan& plan, std::int32_t rows) {
    const auto view = plan.CurrentView();
    if (!view || view->TypeName() != "GanttChart") return;
    const std::int32_t row = view->CurrentRow();
    const bool hasNeighbour = rows > 0 ? row < plan.Tasks()->Count() : row > 1;
    if (hasNeighbour) view->PutCurrentRow(row + rows);
    LoadTask();
}

bool AssignmentForm::SavedOrTold() {
    return TrappedAndTold(globals_.desktop, kNotSaved, [this] { SaveTask(); });
}

void AssignmentForm::cmdHelp_Click() {
    ShowHelpOrTell(*globals_.application, globals_.desktop, kHelpAssign);
}

void AssignmentForm::cmdClose_Click() { Close(); }

}  // namespace kestrel::ui
