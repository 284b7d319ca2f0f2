#include "refhost/windows/console/EmbeddedHost.h"

#include <windows.h>
#include <objbase.h>

#include <optional>

#include "base/Errors.h"
#include "platform/Files.h"
#include "platform/win32/Win32Desktop.h"
#include "refhost/engine/Analysis.h"
#include "refhost/files/PlanFile.h"
#include "refhost/system/SettingsFile.h"
#include "refhost/system/System.h"
#include "refhost/windows/automation/ActiveObject.h"
#include "refhost/windows/automation/ClassObject.h"

#include <Schedulon.h>

namespace refhost {
namespace {

/// A host without a window whose plans are files.
class EmbeddedHost : public automation::HostProgram {
 public:
    EmbeddedHost() : host_(settings_, InstallationFolder()) {}

    ReferenceHost& Host() { return host_; }

    void OpenPlan(const std::string& path) override {
        LoadedPlan loaded = ReadPlan(desktop_, path);
        auto plan = std::make_shared<HostPlan>(std::move(loaded.plan));
        host_.Open(plan);
        // A project file holds more than a plan, and is not to be overwritten by one.
        path_ = loaded.imported ? std::string() : path;
        saved_ = plan->Changes();
    }
    void SavePlan(HostPlan& plan, const std::string& path) override {
        if (path.empty() && path_.empty())
            throw kestrel::HostError("The plan '" + plan.Name() +
                                     "' has no file yet; name one to save it.");
        const std::string target = path.empty() ? path_ : path;
        kestrel::ReplaceWholeFile(target, WritePlan(plan.Snapshot()));
        path_ = target;
        saved_ = plan.Changes();
    }
    bool IsSaved(HostPlan& plan) override { return !path_.empty() && plan.Changes() == saved_; }
    void Analyse(const AnalysisSettings& settings) override { RunAnalysis(host_, settings); }
    bool Visible() override { return false; }
    void PutVisible(bool visible) override {
        if (visible) throw kestrel::HostError("This host has no window to show.");
    }
    void Quit() override { PostQuitMessage(0); }
    void Unused() override { PostQuitMessage(0); }

 private:
    kestrel::win32::Win32Desktop desktop_;
    SettingsFile settings_;
    ReferenceHost host_;
    std::string path_;         ///< of the open plan; empty when it has no file of its own
    std::uint64_t saved_ = 0;  ///< the plan's changes that this file holds
};

void ServeMessages() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace

void RunEmbedded() {
    EmbeddedHost program;
    const auto server = std::make_shared<automation::AutomationServer>(program.Host(), program);
    std::optional<automation::ActiveObject> listed;
    {
        automation::ClassObject offered(
            server, [&](IUnknown& application) { listed.emplace(application, CLSID_Application); });
        offered.Resume();
        ServeMessages();
    }
    listed.reset();
    server->Disconnect();
}

}  // namespace refhost
