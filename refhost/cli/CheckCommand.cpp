#include <iostream>
#include <set>

#include "refhost/cli/CliDesktop.h"
#include "refhost/cli/Commands.h"
#include "refhost/cli/ImportArguments.h"
#include "refhost/cli/PlanCheck.h"
#include "refhost/cli/Session.h"
#include "refhost/files/PlanFile.h"

namespace refhost {

void Check(const Arguments& arguments) {
    CliDesktop desktop;
    const LoadedPlan loaded =
        ReadPlan(desktop, arguments.Positional(0), ReadImportOptions(arguments));
    RefuseImportOptions(arguments, loaded.imported);
    if (loaded.imported) TellImport(arguments.Positional(0), *loaded.imported);
    const std::vector<std::string> complaints = CheckPlan(desktop, loaded.plan);
    if (arguments.Has("--dates")) std::cout << MovedTasksText(loaded.imported->dates);
    for (const std::string& complaint : complaints) std::cout << complaint << "\n";
    if (complaints.empty()) std::cerr << "No complaints.\n";
}

}  // namespace refhost
