#include "refhost/workbench/frmResults.h"

#include "base/NumberText.h"
#include "refhost/charts/FigureText.h"
#include "util/Trapped.h"
#include "util/modGridCopy.h"

namespace refhost {
namespace {

using namespace kestrel::ui;

constexpr int kWidth = 1180, kHeight = 580, kMargin = 10, kGap = 6;
constexpr int kGridWidth = 532, kRowHeight = 24, kButtonHeight = 26;

constexpr const char* kMayCalculate = "Calculate analyses the plan again without each risk factor.";
constexpr const char* kMayNotCalculate =
    "The plan has changed since; run the analysis again to see what each factor costs.";

void Fill(Grid& grid, const ResultTable& table) {
    const RedrawPause pause(grid);
    const int columns = static_cast<int>(table.columns.size());
    grid.Clear(columns, 1, false);
    grid.Geometry().headerHeight = kRowHeight;
    for (int column = 0; column < columns; ++column) {
        const ResultColumn& shown = table.columns[static_cast<std::size_t>(column)];
        grid.SetText(0, column, shown.heading);
        grid.Geometry().SetColumnWidth(column, shown.width);
        grid.Geometry().SetColumnAlignment(column,
                                           shown.figure ? Alignment::Right : Alignment::Left);
    }
    for (const std::vector<std::string>& texts : table.rows) {
        const int row = grid.AddRow();
        for (int column = 0; column < columns; ++column) {
            grid.SetText(row, column, texts[static_cast<std::size_t>(column)]);
            grid.SetEditable(row, column, false);
        }
    }
}

ChartDrawing Sentence(const std::string& text, int width, int height) {
    ChartDrawing drawing;
    drawing.width = width;
    drawing.height = height;
    drawing.title = text;
    drawing.texts.push_back(
        {text, "", width / 2, height / 2, 13, ChartAlign::Centre, false, kChartSubtle});
    return drawing;
}

}  // namespace

frmResults::frmResults(kestrel::Desktop& desktop, PlanResults& results, bool upToDate,
                       Calculator calculator)
    : Form("Analysis Results", kWidth, kHeight),
      desktop_(desktop),
      results_(results),
      calculator_(std::move(calculator)) {
    PlaceControls();
    lblAnalysis.SetCaption(OriginText(results, upToDate));
    plotResult.Attributes().Set("PrintDocumentName", results.plan.name);
    Fill(gridTasks, CriticalTaskTable(results));
    gridTasks.Geometry().SetStretchColumn(1);
    txtTargetFinish.SetText(DateAndTimeText(results.results.deterministicFinish));
    txtTargetCost.SetText(kestrel::FixedText(results.results.deterministicCost, 2));
    ShowChances();
    OptionDistribution.Select();
    OptionFinish.Select();
    ShowPage();
    ConnectHandlers();
    SetDefaultButton(cmdClose);
    SetCancelButton(cmdClose);
}

void frmResults::PlaceControls() {
    const int buttonsTop = kHeight - kMargin - kButtonHeight;
    const int targetsTop = buttonsTop - kMargin - kRowHeight;
    const int bodyTop = kMargin + kRowHeight + kGap;
    const int bodyHeight = targetsTop - kMargin - bodyTop;
    const int gridLeft = kWidth - kMargin - kGridWidth;
    Add(OptionDistribution, {kMargin, kMargin, 104, kRowHeight});
    Add(OptionFactors, {118, kMargin, 104, kRowHeight});
    Add(OptionTasks, {226, kMargin, 70, kRowHeight});
    Add(OptionJoint, {300, kMargin, 126, kRowHeight});
    Add(OptionFinish, {466, kMargin, 76, kRowHeight});
    Add(OptionCost, {546, kMargin, 76, kRowHeight});
    Add(lblAnalysis, {gridLeft, kMargin + 4, kGridWidth, kRowHeight - 4},
        kAnchorTop | kAnchorRight);
    Add(plotResult, {kMargin, bodyTop, gridLeft - 2 * kMargin, bodyHeight}, kAnchorAll);
    Add(gridResults, {gridLeft, bodyTop, kGridWidth, bodyHeight},
        kAnchorTop | kAnchorRight | kAnchorBottom);
    Add(gridTasks, {kMargin, bodyTop, kWidth - 2 * kMargin, bodyHeight}, kAnchorAll);

    constexpr unsigned kBelow = kAnchorLeft | kAnchorBottom;
    Add(lblTargetFinish, {kMargin, targetsTop + 4, 90, kRowHeight - 4}, kBelow);
    Add(txtTargetFinish, {104, targetsTop, 130, kRowHeight}, kBelow);
    Add(lblTargetCost, {252, targetsTop + 4, 82, kRowHeight - 4}, kBelow);
    Add(txtTargetCost, {338, targetsTop, 130, kRowHeight}, kBelow);
    Add(lblChances, {484, targetsTop + 4, kWidth - 484 - kMargin, kRowHeight - 4},
        kBelow | kAnchorRight);
    Add(cmdCopyToClip, {kMargin, buttonsTop, 170, kButtonHeight}, kBelow);
    Add(cmdCalculate, {kMargin + 180, buttonsTop, 110, kButtonHeight}, kBelow);
    Add(cmdClose, {kWidth - kMargin - 100, buttonsTop, 100, kButtonHeight},
        kAnchorRight | kAnchorBottom);
}

void frmResults::ConnectHandlers() {
    for (OptionButton* choice : {&OptionDistribution, &OptionFactors, &OptionTasks, &OptionJoint,
                                 &OptionFinish, &OptionCost})
        choice->Click = [this] { ShowPage(); };
    txtTargetFinish.OnChange = txtTargetCost.OnChange = [this] { ShowChances(); };
    cmdCopyToClip.Click = [this] { CopyToClip(); };
    cmdCalculate.Click = [this] { Calculate(); };
    cmdClose.Click = [this] { Close(); };
}

void frmResults::ShowPage() {
    const bool tasks = OptionTasks.Selected();
    plotResult.SetVisible(!tasks);
    gridResults.SetVisible(!tasks);
    gridTasks.SetVisible(tasks);
    const bool either = OptionDistribution.Selected() || OptionFactors.Selected();
    OptionFinish.SetEnabled(either);
    OptionCost.SetEnabled(either);
    cmdCalculate.SetVisible(OptionFactors.Selected() && !Costs() && calculator_);
    if (OptionDistribution.Selected()) ShowDistribution();
    if (OptionFactors.Selected()) ShowFactors();
    if (OptionJoint.Selected()) ShowJoint();
}

void frmResults::ShowDistribution() {
    Fill(gridResults, DistributionTable(results_.results));
    plotResult.SetPainter([this, measure = Measure()](int width, int height) {
        return ResultDrawing(results_, measure, width, height);
    });
}

void frmResults::ShowFactors() {
    const std::optional<Priorities>& costs = Costs();
    Priorities none;
    none.question.outcome = Measure();
    Fill(gridResults, FactorTable(costs ? *costs : none));
    plotResult.SetPainter([this, &costs](int width, int height) {
        return costs ? FactorDrawing(*costs, width, height)
                     : Sentence(calculator_ ? kMayCalculate : kMayNotCalculate, width, height);
    });
}

void frmResults::ShowJoint() {
    Fill(gridResults, JointTable(results_.results));
    plotResult.SetPainter([this](int width, int height) {
        return JointDrawing(results_, txtTargetFinish.Text(), txtTargetCost.Text(), width, height);
    });
}

void frmResults::ShowChances() {
    lblChances.SetCaption(
        TargetText(results_.results, txtTargetFinish.Text(), txtTargetCost.Text()));
    if (OptionJoint.Selected()) plotResult.Repaint();
}

void frmResults::CopyToClip() {
    kestrel::TrappedAndTold(desktop_, "The table could not be copied.", [this] {
        bool leadingLine = false;
        kestrel::CopyGridToClipboard(desktop_, OptionTasks.Selected() ? gridTasks : gridResults,
                                     leadingLine);
    });
}

void frmResults::Calculate() {
    kestrel::TrappedAndTold(desktop_, "What each risk factor costs could not be calculated.",
                            [this] { Costs() = calculator_(Measure()); });
    ShowPage();
    if (Costs()) gridResults.SetFocus();  // the button that had the keyboard is gone
}

}  // namespace refhost
