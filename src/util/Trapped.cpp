#include "util/Trapped.h"

namespace kestrel {

void TellUndone(Desktop& desktop, const std::string& undone, const std::string& reason) {
    desktop.ShowMessage(reason.empty() ? undone : undone + "\r\n\r\n" + reason);
}

}  // namespace kestrel
