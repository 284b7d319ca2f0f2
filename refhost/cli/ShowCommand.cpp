#include "refhost/cli/ShowCommand.h"

#include <limits>

#include "base/NumberText.h"
#include "refhost/cli/Commands.h"
#include "refhost/cli/Session.h"
#include "refhost/cli/Table.h"
#include "refhost/results/FactorTracker.h"
#include "ui/controls/ChartGeometry.h"
#include "ui/controls/ChartSvg.h"

namespace refhost {
namespace {

using kestrel::ui::Measure;

std::string RankedTable(const FactorTracker::Factors& factors, Measure measure, int count) {
    kestrel::ui::Grid ranked("ranked");
    kestrel::ui::FillRankedGrid(ranked, factors, measure);
    Table table({{"Rank", Table::Align::Right},
                 {"ID", Table::Align::Right},
                 {"Risk factor", Table::Align::Left},
                 {measure == Measure::Cost ? "Cost" : "Finish", Table::Align::Right}});
    for (int row = 1; row < ranked.RowCount() && row <= count; ++row)
        table.Add(
            {std::to_string(row), ranked.Text(row, 0), ranked.Text(row, 1), ranked.Text(row, 2)});
    return table.Text();
}

}  // namespace

std::string TornadoSvg(const kestrel::ui::Register& factors, const std::string& planName,
                       Measure measure, int count, const std::string& axis) {
    kestrel::ui::Chart chart("plotDur");
    kestrel::ui::DrawTornado(chart, factors, measure, count, planName);
    if (!axis.empty()) chart.YAxis(0).attributes.Set("Title", axis);
    const kestrel::ui::ChartSize size = kestrel::ui::ComfortableSize(chart);
    return kestrel::ui::ChartSvgText(chart, size.width, size.height);
}

void Show(const Arguments& arguments, Outputs& outputs) {
    const auto top = arguments.Number("--top", 0, std::numeric_limits<std::int32_t>::max());
    Session session(arguments.Word("PLAN"), outputs);
    const auto factors = FactorTracker::ReadRegister(session.Host(), session.Desktop());
    const int held = static_cast<int>(factors.size());
    const int count =
        top ? std::min(static_cast<int>(*top), held) : std::min(kDefaultTopRisks, held);
    const Measure measure = arguments.Has("--cost") ? Measure::Cost : Measure::Duration;
    if (!session.Plan().ResultsUpToDate())
        TellError(
            "The risk analysis is out of date; run 'kestrel analyse' with --save to update it.");
    if (auto* chart = outputs.Find("--chart"))
        chart->Write(TornadoSvg(factors, session.Plan().Name(), measure, count));
    outputs.Tell(factors.empty() ? "The plan holds no risk factors.\n"
                                 : RankedTable(factors, measure, count));
}

}  // namespace refhost
