#include "refhost/results/ReportPage.h"

#include <algorithm>

#include "base/NumberText.h"
#include "refhost/charts/FigureText.h"
#include "refhost/charts/FinishDistribution.h"
#include "refhost/results/Html.h"
#include "refhost/results/PriorityTexts.h"
#include "refhost/results/ReportAssumptionTables.h"
#include "refhost/results/ReportStyle.h"
#include "ui/controls/ChartGeometry.h"
#include "ui/controls/ChartSvg.h"
#include "ui/driving_risks/DrivingRisks.h"

namespace refhost {
namespace {

using kestrel::FixedText;

constexpr int kChartWidth = 440;
constexpr std::size_t kMostTasks = 20;
constexpr int kMostRisks = 12;

std::string Day(double serial) { return SerialText(serial).substr(0, 10); }
std::string Percent(double share) { return FixedText(share * 100, 1) + "%"; }
std::string Correlation(double value) { return FixedText(value, 3); }

std::string Section(const std::string& heading) { return "<h2>" + heading + "</h2>\n"; }
std::string Paragraph(const std::string& html) { return "<p>" + html + "</p>\n"; }

/// The drawing as part of a page: without the declaration of a file of its own.
std::string Figure(const kestrel::ui::ChartDrawing& drawing) {
    const std::string svg = kestrel::ui::SvgText(drawing);
    return "<figure>" + svg.substr(svg.find("<svg")) + "</figure>\n";
}

std::string Pair(const std::string& left, const std::string& right) {
    return "<div class=\"pair\">\n" + left + right + "</div>\n";
}

/// Builds the page section by section.
class Page {
 public:
    explicit Page(const ReportContents& contents)
        : in_(contents),
          report_(contents.report),
          hasFactors_(!contents.finish.factors.empty()),
          hasCosts_(std::any_of(contents.results.cost.begin(), contents.results.cost.end(),
                                [](double cost) { return cost != 0; })) {}

    std::string Text() {
        const std::string name = HtmlText(report_.planName);
        html_ =
            "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
            "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
            "<title>Risk report: " +
            name + "</title>\n<style>" + kReportStyle + "</style>\n</head>\n<body>\n<h1>" +
            HtmlName(report_.planName) + "</h1>\n";
        html_ += "<p class=\"sub\">Risk report: " + std::to_string(report_.settings.iterations) +
                 " iterations, seed " + std::to_string(report_.settings.seed) + "</p>\n";
        AddResults();
        AddDistributions();
        AddPriorities();
        AddDrivers();
        AddCriticality();
        html_ += AssumptionTables(in_.plan, report_.factors, in_.assumptions);
        return html_ + "</body>\n</html>\n";
    }

 private:
    void AddResults() {
        html_ += Section("When it finishes and what it costs");
        std::vector<HtmlColumn> columns{{"", false}, {"Finish", true}, {"Contingency", true}};
        if (hasCosts_) columns.insert(columns.end(), {{"Cost", true}, {"Contingency", true}});
        HtmlTable table(columns);
        const double plannedFinish = DateSerial(report_.deterministicFinish);
        const auto add = [&](const std::string& label, double finish, double cost, bool planned) {
            std::vector<std::string> cells{
                label, SerialText(finish),
                planned ? "" : DifferenceText(Outcome::Finish, finish - plannedFinish)};
            if (hasCosts_) {
                cells.push_back(WholeMoneyText(cost));
                cells.push_back(planned ? "" : WholeMoneyText(cost - report_.deterministicCost));
            }
            table.Add(cells);
        };
        add("As planned", plannedFinish, report_.deterministicCost, true);
        add("Mean", report_.finish.mean, report_.cost.mean, false);
        for (const double percentile : Percentiles())
            add(PercentileName(percentile), At(in_.results.finish, percentile),
                At(in_.results.cost, percentile), false);
        html_ += table.Text();
        const Target kept = ChancesOf(in_.results, std::nullopt, std::nullopt);
        html_ += Paragraph(
            "P80 is the date, or the sum, that eight of ten iterations do not exceed; "
            "the contingency is what it lies above the plan, in calendar days and "
            "money.");
        html_ += Paragraph("The planned finish is kept in " + Percent(kept.chanceFinish) +
                           " of the iterations" +
                           (hasCosts_ ? ", the planned cost in " + Percent(kept.chanceCost) +
                                            ", both in " + Percent(kept.chanceBoth)
                                      : std::string()) +
                           "." + (hasCosts_ ? "" : " The plan holds no costs."));
    }

    std::vector<double> Percentiles() const {
        std::vector<double> percentiles{10, 50, 80, 90};
        const double asked = in_.finish.question.percentile;
        const auto place = std::lower_bound(percentiles.begin(), percentiles.end(), asked);
        if (place == percentiles.end() || *place != asked) percentiles.insert(place, asked);
        return percentiles;
    }
    static double At(std::vector<double> values, double percentile) {
        std::sort(values.begin(), values.end());
        return Percentile(values, percentile / 100);
    }

    void AddDistributions() {
        html_ += Section(hasFactors_ ? "With and without the risk factors" : "Distribution");
        const auto context = [&](double planned, std::vector<double> without) {
            std::sort(without.begin(), without.end());
            if (!hasFactors_) without.clear();
            return DistributionContext{planned, std::move(without)};
        };
        const std::string finish = Figure(FinishDistribution(
            in_.results.finish, "Finish", Day, kChartWidth, 420,
            context(DateSerial(report_.deterministicFinish), in_.without.finish)));
        html_ += Pair(finish, hasCosts_ ? Figure(CostDistribution(
                                              in_.results.cost, "Cost", kChartWidth, 420,
                                              context(report_.deterministicCost, in_.without.cost)))
                                        : "");
    }

    void AddPriorities() {
        html_ += Section("What each risk factor costs");
        if (!hasFactors_) {
            html_ += Paragraph(
                "No task carries a risk factor; only the tasks' own distributions "
                "count.");
            return;
        }
        html_ += Paragraph(
            "The same analysis, draw for draw, in which a factor never occurs. The "
            "staircase takes away one factor after the other, each time the one that "
            "saves most of those left; the bars below take away one at a time. What "
            "single factors save does not add up where they act together.");
        html_ += Pair(Steps(in_.finish, "Finish"), hasCosts_ ? Steps(in_.cost, "Cost") : "");
        AddSavings();
    }

    static std::string Steps(const Priorities& priorities, const char* title) {
        Staircase chart = PriorityStaircase(priorities);
        chart.title = title;
        return Figure(DrawStaircase(chart, kChartWidth));
    }

    void AddSavings() {
        const std::string percentile = PercentileName(in_.finish.question.percentile);
        std::vector<HtmlColumn> columns{{"ID", true},
                                        {"Risk factor", false},
                                        {percentile + " finish without it", true},
                                        {"Saved", true}};
        if (hasCosts_)
            columns.insert(columns.end(),
                           {{percentile + " cost without it", true}, {"Saved", true}});
        HtmlTable table(columns);
        for (std::size_t i = 0; i < in_.finish.factors.size(); ++i) {
            const FactorCost& finish = in_.finish.factors[i];
            const FactorCost& cost = in_.cost.factors[i];
            std::vector<std::string> cells{std::to_string(finish.id), HtmlName(finish.name),
                                           SerialText(finish.without),
                                           DifferenceText(Outcome::Finish, finish.saved)};
            if (hasCosts_) {
                cells.push_back(WholeMoneyText(cost.without));
                cells.push_back(WholeMoneyText(cost.saved));
            }
            table.Add(cells);
        }
        html_ += table.Text();
    }

    kestrel::ui::ChartDrawing Tornado(kestrel::ui::Measure measure) const {
        kestrel::ui::Chart chart("tornado");
        kestrel::ui::DrawTornado(chart, WithAlignedSensitivities(report_.factors, report_.figures),
                                 measure, kMostRisks, report_.planName);
        chart.YAxis(0).attributes.Set("Title", "Correlation, one impact per iteration");
        return kestrel::ui::DrawingOf(
            chart, kChartWidth,
            std::min(kestrel::ui::ComfortableSize(chart).height, kChartWidth * 3 / 2));
    }

    void AddDrivers() {
        if (report_.factors.empty()) return;
        html_ += Section("What drives the plan");
        html_ += Paragraph(
            "Correlations of the factors' impacts with the finish and the cost, 1 at "
            "most. They rank by one impact per iteration. The figures that the plan "
            "stores, as in Driving Risks, take one impact at each visit of a task and "
            "come out near 0 for a factor that many tasks carry.");
        html_ += Pair(Figure(Tornado(kestrel::ui::Measure::Duration)),
                      hasCosts_ ? Figure(Tornado(kestrel::ui::Measure::Cost)) : "");
        HtmlTable table({{"ID", true},
                         {"Risk factor", false},
                         {"Finish", true},
                         {"Cost", true},
                         {"Finish, as in Driving Risks", true},
                         {"Cost, as in Driving Risks", true},
                         {"Occurred", true}});
        for (const std::size_t i : RankedBy(report_.figures, &FactorFigures::alignedDurSens)) {
            const kestrel::clsRiskFactor& factor = *report_.factors[i];
            const FactorFigures& figures = report_.figures[i];
            table.Add(
                {factor.strID, HtmlName(factor.strDescription), Correlation(figures.alignedDurSens),
                 Correlation(figures.alignedCostSens), Correlation(factor.dblDurSens),
                 Correlation(factor.m_dCostSens),
                 Percent(static_cast<double>(figures.occurrences) / report_.settings.iterations)});
        }
        html_ += table.Text();
    }

    void AddCriticality() {
        html_ += Section("The tasks that are critical most often");
        const std::vector<TaskShare> tasks = MostCritical(*report_.tasks, kMostTasks);
        if (tasks.empty()) {
            html_ += Paragraph("The plan holds no tasks.");
            return;
        }
        html_ += Paragraph(
            "How often each task decided when the plan finishes: in these iterations "
            "the plan would have ended later had the task begun later.");
        HtmlTable table({{"ID", false}, {"Task", false}, {"Critical", true}});
        for (const TaskShare& task : tasks)
            table.Add({HtmlName(task.id), HtmlName(task.name), Percent(task.criticality)});
        html_ += table.Text();
    }

    const ReportContents& in_;
    const Report& report_;
    const bool hasFactors_;
    const bool hasCosts_;
    std::string html_;
};

}  // namespace

std::string ReportPage(const ReportContents& contents) { return Page(contents).Text(); }

}  // namespace refhost
