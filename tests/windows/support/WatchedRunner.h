#pragma once

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include "ui/win32/WindowRunner.h"
#include "windows/support/WindowUser.h"

namespace kestrel::test {

/// The runner of the system's windows, which lets a test see the forms that it shows.
class WatchedRunner : public ui::win32::WindowRunner {
 public:
    WatchedRunner() : WindowRunner(GetModuleHandleW(nullptr)) {}

    void ShowModal(ui::Form& form) override {
        forms_.push_back(&form);
        try {
            WindowRunner::ShowModal(form);
        } catch (...) {
            forms_.pop_back();
            throw;
        }
        forms_.pop_back();
    }

    /// The one in front.
    ui::Form& TheForm() const { return *forms_.at(forms_.size() - 1); }
    template <class T>
    T& Get(const std::string& name) const {
        return dynamic_cast<T&>(*TheForm().Find(name));
    }
    /// The control's window within the form's, which has to be the active one.
    HWND WindowOf(const std::string& name) const {
        const auto& controls = TheForm().Controls();
        for (std::size_t i = 0; i < controls.size(); ++i)
            if (controls[i]->Name() == name)
                return GetDlgItem(GetActiveWindow(), static_cast<int>(i) + 1);
        throw std::runtime_error("the form has no control " + name);
    }

 private:
    std::vector<ui::Form*> forms_;
};

}  // namespace kestrel::test
