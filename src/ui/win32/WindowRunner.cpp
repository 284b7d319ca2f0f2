#include "ui/win32/WindowRunner.h"

namespace kestrel::ui::win32 {

void WindowRunner::ShowModal(Form& form) {
    form.Open();
    static_cast<void>(module_);
    form.Close();
}

}  // namespace kestrel::ui::win32
