#pragma once

#include "host/HostModel.h"
#include "windows/support/ScriptedDispatch.h"

namespace kestrel::test {

/// A host's object model (a FakeHost's, say) as a tree of scripted objects, so that the add-in's
/// calls go out through Automation and come in again here.
ComPtr<ScriptedDispatch> ShowApplication(ScriptPtr script, host::ApplicationPtr application);
ComPtr<ScriptedDispatch> ShowPlan(ScriptPtr script, host::PlanPtr plan);

}  // namespace kestrel::test
