#pragma once

#include "ui/controls/Form.h"

namespace kestrel::ui {

/// Shows forms: the system's windows in the add-in, a script in tests.
class FormRunner {
 public:
    virtual ~FormRunner() = default;

    /// Opens the form and, unless it closed itself while it loaded, works it until it closes.
    /// Comes back at once where there is nobody to work it.
    virtual void ShowModal(Form& form) = 0;
};

}  // namespace kestrel::ui
