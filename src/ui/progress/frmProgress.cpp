#include "ui/progress/frmProgress.h"

#include <utility>

namespace kestrel::ui {

frmProgress::frmProgress(ProcessEvents processEvents)
    : Form("Calculating Risk Sensitivity", 380, 76), processEvents_(std::move(processEvents)) {
    Add(txtMessage, {10, 10, 360, 23}, kAnchorLeft | kAnchorTop | kAnchorRight);
    Add(ProgressBar1, {10, 43, 360, 23}, kAnchorLeft | kAnchorTop | kAnchorRight);
    txtMessage.SetReadOnly(true);
}

void frmProgress::SetPos(std::int32_t position) {
    ProgressBar1.SetValue(position);
    LetEventsIn();
}

void frmProgress::SetMessage(const std::string& message, std::int32_t position) {
    txtMessage.SetText(message);
    ProgressBar1.SetValue(position);
    LetEventsIn();
}

void frmProgress::SetProgressRange(std::int32_t maximum, const std::string& message) {
    txtMessage.SetText(message);
    ProgressBar1.SetRange(0, maximum);
    LetEventsIn();
}

void frmProgress::LetEventsIn() {
    if (processEvents_) processEvents_();
}

}  // namespace kestrel::ui
