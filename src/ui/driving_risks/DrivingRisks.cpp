#include "ui/driving_risks/DrivingRisks.h"

#include <algorithm>
#include <cstddef>

#include "base/Checked.h"
#include "base/NumberText.h"

namespace kestrel::ui {
namespace {

constexpr Colour kBlack = 0x000000, kRed = 0x0000FF;
constexpr double kNeverAnalysed = 100;

enum Column { kId, kDescription, kImportance, kSortKey, kColumns };

std::string ImportanceText(double value) { return FixedText(value * 100, 2) + "%"; }

void LayOut(Grid& grid) {
    grid.Clear(kColumns, 1, false);
    grid.SetText(0, kId, "ID");
    grid.SetText(0, kDescription, "Description");
    grid.SetText(0, kImportance, "Importance");
    // Of the width beside the scroll bar, so that all three columns stay in sight.
    const int width = grid.Bounds().width - grid.Geometry().scrollBarWidth;
    for (const int column : {kId, kImportance, kSortKey})
        grid.Geometry().SetColumnWidth(column, width / 6);
    grid.Geometry().SetColumnWidth(kDescription, width * 2 / 3);
    for (const int column : {kId, kImportance})
        grid.Geometry().SetColumnAlignment(column, Alignment::Right);
}

void SetUp(Chart& chart, const std::string& planName) {
    ChartAttributes& whole = chart.Attributes();
    whole.Set("PrintDocumentName", planName);
    whole.Set("TitleFontColor", kBlack);
    whole.Set("XYAxesReverse", true);
    whole.Set("TitleMargin", 1);
    whole.Set("EmptyText", "No risk factors to show.");

    ChartAxis& names = chart.XAxis(0);
    names.TickListClear();
    names.attributes.Set("ReverseScale", true);
    names.attributes.Set("TickListCustom", true);
    names.attributes.Set("GridLinesVisible", false);
    names.attributes.Set("LabelsFontColor", kBlack);
    chart.YAxis(0).attributes.Set("GridLinesVisible", false);

    for (int c = 0; c < chart.ChannelCount(); ++c) {
        ChartAttributes& channel = chart.Channel(c).attributes;
        channel.Set("TraceVisible", false);
        channel.Set("BarEnabled", true);
        channel.Set("VisibleInLegend", false);
        channel.Set("BarWidth", 0.5);
        channel.Set("BarPenUseChannelColor", false);
        channel.Set("BarPenColor", kBlack);
        channel.Set("BarBrushStyle", 0);
        channel.Set("BarPenStyle", 0);
        channel.Set("Layer", 0);
        channel.Set("ValueLabelsVisible", true);
    }
}

void SetTitles(Chart& chart, Measure measure) {
    const bool duration = measure == Measure::Duration;
    chart.Attributes().Set("TitleText", duration ? "Risk Factors Driving Project Schedule"
                                                 : "Risk Factors Driving Project Cost");
    chart.YAxis(0).attributes.Set("Title", duration ? "Correlation with the project finish"
                                                    : "Correlation with the project cost");
}

}  // namespace

double MeasureOf(const clsRiskFactor& factor, Measure measure) {
    const double value = measure == Measure::Duration ? factor.dblDurSens : factor.m_dCostSens;
    return value == kNeverAnalysed ? 0 : value;
}

void FillRankedGrid(Grid& grid, const Register& factors, Measure measure) {
    const RedrawPause pause(grid);
    LayOut(grid);
    for (std::size_t i = 0; i < factors.size(); ++i) {
        const double value = MeasureOf(*factors[i], measure);
        const int row = grid.AddRow();
        grid.SetText(row, kId, std::to_string(i + 1));
        grid.SetText(row, kDescription, factors[i]->strDescription);
        grid.SetText(row, kImportance, ImportanceText(value));
        grid.SetText(row, kSortKey, GeneralText(Checked(value * value)));
        for (int column = 0; column < kColumns; ++column) grid.SetEditable(row, column, false);
    }
    grid.Sort(kSortKey, SortOrder::Descending, SortAs::Number);
    grid.SetColumnCount(kSortKey);
}

void DrawRankedChart(Chart& chart, const Grid& grid, const Register& factors, Measure measure,
                     int count, const std::string& planName) {
    chart.ClearAllData();
    chart.Channel(0).attributes.Set("Color", kRed);
    SetUp(chart, planName);
    SetTitles(chart, measure);
    double smallest = 0, largest = 0;
    for (int rank = 1; rank <= count; ++rank) {
        const std::string& id = grid.Text(grid.FixedRows() + rank - 1, kId);
        const clsRiskFactor& factor = *factors.at(static_cast<std::size_t>(ParseNumber(id)) - 1);
        const double value = MeasureOf(factor, measure);
        chart.Channel(0).points.push_back({static_cast<double>(rank), value});
        chart.XAxis(0).TickListAdd(rank, id + " - " + factor.strDescription);
        smallest = std::min(smallest, value);
        largest = std::max(largest, value);
    }
    chart.XAxis(0).attributes.Set("Min", 0);
    chart.XAxis(0).attributes.Set("Span", count + 1);
    chart.YAxis(0).attributes.Set("Min", smallest);
    chart.YAxis(0).attributes.Set("Span", largest - smallest);
}

void DrawTornado(Chart& chart, const Register& factors, Measure measure, int count,
                 const std::string& planName) {
    Grid grid("ranking");
    FillRankedGrid(grid, factors, measure);
    DrawRankedChart(chart, grid, factors, measure,
                    std::clamp(count, 0, static_cast<int>(factors.size())), planName);
}

}  // namespace kestrel::ui
