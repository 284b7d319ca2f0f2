#include "refhost/cli/Session.h"

#include <iostream>
#include <utility>

#include "base/Errors.h"
#include "refhost/cli/Output.h"
#include "refhost/cli/System.h"

namespace refhost {

void TellImport(const std::string& path, const ImportReport& report) {
    for (const LeftOut& kind : report.leftOut)
        std::cerr << path << ": "
                  << (kind.movesFigures ? "can move dates or money: " : "not carried over: ")
                  << kind.what << " (" << kind.count << ")\n";
    if (const std::string money = MoneyLine(report.money); !money.empty())
        std::cerr << path << ": " << money << "\n";
    std::cerr << path << ": " << DatesLine(report.dates) << "\n";
}

Session::Session(const std::string& planPath, const ImportOptions& options)
    : planPath_(planPath), host_(settings_, InstallationFolder()) {
    LoadedPlan loaded = ReadPlan(desktop_, planPath, options);
    if (loaded.imported) TellImport(planPath, *loaded.imported);
    imported_ = std::move(loaded.imported);
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
