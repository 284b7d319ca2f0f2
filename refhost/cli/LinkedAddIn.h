#pragma once

#include <functional>

#include "host/clsKestrelDll.h"
#include "refhost/cli/AddIn.h"
#include "ui/controls/Form.h"

namespace refhost {

/// Works a form as the command line asks, without showing it. Without a script it closes at once.
class ScriptRunner : public kestrel::ui::FormRunner {
 public:
    using Script = std::function<void(kestrel::ui::Form&)>;
    explicit ScriptRunner(Script script = {}) : script_(std::move(script)) {}
    void ShowModal(kestrel::ui::Form& form) override;

 private:
    Script script_;
};

/// The add-in's code as part of the program.
class LinkedAddIn : public AddIn {
 public:
    explicit LinkedAddIn(Session& session, ScriptRunner::Script script = {});

    void Start() override { dll_.LaunchStartSchedulon(); }
    void Save() override;
    void Load() override;

    kestrel::clsKestrelDll& Dll() { return dll_; }

 private:
    Session& session_;
    ScriptRunner runner_;
    kestrel::clsKestrelDll dll_;
};

}  // namespace refhost
