#include <iostream>
#include <set>

#include "refhost/cli/CliDesktop.h"
#include "refhost/cli/Commands.h"
#include "refhost/cli/PlanCheck.h"
#include "refhost/cli/Session.h"
#include "refhost/files/PlanFile.h"

namespace refhost {

void Check(const Arguments& arguments) {
    CliDesktop desktop;
    LoadedPlan loaded = ReadPlan(desktop, arguments.Positional(0));
    if (loaded.imported) TellImport(arguments.Positional(0), *loaded.imported);
    const std::vector<std::string> complaints = CheckPlan(desktop, std::move(loaded.plan));
    for (const std::string& complaint : complaints) std::cout << complaint << "\n";
    if (complaints.empty()) std::cerr << "No complaints.\n";
}

}  // namespace refhost
