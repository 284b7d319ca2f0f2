#pragma once

#include <optional>
#include <string>

#include "refhost/cli/CliDesktop.h"
#include "refhost/cli/Outputs.h"
#include "refhost/engine/ReferenceHost.h"
#include "refhost/files/PlanFile.h"
#include "refhost/system/SettingsFile.h"

namespace refhost {

/// The user's settings, but that a command may do without the file of default factors: it loads
/// the files that the command line names and no other.
class CommandSettings : public SettingsFile {
 public:
    bool ignoresDefaultFile = false;

    std::string Get(const std::string& application, const std::string& section,
                    const std::string& key, const std::string& fallback) override;
};

/// One run of the command line on one plan: the file read, the host with the plan open.
class Session {
 public:
    /// Reads the plan or project file, "-" being standard input; tells what became of a project
    /// file. Raises kestrel::DataError, and UsageError when a plan would replace a project file.
    Session(const std::string& planPath, const Outputs& outputs, const ImportOptions& options = {});

    ReferenceHost& Host() { return host_; }
    /// The host as an add-in holds it; valid as long as the session.
    host::ApplicationPtr Application() {
        return {&host_, [](auto*) {}};
    }
    HostPlan& Plan() { return *host_.OpenPlan(); }
    CliDesktop& Desktop() { return desktop_; }
    CommandSettings& Settings() { return settings_; }
    /// For messages.
    const std::string& PlanName() const { return planName_; }
    /// What became of a project file; nothing when the plan came from a plan file.
    const std::optional<ImportReport>& Imported() const { return imported_; }

    /// The plan as it is now.
    void SavePlan(Outputs::File& file) { file.Write(WritePlan(Plan().Snapshot())); }

 private:
    std::string planName_;
    std::optional<ImportReport> imported_;
    CliDesktop desktop_;
    CommandSettings settings_;
    ReferenceHost host_;
};

/// Reads a plan or project file as a session does.
LoadedPlan LoadPlan(CliDesktop& desktop, const std::string& path,
                    const ImportOptions& options = {});

/// The path as messages call it.
std::string InputName(const std::string& path);

}  // namespace refhost
