#include "refhost/cli/PrioritiseCommand.h"

#include <algorithm>
#include <optional>
#include <thread>

#include "base/Errors.h"
#include "refhost/cli/AnalysisArguments.h"
#include "refhost/cli/Commands.h"
#include "refhost/cli/Json.h"
#include "refhost/cli/Progress.h"
#include "refhost/cli/Table.h"
#include "refhost/files/ValueText.h"
#include "refhost/results/FactorTracker.h"
#include "refhost/results/PriorityTexts.h"
#include "refhost/system/MuteDesktop.h"
#include "ui/controls/ChartSvg.h"

namespace refhost {
namespace {

constexpr int kChartWidth = 900;

std::string PrioritiesJson(const Priorities& found) {
    JsonWriter json;
    json.BeginObject().Key("plan").Text(found.planName);
    json.Key("iterations").Whole(std::int64_t{found.question.settings.iterations});
    json.Key("seed").Whole(found.question.settings.seed);
    json.Key("measure").Text(found.question.outcome == Outcome::Finish ? "finish" : "cost");
    json.Key("percentile").Double(found.question.percentile);
    json.Break().Key("deterministic").Double(found.planned);
    json.Key("all").Double(found.all).Key("none").Double(found.none);
    json.Break().Key("factors").BeginArray();
    for (const FactorCost& factor : found.factors) {
        json.Break().BeginObject().Key("id").Whole(std::int64_t{factor.id});
        json.Key("name").Text(factor.name).Key("without").Double(factor.without);
        json.Key("saved").Double(factor.saved).EndObject();
    }
    json.EndArray().Break().Key("sequence").BeginArray();
    for (const PriorityStep& step : found.sequence) {
        json.Break().BeginObject().Key("id").Whole(std::int64_t{step.id});
        json.Key("after").Double(step.after).Key("saved").Double(step.saved).EndObject();
    }
    json.EndArray().EndObject();
    return json.Result() + "\n";
}

std::string PrioritiesText(const Priorities& found) {
    const Outcome outcome = found.question.outcome;
    const std::string percentile = PercentileName(found.question.percentile);
    const auto text = [&](double figure) { return FigureText(outcome, figure); };
    const auto difference = [&](double figure) { return DifferenceText(outcome, figure); };

    Table levels({{"", Table::Align::Left}, {percentile, Table::Align::Right}});
    levels.Add({"With every risk factor", text(found.all)});
    levels.Add({"Without any", text(found.none)});
    levels.Add({"As planned, nothing uncertain", text(found.planned)});

    Table steps({{"Step", Table::Align::Right},
                 {"ID", Table::Align::Right},
                 {"Risk factor", Table::Align::Left},
                 {"Saved", Table::Align::Right},
                 {percentile + " then", Table::Align::Right}});
    for (const PriorityStep& step : found.sequence)
        steps.Add({std::to_string(&step - found.sequence.data() + 1), std::to_string(step.id),
                   FactorName(found, step.id), difference(step.saved), text(step.after)});

    Table singles({{"ID", Table::Align::Right},
                   {"Risk factor", Table::Align::Left},
                   {"Saved", Table::Align::Right},
                   {percentile + " without it", Table::Align::Right}});
    for (const FactorCost& factor : found.factors)
        singles.Add({std::to_string(factor.id), factor.name, difference(factor.saved),
                     text(factor.without)});

    std::string page = found.planName + ": what each risk factor costs, " +
                       std::to_string(found.question.settings.iterations) + " iterations, seed " +
                       std::to_string(found.question.settings.seed) + "\n\n" + levels.Text() + "\n";
    if (found.factors.empty()) return page + "No task carries a risk factor.\n";
    return page + "In sequence: each step takes away the factor that saves most of those left\n\n" +
           (found.sequence.empty() ? "No single factor saves anything.\n" : steps.Text()) +
           "\nOne at a time: the same analysis in which this factor alone never occurs\n\n" +
           singles.Text();
}

double PercentileOf(const Arguments& arguments) {
    const auto text = arguments.Option("--percentile");
    if (!text) return 80;
    const auto number = ReadNumber(*text);
    if (!number || *number < 0 || *number > 100)
        throw UsageError("'" + *text +
                         "' is no value for --percentile; give a number from 0 to 100");
    return *number;
}

/// With progress on a terminal; kestrel::DataError when the user cancels.
Priorities RunPrioritise(const PlanData& plan, const PriorityQuestion& question,
                         kestrel::Desktop& desktop) {
    std::optional<Progress> progress;
    Priorities found = Prioritise(
        plan, question, desktop, [] { return std::make_unique<MuteDesktop>(); },
        [&progress](std::int32_t done, std::int32_t atMost) {
            if (!progress) progress.emplace(atMost, 1);
            progress->Show(done);
            return !progress->CancelRequested();
        });
    if (found.cancelled)
        throw kestrel::DataError("The analyses were cancelled; nothing is written.");
    return found;
}

}  // namespace

PriorityQuestion QuestionOf(const Arguments& arguments, Session& session) {
    PriorityQuestion question;
    question.settings =
        SettingsOf(arguments, session.Plan().Data(),
                   FactorTracker::ReadRegister(session.Host(), session.Desktop()).size());
    question.outcome = arguments.Has("--cost") ? Outcome::Cost : Outcome::Finish;
    question.percentile = PercentileOf(arguments);
    const auto cores = std::max(1u, std::thread::hardware_concurrency());
    question.threads = static_cast<unsigned>(arguments.Number("--threads", 1, 256).value_or(cores));
    return question;
}

void PrioritiseFactors(const Arguments& arguments, Outputs& outputs) {
    Session session(arguments.Word("PLAN"), outputs);
    const PlanData plan = session.Plan().Snapshot();
    const Priorities found = RunPrioritise(plan, QuestionOf(arguments, session), session.Desktop());
    if (auto* json = outputs.Find("--json")) json->Write(PrioritiesJson(found));
    if (auto* chart = outputs.Find("--chart"))
        chart->Write(kestrel::ui::SvgText(DrawStaircase(PriorityStaircase(found), kChartWidth)));
    outputs.Tell(PrioritiesText(found));
}

}  // namespace refhost
