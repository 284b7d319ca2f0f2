#pragma once

#include <windows.h>

#include "ui/controls/Form.h"

namespace kestrel::ui::win32 {

/// Shows forms as modal windows of the system, owned by the window that is active when a form
/// opens.
class WindowRunner : public FormRunner {
 public:
    /// `module` holds the program's resources and owns its window classes.
    explicit WindowRunner(HINSTANCE module) : module_(module) {}

    void ShowModal(Form& form) override;

 private:
    HINSTANCE module_;
};

}  // namespace kestrel::ui::win32
