#include "util/modeHelp.h"

#include <stdexcept>

namespace kestrel {

void ShowHelp(host::Application& application, Desktop& desktop, const std::string& topic) {
    desktop.ShowHelpTopic(application.Path() + "\\Help.chm::/" + topic);
}

void ShowHelpOrTell(host::Application& application, Desktop& desktop, const std::string& topic) {
    try {
        ShowHelp(application, desktop, topic);
    } catch (const std::runtime_error&) {
        desktop.ShowMessage(
            "There was a problem opening the Risk Factors on-line help.\r\n"
            "Please contact Support for assistance.");
    }
}

}  // namespace kestrel
