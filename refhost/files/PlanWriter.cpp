#include <stdexcept>
#include <utility>

#include "refhost/files/PlanFile.h"
#include "refhost/files/ResultsElement.h"
#include "refhost/files/ValueText.h"

namespace refhost {
namespace {

using kestrel::XmlNode;

XmlNode Element(std::string name, std::vector<kestrel::XmlAttribute> attributes) {
    XmlNode node = XmlNode::Element(std::move(name));
    node.attributes = std::move(attributes);
    return node;
}

void AppendShifts(XmlNode& day, const Shifts& shifts) {
    for (const Shift& shift : shifts)
        day.Append(Element("Shift", {{"From", TimeText(shift.from)}, {"To", TimeText(shift.to)}}));
}

XmlNode CalendarElement(const Calendar& calendar) {
    XmlNode node = XmlNode::Element("Calendar");
    for (std::size_t day = 0; day < calendar.week.size(); ++day) {
        if (calendar.week[day].empty()) continue;
        XmlNode& child = node.Append(Element("Day", {{"Name", std::string(kWeekDayNames[day])}}));
        AppendShifts(child, calendar.week[day]);
    }
    for (const auto& [day, shifts] : calendar.exceptions) {
        XmlNode& child = node.Append(
            Element(shifts.empty() ? "Holiday" : "WorkingDay", {{"Date", DateText(day)}}));
        AppendShifts(child, shifts);
    }
    return node;
}

void AppendNamedTexts(XmlNode& parent, const char* element, const NamedTexts& texts) {
    for (const auto& [name, text] : texts)
        parent.Append(Element(element, {{"Name", name}})).Append(XmlNode::Text(text));
}

XmlNode AnalysisElement(const AnalysisSettings& settings) {
    XmlNode node = Element("Analysis", {{"Iterations", std::to_string(settings.iterations)},
                                        {"Seed", std::to_string(settings.seed)},
                                        {"RecalculateAll", BooleanText(settings.recalculateAll)}});
    if (settings.upToDate) node.SetAttribute("UpToDate", BooleanText(true));
    return node;
}

/// The task itself, without the tasks below it.
XmlNode TaskElement(const TaskData& task) {
    XmlNode node = Element("Task", {{"ID", task.id}});
    if (!task.uid.empty()) node.SetAttribute("UID", task.uid);
    node.SetAttribute("Name", task.name);
    node.SetAttribute("Type", std::to_string(task.type));
    if (task.type == kOrdinary) node.SetAttribute("Duration", std::to_string(task.duration));
    if (task.noEarlierThan) node.SetAttribute("NoEarlierThan", DateTimeText(*task.noEarlierThan));
    if (const auto& points = task.distribution)
        node.Append(Element("Distribution", {{"Shape", std::to_string(points->shape)},
                                             {"Minimum", RoundTripText(points->minimum)},
                                             {"MostLikely", RoundTripText(points->mostLikely)},
                                             {"Maximum", RoundTripText(points->maximum)}}));
    for (const Link& link : task.links)
        node.Append(Element(
            "Link", {{"From", link.from},
                     {"Type", std::string(kLinkTypeNames.at(static_cast<std::size_t>(link.type)))},
                     {"Lag", std::to_string(link.lag)}}));
    for (const CostEntry& item : task.costItems)
        node.Append(Element("CostItem", {{"Name", item.name}, {"Cost", RoundTripText(item.cost)}}));
    AppendNamedTexts(node, "UserValue", task.userValues);
    return node;
}

/// The task at `next` with everything below it; moves `next` behind them.
XmlNode TaskTree(const std::vector<TaskData>& tasks, std::size_t& next) {
    const std::size_t index = next++;
    XmlNode node = TaskElement(tasks[index]);
    while (next < tasks.size() && tasks[next].parent == static_cast<std::int32_t>(index))
        node.Append(TaskTree(tasks, next));
    return node;
}

XmlNode TasksElement(const std::vector<TaskData>& tasks) {
    XmlNode node = XmlNode::Element("Tasks");
    for (std::size_t next = 0; next < tasks.size();) {
        if (tasks[next].parent != -1)
            throw std::logic_error("tasks must stand in plan order, below their summaries");
        node.Append(TaskTree(tasks, next));
    }
    return node;
}

/// Puts each child element on a line of its own. Texts stay exactly as they are.
void Indent(XmlNode& node, const std::string& lineBreak) {
    if (node.children.empty() || !node.children.front().IsElement()) return;
    std::vector<XmlNode> children;
    children.reserve(node.children.size() * 2 + 1);
    for (XmlNode& child : node.children) {
        Indent(child, lineBreak + "  ");
        children.push_back(XmlNode::Text(lineBreak + "  "));
        children.push_back(std::move(child));
    }
    children.push_back(XmlNode::Text(lineBreak));
    node.children = std::move(children);
}

}  // namespace

std::string WritePlan(const PlanData& plan) {
    XmlNode root = Element(
        "Plan", {{"Version", "1"}, {"Name", plan.name}, {"Start", DateTimeText(plan.start)}});
    if (plan.calendar) root.Append(CalendarElement(*plan.calendar));
    if (!plan.texts.empty())
        AppendNamedTexts(root.Append(XmlNode::Element("Texts")), "Text", plan.texts);
    if (!plan.userFields.empty()) {
        XmlNode& fields = root.Append(XmlNode::Element("UserFields"));
        for (const UserField& field : plan.userFields)
            fields.Append(
                Element("UserField", {{"Name", field.name}, {"Type", std::to_string(field.type)}}));
    }
    root.Append(AnalysisElement(plan.analysis));
    root.Append(TasksElement(plan.tasks));
    if (plan.results) root.Append(ResultsElement(*plan.results));
    Indent(root, "\n");
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + kestrel::SerialiseXml(root) + "\n";
}

}  // namespace refhost
