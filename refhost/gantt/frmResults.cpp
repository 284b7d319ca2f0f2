#include "refhost/gantt/frmResults.h"

#include "util/Trapped.h"
#include "util/modGridCopy.h"

namespace refhost {
namespace {

using namespace kestrel::ui;

constexpr int kWidth = 1040, kHeight = 520, kMargin = 10;
constexpr int kGridWidth = 390, kRowHeight = 24, kButtonHeight = 26;

}  // namespace

frmResults::frmResults(kestrel::Desktop& desktop, const PlanResults& results)
    : Form("Analysis Results", kWidth, kHeight), desktop_(desktop), results_(results) {
    PlaceControls();
    OptionFinish.Select();
    plotResult.Attributes().Set("PrintDocumentName", results.planName);
    FillGrid();
    DrawChart();
    OptionFinish.Click = OptionCost.Click = [this] { DrawChart(); };
    cmdCopyToClip.Click = [this] {
        kestrel::TrappedAndTold(desktop_, "The table could not be copied.", [this] {
            bool leadingLine = false;
            kestrel::CopyGridToClipboard(desktop_, gridResults, leadingLine);
        });
    };
    cmdClose.Click = [this] { Close(); };
    SetDefaultButton(cmdClose);
    SetCancelButton(cmdClose);
}

void frmResults::PlaceControls() {
    const int buttonsTop = kHeight - kMargin - kButtonHeight;
    const int bodyTop = 2 * kMargin + kRowHeight;
    const int bodyHeight = buttonsTop - kMargin - bodyTop;
    const int gridLeft = kWidth - kMargin - kGridWidth;
    Add(OptionFinish, {kMargin, kMargin, 90, kRowHeight});
    Add(OptionCost, {kMargin + 100, kMargin, 90, kRowHeight});
    Add(plotResult, {kMargin, bodyTop, gridLeft - 2 * kMargin, bodyHeight}, kAnchorAll);
    Add(gridResults, {gridLeft, bodyTop, kGridWidth, bodyHeight},
        kAnchorTop | kAnchorRight | kAnchorBottom);
    Add(cmdCopyToClip, {kMargin, buttonsTop, 170, kButtonHeight}, kAnchorLeft | kAnchorBottom);
    Add(cmdClose, {kWidth - kMargin - 100, buttonsTop, 100, kButtonHeight},
        kAnchorRight | kAnchorBottom);
}

void frmResults::FillGrid() {
    const RedrawPause pause(gridResults);
    gridResults.Clear(3, 1, false);
    gridResults.SetText(0, 0, "Result");
    gridResults.SetText(0, 1, "Finish");
    gridResults.SetText(0, 2, "Cost");
    for (const ResultRow& result : ResultRows(results_.results)) {
        const int row = gridResults.AddRow();
        gridResults.SetText(row, 0, result.name);
        gridResults.SetText(row, 1, result.finish);
        gridResults.SetText(row, 2, result.cost);
        for (int column = 0; column < 3; ++column) gridResults.SetEditable(row, column, false);
    }
    gridResults.Geometry().headerHeight = 24;
    for (const auto& [column, width] : {std::pair{0, 130}, std::pair{1, 120}, std::pair{2, 120}})
        gridResults.Geometry().SetColumnWidth(column, width);
    for (const int column : {1, 2})
        gridResults.Geometry().SetColumnAlignment(column, Alignment::Right);
}

void frmResults::DrawChart() {
    const ResultMeasure measure =
        OptionFinish.Selected() ? ResultMeasure::Finish : ResultMeasure::Cost;
    plotResult.SetPainter([this, measure](int width, int height) {
        return ResultDrawing(results_, measure, width, height);
    });
}

}  // namespace refhost
