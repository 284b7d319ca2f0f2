#include "refhost/cli/LinkedAddIn.h"

#include "store/SaveLoadCommands.h"

namespace refhost {
namespace {

/// Without the add-in's own outermost frame, which would end a failed command without a word.
void RunUntrapped(Session& session, void (*command)(kestrel::modGlobals&)) {
    kestrel::modGlobals globals(session.Desktop());
    globals.application = session.Application();
    command(globals);
}

}  // namespace

void ScriptRunner::ShowModal(kestrel::ui::Form& form) {
    form.Open();
    if (form.IsOpen() && script_) script_(form);
    form.Close();
}

LinkedAddIn::LinkedAddIn(Session& session, ScriptRunner::Script script)
    : session_(session),
      runner_(std::move(script)),
      dll_([&session] { return session.Application(); }, session.Desktop(), runner_) {}

void LinkedAddIn::Save() { RunUntrapped(session_, kestrel::SaveRiskFactorsToFile); }

void LinkedAddIn::Load() { RunUntrapped(session_, kestrel::LoadRiskFactorsFromFile); }

}  // namespace refhost
