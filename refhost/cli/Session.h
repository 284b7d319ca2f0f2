#pragma once

#include <optional>
#include <string>

#include "refhost/cli/CliDesktop.h"
#include "refhost/cli/SettingsFile.h"
#include "refhost/engine/ReferenceHost.h"
#include "refhost/files/PlanFile.h"

namespace refhost {

/// One run of the command line on one plan: the file read, the host with the plan open.
class Session {
 public:
    /// Reads the plan or project file; tells what became of a project file (TellImport). Raises
    /// kestrel::DataError.
    explicit Session(const std::string& planPath, const ImportOptions& options = {});

    ReferenceHost& Host() { return host_; }
    /// The host as an add-in holds it; valid as long as the session.
    host::ApplicationPtr Application() {
        return {&host_, [](auto*) {}};
    }
    HostPlan& Plan() { return *host_.OpenPlan(); }
    CliDesktop& Desktop() { return desktop_; }
    const std::string& PlanPath() const { return planPath_; }
    /// What became of a project file; nothing when the plan came from a plan file.
    const std::optional<ImportReport>& Imported() const { return imported_; }

    /// Writes the plan as it is now, atomically; "-" is standard output.
    void SavePlan(const std::string& path);

 private:
    std::string planPath_;
    std::optional<ImportReport> imported_;
    CliDesktop desktop_;
    SettingsFile settings_;
    ReferenceHost host_;
};

/// Tells on standard error what became of a project file: what a plan holds differently or not at
/// all, how money was read, and last how the plan's dates compare with the file's.
void TellImport(const std::string& path, const ImportReport& report);

}  // namespace refhost
