#include "util/modToolBox.h"

#include <stdexcept>
#include <tuple>

#include "base/Text.h"

namespace kestrel {

bool FileExists(Desktop& desktop, const std::string& path, bool showMessage) {
    if (path.empty()) return false;
    const bool exists = desktop.FileIsThere(path);
    if (!exists && showMessage) desktop.ShowMessage("The file '" + path + "' does not exist.");
    return exists;
}

std::string BrowseForFile(Desktop& desktop, const std::string& title,
                          std::vector<std::pair<std::string, std::string>> filters,
                          const std::string& initialFolder) {
    filters.emplace_back("All Files (*.*)", "*.*");
    std::string path;
    try {
        path = desktop.OpenFile({title, initialFolder, {}, std::move(filters)});
    } catch (const std::runtime_error&) {
        return {};
    }
    std::erase(path, '\0');
    return std::string(Trimmed(path, " "));
}

bool CheckHostVersion(host::Application& application, Desktop& desktop, std::int32_t major,
                      std::int32_t minor, std::int32_t revision, bool showMessage) {
    const auto actual = std::make_tuple(application.VersionMajor(), application.VersionMinor(),
                                        application.VersionRevision());
    const bool passes = actual >= std::make_tuple(major, minor, revision);
    if (!passes && showMessage)
        desktop.ShowMessage("This functionality requires Quillon Risk Analysis version " +
                            std::to_string(major) + "." + std::to_string(minor) + "." +
                            std::to_string(revision) +
                            " or later.\r\n\r\nPlease upgrade to the latest version or contact "
                            "your administrator.");
    return passes;
}

std::string GetListItem(std::string_view list, int index, std::string_view separator) {
    if (index < 1) return {};
    for (; index > 1; --index) {
        const auto found = separator.empty() ? list.npos : list.find(separator);
        if (found == list.npos) return {};
        list.remove_prefix(found + separator.size());
    }
    const auto end = separator.empty() ? list.npos : list.find(separator);
    return std::string(list.substr(0, end));
}

int CountListItems(std::string_view list, std::string_view separator) {
    int count = 1;
    if (separator.empty()) return count;
    for (auto found = list.find(separator); found != list.npos;
         found = list.find(separator, found + separator.size()))
        ++count;
    return count;
}

host::TaskPtr GetSelectedTask(host::Application& application) {
    const host::PlanPtr plan = application.ActivePlan();
    if (!plan) return nullptr;
    const auto view = plan->CurrentView();
    if (!view || view->TypeName() != "GanttChart") return nullptr;
    const std::int32_t row = view->CurrentRow();
    const auto tasks = plan->Tasks();
    // The view has empty rows below the last task, where the user may stand.
    return row >= 1 && row <= tasks->Count() ? tasks->Item(row) : nullptr;
}

}  // namespace kestrel
