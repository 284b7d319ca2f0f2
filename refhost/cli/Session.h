#pragma once

#include <string>

#include "refhost/cli/CliDesktop.h"
#include "refhost/cli/SettingsFile.h"
#include "refhost/engine/ReferenceHost.h"
#include "refhost/files/PlanFile.h"

namespace refhost {

/// One run of the command line on one plan: the file read, the host with the plan open.
class Session {
 public:
    /// Reads the plan or project file; what a project file held beyond a plan is listed on
    /// standard error. Raises kestrel::DataError.
    explicit Session(const std::string& planPath);

    ReferenceHost& Host() { return host_; }
    /// The host as an add-in holds it; valid as long as the session.
    host::ApplicationPtr Application() {
        return {&host_, [](auto*) {}};
    }
    HostPlan& Plan() { return *host_.OpenPlan(); }
    CliDesktop& Desktop() { return desktop_; }
    const std::string& PlanPath() const { return planPath_; }

    /// Writes the plan as it is now, atomically; "-" is standard output.
    void SavePlan(const std::string& path);

 private:
    std::string planPath_;
    CliDesktop desktop_;
    SettingsFile settings_;
    ReferenceHost host_;
};

/// Lists on standard error what a project file held that a plan does not.
void TellLeftOut(const std::string& path, const std::vector<LeftOut>& leftOut);

}  // namespace refhost
