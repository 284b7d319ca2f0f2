#include "refhost/files/ResultsElement.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "refhost/files/ValueText.h"

namespace refhost {
namespace {

using kestrel::XmlNode;

constexpr std::string_view kNumberWanted = "a number like 12000.5";
constexpr std::string_view kDateWanted = "a date with a time, like 2026-01-05T08:00:00";
constexpr const char* kMeasures[] = {"finish", "cost"};  // in the order of Outcome

XmlNode Element(const char* name, std::vector<kestrel::XmlAttribute> attributes) {
    XmlNode node = XmlNode::Element(name);
    node.attributes = std::move(attributes);
    return node;
}

double Number(const StrictElement& element, std::string_view attribute) {
    return element.Value(attribute, ReadNumber, kNumberWanted);
}

/// Whether the instant is one that a file can tell, as dates that are read are.
bool IsFileDate(Minute instant) {
    return instant >= kFirstFileDay * Minute{kMinutesPerDay} &&
           instant < (kLastFileDay + 1) * Minute{kMinutesPerDay};
}

/// A finish is a whole minute; it is written as minutes behind the planned one.
std::string MinutesText(double serial, Minute planned) {
    return std::to_string(std::llround(serial * kMinutesPerDay) - planned);
}

template <class Text>
void AppendSeries(XmlNode& parent, const char* name, const std::vector<double>& values,
                  const Text& text) {
    std::string list;
    for (const double value : values) {
        if (!list.empty()) list += ' ';
        list += text(value);
    }
    parent.Append(XmlNode::Element(name)).Append(XmlNode::Text(std::move(list)));
}

void AppendIterations(XmlNode& parent, const char* finish, const char* cost, Minute planned,
                      const AnalysisResults& found) {
    AppendSeries(parent, finish, found.finish,
                 [planned](double serial) { return MinutesText(serial, planned); });
    AppendSeries(parent, cost, found.cost, RoundTripText);
}

/// Reads numbers with single blanks between them, one per iteration.
template <class Read>
std::vector<double> ReadSeries(const StrictElement& parent, std::string_view name, std::size_t most,
                               const Read& read) {
    const auto element = parent.OnlyChild(name);
    if (!element) parent.Fail("element " + Quoted(name) + " in Results is missing; add it.");
    const std::string text = element->OnlyText({});
    std::vector<double> values;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find(' ', at), text.size());
        const std::string_view word = std::string_view(text).substr(at, end - at);
        const auto value = read(word);
        if (!value)
            element->Fail(
                Quoted(word) + " in " + std::string(name) +
                " cannot be used; remove the element Results and analyse the plan again.");
        values.push_back(static_cast<double>(*value));
        at = end + 1;
    }
    if (values.empty() || (most > 0 && values.size() != most))
        element->Fail("element " + Quoted(name) + " holds " + std::to_string(values.size()) +
                      " numbers, but needs one per iteration; remove the element Results and "
                      "analyse the plan again.");
    return values;
}

AnalysisResults ReadIterations(const StrictElement& parent, std::string_view finish,
                               std::string_view cost, std::size_t most, Minute plannedFinish,
                               double plannedCost) {
    AnalysisResults found;
    found.deterministicFinish = plannedFinish;
    found.deterministicCost = plannedCost;
    found.finish = ReadSeries(parent, finish, most, [plannedFinish](std::string_view text) {
        const auto minutes = ReadInteger<std::int32_t>(text);
        return minutes && IsFileDate(plannedFinish + *minutes)
                   ? std::optional(DateSerial(plannedFinish + *minutes))
                   : std::nullopt;
    });
    found.cost = ReadSeries(parent, cost, found.finish.size(), ReadNumber);
    return found;
}

XmlNode TasksElement(const StoredResults& results) {
    XmlNode node = XmlNode::Element("TaskResults");
    if (results.tasksEvery != 1) node.SetAttribute("Every", std::to_string(results.tasksEvery));
    for (const TaskResult& task : results.tasks) {
        XmlNode& child = node.Append(Element(
            "TaskResult", {{"ID", task.id}, {"Criticality", RoundTripText(task.criticality)}}));
        if (task.p50) child.SetAttribute("P50", DateTimeText(*task.p50));
        if (task.p80) child.SetAttribute("P80", DateTimeText(*task.p80));
    }
    return node;
}

std::optional<std::int32_t> ReadCount(std::string_view text) {
    const auto count = ReadInteger<std::int32_t>(text);
    return count && *count >= 1 ? count : std::nullopt;
}

void ReadTasks(const StrictElement& element, StoredResults& results) {
    element.Allow({"Every"}, {"TaskResult"});
    if (element.Has("Every"))
        results.tasksEvery = element.Value("Every", ReadCount, "a whole number from 1");
    for (const StrictElement& child : element.Children()) {
        child.Allow({"ID", "Criticality", "P50", "P80"}, {});
        TaskResult task;
        task.id = child.Required("ID");
        task.criticality = Number(child, "Criticality");
        if (child.Has("P50")) task.p50 = child.Value("P50", ReadDateTime, kDateWanted);
        if (child.Has("P80")) task.p80 = child.Value("P80", ReadDateTime, kDateWanted);
        results.tasks.push_back(std::move(task));
    }
}

XmlNode PrioritiesElement(const Priorities& costs) {
    XmlNode node =
        Element("FactorCosts", {{"Measure", kMeasures[static_cast<int>(costs.question.outcome)]},
                                {"Percentile", RoundTripText(costs.question.percentile)},
                                {"Planned", RoundTripText(costs.planned)},
                                {"All", RoundTripText(costs.all)},
                                {"None", RoundTripText(costs.none)}});
    for (const FactorCost& factor : costs.factors)
        node.Append(Element("Factor", {{"ID", std::to_string(factor.id)},
                                       {"Name", factor.name},
                                       {"Without", RoundTripText(factor.without)},
                                       {"Saved", RoundTripText(factor.saved)}}));
    for (const PriorityStep& step : costs.sequence)
        node.Append(Element("Step", {{"ID", std::to_string(step.id)},
                                     {"After", RoundTripText(step.after)},
                                     {"Saved", RoundTripText(step.saved)}}));
    return node;
}

std::int32_t ReadFactorId(const StrictElement& element) {
    return element.Value("ID", ReadInteger<std::int32_t>, "the number of a factor");
}

Priorities ReadPriorities(const StrictElement& element) {
    element.Allow({"Measure", "Percentile", "Planned", "All", "None"}, {"Factor", "Step"});
    Priorities costs;
    costs.question.outcome = element.Value(
        "Measure",
        [](std::string_view text) -> std::optional<Outcome> {
            if (text == kMeasures[0]) return Outcome::Finish;
            if (text == kMeasures[1]) return Outcome::Cost;
            return std::nullopt;
        },
        "finish or cost");
    costs.question.percentile = Number(element, "Percentile");
    costs.planned = Number(element, "Planned");
    costs.all = Number(element, "All");
    costs.none = Number(element, "None");
    for (const StrictElement& child : element.Children("Factor")) {
        child.Allow({"ID", "Name", "Without", "Saved"}, {});
        costs.factors.push_back({ReadFactorId(child), child.Required("Name"),
                                 Number(child, "Without"), Number(child, "Saved")});
    }
    for (const StrictElement& child : element.Children("Step")) {
        child.Allow({"ID", "After", "Saved"}, {});
        costs.sequence.push_back(
            {ReadFactorId(child), Number(child, "After"), Number(child, "Saved")});
        const auto isThis = [&](const FactorCost& f) { return f.id == costs.sequence.back().id; };
        if (std::none_of(costs.factors.begin(), costs.factors.end(), isThis))
            child.Fail("the Step has no Factor of its ID; remove the element FactorCosts.");
    }
    return costs;
}

}  // namespace

XmlNode ResultsElement(const StoredResults& results) {
    const AnalysisResults& found = results.results;
    XmlNode node = Element("Results", {{"When", DateTimeText(results.when)},
                                       {"Seed", std::to_string(results.settings.seed)},
                                       {"PlannedFinish", DateTimeText(found.deterministicFinish)},
                                       {"PlannedCost", RoundTripText(found.deterministicCost)}});
    AppendIterations(node, "Finish", "Cost", found.deterministicFinish, found);
    if (results.without)
        AppendIterations(node, "FinishWithoutFactors", "CostWithoutFactors",
                         found.deterministicFinish, *results.without);
    node.Append(TasksElement(results));
    for (const auto* costs : {&results.finishCosts, &results.costCosts})
        if (*costs) node.Append(PrioritiesElement(**costs));
    return node;
}

std::shared_ptr<const StoredResults> ReadResultsElement(const StrictElement& element,
                                                        const PlanData& plan) {
    element.Allow({"When", "Seed", "PlannedFinish", "PlannedCost"},
                  {"Finish", "Cost", "FinishWithoutFactors", "CostWithoutFactors", "TaskResults",
                   "FactorCosts"});
    auto results = std::make_shared<StoredResults>();
    const Minute finish = element.Value("PlannedFinish", ReadDateTime, kDateWanted);
    const double cost = Number(element, "PlannedCost");
    results->when = element.Value("When", ReadDateTime, kDateWanted);
    results->results = ReadIterations(element, "Finish", "Cost", 0, finish, cost);
    const std::size_t iterations = results->results.finish.size();
    results->settings = plan.analysis;
    results->settings.iterations = static_cast<std::int32_t>(iterations);
    results->settings.seed = element.Value("Seed", ReadInteger<std::uint64_t>,
                                           "a whole number from 0 to 18446744073709551615");
    if (element.OnlyChild("FinishWithoutFactors"))
        results->without = ReadIterations(element, "FinishWithoutFactors", "CostWithoutFactors",
                                          iterations, finish, cost);
    if (const auto tasks = element.OnlyChild("TaskResults")) ReadTasks(*tasks, *results);
    for (const StrictElement& child : element.Children("FactorCosts")) {
        Priorities costs = ReadPriorities(child);
        costs.planName = plan.name;
        costs.question.settings = results->settings;
        auto& place =
            costs.question.outcome == Outcome::Finish ? results->finishCosts : results->costCosts;
        if (place) child.Fail("second FactorCosts of the same measure; keep only one of them.");
        place = std::move(costs);
    }
    return results;
}

}  // namespace refhost
