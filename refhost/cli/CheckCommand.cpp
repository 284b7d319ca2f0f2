#include "base/OneLine.h"
#include "refhost/cli/CliDesktop.h"
#include "refhost/cli/Commands.h"
#include "refhost/cli/ImportArguments.h"
#include "refhost/cli/PlanCheck.h"
#include "refhost/cli/Session.h"

namespace refhost {

void Check(const Arguments& arguments, Outputs& outputs) {
    CliDesktop desktop;
    LoadedPlan loaded = LoadPlan(desktop, arguments.Word("PLAN"), ReadImportOptions(arguments));
    RefuseImportOptions(arguments, loaded.imported);
    const std::vector<std::string> complaints = CheckPlan(desktop, std::move(loaded.plan));
    if (arguments.Has("--dates")) outputs.Tell(MovedTasksText(loaded.imported->dates));
    for (const std::string& complaint : complaints)
        outputs.Tell(kestrel::OneLine(complaint) + "\n");
    if (complaints.empty()) TellError("No complaints.");
}

}  // namespace refhost
