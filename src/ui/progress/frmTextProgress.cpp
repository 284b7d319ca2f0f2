#include "ui/progress/frmTextProgress.h"

#include <utility>

#include "util/Trapped.h"

namespace kestrel::ui {

frmTextProgress::frmTextProgress(Desktop& desktop, std::function<void()> refresh)
    : Form("Progress", 380, 200), desktop_(desktop), refresh_(std::move(refresh)) {
    Add(lvwProgress, {10, 10, 360, 180}, kAnchorAll);
}

void frmTextProgress::Form_Load() {
    currentItem_ = 1;
    lvwProgress.SetHeaderWidth(lvwProgress.Bounds().width - 20);
}

void frmTextProgress::AddToDo(const std::string& text) { lvwProgress.Add(text); }

void frmTextProgress::Done(std::int32_t index, const std::string& text) {
    const std::int32_t item = index == 0 ? currentItem_ : index;
    lvwProgress.SetColour(item, kGrey);
    if (!text.empty()) lvwProgress.SetText(item, text);
    currentItem_ = index == 0 ? item + 1 : item;
}

void frmTextProgress::UpdateToDo(std::int32_t index, const std::string& text) {
    const std::int32_t item = index == 0 ? currentItem_ : index;
    lvwProgress.SetText(item, text);
    currentItem_ = item;
    if (refresh_) refresh_();
}

int frmTextProgress::AdjustedHeight(int height) {
    Trapped([&] { userLanguage_ = desktop_.UserLanguage(); });
    if (userLanguage_ != 1033 && userLanguage_ != 2057) return height;
    return height - 500 < 500 ? 200 : height - 500;
}

}  // namespace kestrel::ui
