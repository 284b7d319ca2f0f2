#include <iostream>

#include "refhost/cli/Commands.h"
#include "refhost/cli/ImportArguments.h"
#include "refhost/cli/Session.h"

namespace refhost {

    void Import(const Arguments& arguments) {
        const auto target = arguments.Option("-o");
        if (!target) throw UsageError("-o PLAN is missing");
        Session session(arguments.Positional(0), ReadImportOptions(arguments));
        RefuseImportOptions(arguments, session.Imported());
        session.SavePlan(*target);
        if (arguments.Has("--dates"))
            (*target == "-" ? std::cerr : std::cout) << MovedTasksText(session.Imported()->dates);
    }

}  // namespace refhost
