#include "refhost/cli/Session.h"

#include <iostream>

#include "base/Errors.h"
#include "refhost/cli/Output.h"
#include "refhost/cli/System.h"

namespace refhost {

void TellLeftOut(const std::string& path, const std::vector<LeftOut>& leftOut) {
    for (const LeftOut& kind : leftOut)
        std::cerr << path << ": not carried over: " << kind.what << " (" << kind.count << ")\n";
}

Session::Session(const std::string& planPath)
    : planPath_(planPath), host_(settings_, InstallationFolder()) {
    LoadedPlan loaded = ReadPlan(desktop_, planPath);
    TellLeftOut(planPath, loaded.leftOut);
    try {
        host_.Open(std::make_shared<HostPlan>(std::move(loaded.plan)));
    } catch (const kestrel::DataError& error) {
        throw kestrel::DataError(planPath + ": " + error.what());
    }
}

void Session::SavePlan(const std::string& path) {
    WriteOutput(path, WritePlan(Plan().Live().Snapshot()));
}

}  // namespace refhost
