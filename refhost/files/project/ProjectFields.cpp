#include "refhost/files/project/ProjectFields.h"

#include <algorithm>
#include <set>
#include <utility>

namespace refhost {
namespace {

/// The number of a task's text field, 1 to 30; 0 for any other field. Identifiers of the
/// interchange format: the first five fields alternate with custom starts and finishes.
std::int64_t TextFieldNumber(std::int64_t id) {
    constexpr std::int64_t kText1 = 188743731;
    constexpr std::int64_t kText6 = 188743746;
    constexpr std::int64_t kText11 = 188743997;
    if (id >= kText1 && id < kText1 + 15 && (id - kText1) % 3 == 0) return (id - kText1) / 3 + 1;
    if (id >= kText6 && id < kText6 + 5) return id - kText6 + 6;
    if (id >= kText11 && id < kText11 + 20) return id - kText11 + 11;
    return 0;
}

}  // namespace

ProjectFields::ProjectFields(const ProjectNode& project) {
    for (const ProjectNode& field : project.Items("ExtendedAttributes", "ExtendedAttribute")) {
        const std::int64_t number = TextFieldNumber(field.Integer("FieldID").value_or(0));
        const std::string alias = field.Word("Alias");
        if (number != 0 && !alias.empty()) Define(number, alias);
        for (const ProjectNode& entry : field.Items("ValueList", "Value"))
            byField_.emplace(std::pair(number, entry.Word("ID")), entry.Text("Value"));
    }
    ReadLists(project);
}

void ProjectFields::ReadLists(const ProjectNode& project) {
    std::set<std::string> ambiguous;
    for (const ProjectNode& list : project.Items("OutlineCodes", "OutlineCode")) {
        const std::int64_t number = TextFieldNumber(list.Integer("FieldID").value_or(0));
        for (const ProjectNode& entry : list.Items("Values", "Value")) {
            const std::string id = entry.Word("ValueID");
            const std::string text = entry.Text("Value");
            if (number != 0) byField_.emplace(std::pair(number, id), text);
            byGuid_.emplace(entry.Word("FieldGUID"), text);
            if (!byId_.emplace(id, text).second) ambiguous.insert(id);
        }
    }
    for (const std::string& id : ambiguous) byId_.erase(id);
}

std::string ProjectFields::Looked(const ProjectNode& attribute, std::int64_t number) const {
    const std::string id = attribute.Word("ValueID");
    const std::string guid = attribute.Word("ValueGUID");
    if (const auto found = byGuid_.find(guid); !guid.empty() && found != byGuid_.end())
        return found->second;
    if (const auto found = byField_.find({number, id}); found != byField_.end())
        return found->second;
    const auto found = byId_.find(id);
    return found == byId_.end() ? std::string() : found->second;
}

NamedTexts ProjectFields::ValuesOf(const ProjectNode& task, LeftOutList& leftOut) {
    NamedTexts values;
    for (const ProjectNode& attribute : task.Children("ExtendedAttribute")) {
        const std::int64_t number = TextFieldNumber(attribute.Integer("FieldID").value_or(0));
        leftOut.AddIf(number == 0, "values of custom fields other than text");
        if (number == 0) continue;
        std::string value = attribute.Text("Value");
        if (value.empty()) {
            value = Looked(attribute, number);
            const bool names = attribute.Says("ValueID") || attribute.Says("ValueGUID");
            leftOut.AddIf(value.empty() && names, "values from lists that the file does not hold");
        }
        if (value.empty()) continue;
        if (!names_.contains(number)) Define(number, "Text" + std::to_string(number));
        SetNamedText(values, names_.at(number), value);
    }
    return values;
}

void ProjectFields::Define(std::int64_t number, const std::string& alias) {
    std::string name = alias;
    const auto taken = [this, &name] {
        return std::any_of(fields_.begin(), fields_.end(),
                           [&name](const UserField& field) { return field.name == name; });
    };
    // Two fields of one alias would be one field in a plan.
    if (taken()) name += " (Text" + std::to_string(number) + ")";
    if (!names_.emplace(number, name).second || taken()) return;
    fields_.push_back({name, 1});
}

}  // namespace refhost
