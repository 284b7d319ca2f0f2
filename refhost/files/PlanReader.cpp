#include "refhost/files/PlanReader.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "refhost/files/ResultsElement.h"
#include "refhost/files/ValueText.h"

namespace refhost {
namespace {

constexpr std::string_view kDateWanted =
    "a date from 1900 to 9999 with a time in whole minutes, like 2026-01-05T08:00:00";
constexpr std::string_view kNumberWanted = "a number like 12000.5";
constexpr std::string_view kBooleanWanted = "true or false";

template <typename Integer, Integer smallest>
std::optional<Integer> ReadAtLeast(std::string_view text) {
    const auto value = ReadInteger<Integer>(text);
    return value && *value >= smallest ? value : std::nullopt;
}

std::optional<std::int16_t> ReadTaskType(std::string_view text) {
    if (text == "0") return kOrdinary;
    if (text == "1") return kSummary;
    return std::nullopt;
}

std::optional<LinkType> ReadLinkType(std::string_view text) {
    const auto found = std::find(kLinkTypeNames.begin(), kLinkTypeNames.end(), text);
    if (found == kLinkTypeNames.end()) return std::nullopt;
    return static_cast<LinkType>(found - kLinkTypeNames.begin());
}

std::int32_t ReadDuration(const StrictElement& task) {
    return task.Value("Duration", ReadAtLeast<std::int32_t, 0>,
                      "whole working minutes from 0 to 2147483647");
}

ThreePoint ReadDistribution(const StrictElement& element) {
    element.Allow({"Shape", "Minimum", "MostLikely", "Maximum"}, {});
    const auto triangular = [](std::string_view text) {
        return text == "0" ? std::optional<std::int16_t>(std::int16_t{0}) : std::nullopt;
    };
    // Points out of order are read as they stand: the draw is defined for them.
    return {element.Value("Shape", triangular, "0, the triangular distribution"),
            element.Value("Minimum", ReadNumber, kNumberWanted),
            element.Value("MostLikely", ReadNumber, kNumberWanted),
            element.Value("Maximum", ReadNumber, kNumberWanted)};
}

Link ReadLink(const StrictElement& element) {
    element.Allow({"From", "Type", "Lag"}, {});
    Link link;
    link.from = element.Required("From");
    if (element.Has("Type")) link.type = element.Value("Type", ReadLinkType, "FS, SS, FF or SF");
    if (element.Has("Lag"))
        link.lag = element.Value("Lag", ReadInteger<std::int32_t>,
                                 "whole working minutes, negative for a lead");
    return link;
}

CostEntry ReadCostItem(const StrictElement& element) {
    element.Allow({"Name", "Cost"}, {});
    return {element.Required("Name"), element.Value("Cost", ReadNumber, kNumberWanted)};
}

/// The children called `name` as named texts. An empty text is the same as none.
NamedTexts ReadNamedTexts(const StrictElement& parent, std::string_view name) {
    NamedTexts texts;
    std::unordered_set<std::string> names;
    for (const StrictElement& child : parent.Children(name)) {
        std::string text = child.OnlyText({"Name"});
        const std::string& key = child.Required("Name");
        if (!names.insert(key).second)
            child.Fail("second " + std::string(name) + " named " + Quoted(key) +
                       "; keep only one of them.");
        if (!text.empty()) texts.emplace_back(key, std::move(text));
    }
    return texts;
}

std::vector<UserField> ReadUserFields(const StrictElement& element) {
    element.Allow({}, {"UserField"});
    std::vector<UserField> fields;
    std::unordered_set<std::string_view> names;
    for (const StrictElement& child : element.Children()) {
        child.Allow({"Name", "Type"}, {});
        UserField field;
        field.name = child.Required("Name");
        if (child.Has("Type"))
            field.type = child.Value("Type", ReadInteger<std::int16_t>, "1, the type of a text");
        if (!names.insert(child.Required("Name")).second)
            child.Fail("second UserField named " + Quoted(field.name) + "; keep only one of them.");
        fields.push_back(std::move(field));
    }
    return fields;
}

AnalysisSettings ReadAnalysis(const StrictElement& element) {
    element.Allow({"Iterations", "Seed", "RecalculateAll", "UpToDate"}, {});
    AnalysisSettings settings;
    if (element.Has("Iterations"))
        settings.iterations = element.Value("Iterations", ReadAtLeast<std::int32_t, 1>,
                                            "a whole number from 1 to 2147483647");
    if (element.Has("Seed"))
        settings.seed = element.Value("Seed", ReadInteger<std::uint64_t>,
                                      "a whole number from 0 to 18446744073709551615");
    if (element.Has("RecalculateAll"))
        settings.recalculateAll = element.Value("RecalculateAll", ReadBoolean, kBooleanWanted);
    if (element.Has("UpToDate"))
        settings.upToDate = element.Value("UpToDate", ReadBoolean, kBooleanWanted);
    return settings;
}

/// The task itself, without the tasks below it.
TaskData ReadTaskData(const StrictElement& element) {
    element.Allow({"ID", "UID", "Name", "Type", "Duration", "NoEarlierThan"},
                  {"Task", "Distribution", "Link", "CostItem", "UserValue"});
    TaskData task;
    task.id = element.Required("ID");
    if (task.id.empty()) element.Fail("attribute 'ID' of Task is empty; give the task an ID.");
    if (element.Has("UID")) task.uid = element.Required("UID");
    task.name = element.Required("Name");
    task.type = element.Value("Type", ReadTaskType, "0 for an ordinary task or 1 for a summary");
    // A summary's duration follows from its tasks, whatever stands here.
    if (task.type == kOrdinary)
        task.duration = ReadDuration(element);
    else if (element.Has("Duration"))
        ReadDuration(element);
    if (element.Has("NoEarlierThan"))
        task.noEarlierThan = element.Value("NoEarlierThan", ReadDateTime, kDateWanted);
    if (const auto distribution = element.OnlyChild("Distribution"))
        task.distribution = ReadDistribution(*distribution);
    for (const StrictElement& link : element.Children("Link")) task.links.push_back(ReadLink(link));
    for (const StrictElement& item : element.Children("CostItem"))
        task.costItems.push_back(ReadCostItem(item));
    task.userValues = ReadNamedTexts(element, "UserValue");
    return task;
}

class TaskReader {
 public:
    std::vector<TaskData> Read(const StrictElement& tasks) {
        tasks.Allow({}, {"Task"});
        for (const StrictElement& task : tasks.Children()) ReadTask(task, -1);
        // Only now, as a link may come from a task further down.
        for (const StrictElement& link : links_)
            if (const std::string& from = link.Required("From"); !ids_.contains(from))
                link.Fail("a Link comes from the task " + Quoted(from) +
                          ", which the plan does not have; correct From or remove the Link.");
        return std::move(tasks_);
    }

 private:
    void ReadTask(const StrictElement& element, std::int32_t parent) {
        TaskData task = ReadTaskData(element);
        task.parent = parent;
        if (!ids_.insert(element.Required("ID")).second)
            element.Fail("second Task with the ID " + Quoted(task.id) +
                         "; give each task an ID of its own.");
        for (const StrictElement& link : element.Children("Link")) links_.push_back(link);

        const std::vector<StrictElement> children = element.Children("Task");
        if (task.type == kOrdinary && !children.empty())
            children.front().Fail("the task " + Quoted(task.id) +
                                  " is ordinary but has a Task inside it; make it a summary "
                                  "(Type 1) or move the inner task out.");
        const auto index = static_cast<std::int32_t>(tasks_.size());
        tasks_.push_back(std::move(task));
        for (const StrictElement& child : children) ReadTask(child, index);
    }

    std::vector<TaskData> tasks_;
    std::unordered_set<std::string_view> ids_;  ///< in the document
    std::vector<StrictElement> links_;
};

}  // namespace

PlanData ReadPlanElement(const kestrel::XmlNode& root, const std::string& path) {
    const StrictElement element(root, path);
    if (root.name != "Plan" || !root.uri.empty())
        element.Fail("the root element is " + Quoted(root.name) +
                     "; choose a plan file (root 'Plan') or a project file in the XML interchange "
                     "format.");
    if (const std::string& version = element.Required("Version"); version != "1")
        element.Fail("the plan file has version " + Quoted(version) +
                     ", but only version 1 is known; save it as version 1 or use a newer program.");
    element.Allow({"Version", "Name", "Start"},
                  {"Calendar", "Texts", "UserFields", "Analysis", "Tasks", "Results"});

    PlanData plan;
    plan.name = element.Required("Name");
    plan.start = element.Value("Start", ReadDateTime, kDateWanted);
    if (const auto calendar = element.OnlyChild("Calendar"))
        plan.calendar = ReadCalendar(*calendar);
    if (const auto texts = element.OnlyChild("Texts")) {
        texts->Allow({}, {"Text"});
        plan.texts = ReadNamedTexts(*texts, "Text");
    }
    if (const auto fields = element.OnlyChild("UserFields"))
        plan.userFields = ReadUserFields(*fields);
    if (const auto analysis = element.OnlyChild("Analysis"))
        plan.analysis = ReadAnalysis(*analysis);
    const auto tasks = element.OnlyChild("Tasks");
    if (!tasks) element.Fail("element 'Tasks' in Plan is missing; add it.");
    plan.tasks = TaskReader().Read(*tasks);
    if (const auto results = element.OnlyChild("Results"))
        plan.results = ReadResultsElement(*results, plan);
    return plan;
}

}  // namespace refhost
