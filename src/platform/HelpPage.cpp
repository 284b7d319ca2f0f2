#include "platform/HelpPage.h"

#include <string_view>

namespace kestrel {

std::string HelpPage(const std::string& location) {
    constexpr std::string_view kMark = "::/";
    const auto mark = location.rfind(kMark);
    const auto folder = location.find_last_of("\\/", mark == location.npos ? mark : mark - 1);
    if (mark == location.npos || mark == 0 || folder == location.npos) return {};
    const std::string topic = location.substr(mark + kMark.size());
    if (topic.find_first_of("\\/:") != topic.npos || !topic.ends_with(".html")) return {};
    return location.substr(0, folder + 1) + "help" + location[folder] + topic;
}

}  // namespace kestrel
