#include "refhost/cli/Commands.h"
#include "refhost/cli/Session.h"

namespace refhost {

void Import(const Arguments& arguments) {
    const auto target = arguments.Option("-o");
    if (!target) throw UsageError("-o PLAN is missing");
    Session session(arguments.Positional(0));
    session.SavePlan(*target);
}

}  // namespace refhost
