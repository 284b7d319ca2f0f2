#include "refhost/cli/AddIn.h"

namespace refhost {

void ScriptRunner::ShowModal(kestrel::ui::Form& form) {
    form.Open();
    if (form.IsOpen() && script_) script_(form);
    form.Close();
}

AddIn::AddIn(Session& session, ScriptRunner::Script script)
    : runner_(std::move(script)),
      dll_([&session] { return session.Application(); }, session.Desktop(), runner_) {}

}  // namespace refhost
