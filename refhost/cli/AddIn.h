#pragma once

#include <functional>

#include "host/clsKestrelDll.h"
#include "refhost/cli/Session.h"
#include "ui/controls/FormRunner.h"

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

/// The add-in, attached to the session's host as any host would have it.
class AddIn {
 public:
    explicit AddIn(Session& session, ScriptRunner::Script script = {});

    kestrel::clsKestrelDll& Dll() { return dll_; }

 private:
    ScriptRunner runner_;
    kestrel::clsKestrelDll dll_;
};

}  // namespace refhost
