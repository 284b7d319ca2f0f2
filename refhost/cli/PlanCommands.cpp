#include <iostream>

#include "refhost/cli/Commands.h"
#include "refhost/cli/ImportArguments.h"
#include "refhost/cli/Session.h"

namespace refhost {

void Import(const Arguments& arguments, Outputs& outputs) {
    Session session(arguments.Word("PROJECT"), outputs, ReadImportOptions(arguments));
    RefuseImportOptions(arguments, session.Imported());
    session.SavePlan(*outputs.Find("-o"));
    if (arguments.Has("--dates")) outputs.Tell(MovedTasksText(session.Imported()->dates));
}

}  // namespace refhost
