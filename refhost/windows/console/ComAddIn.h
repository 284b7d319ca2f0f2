#pragma once

#include <memory>

#include "platform/win32/ComPtr.h"
#include "refhost/cli/AddIn.h"
#include "refhost/windows/automation/ActiveObject.h"
#include "refhost/windows/automation/AutomationServer.h"
#include "refhost/windows/console/AddInClass.h"
#include "refhost/windows/console/DialogAnswerer.h"
#include "refhost/windows/console/SessionProgram.h"

#include <optional>

namespace refhost {

/// The add-in in KestrelDll.dll, driven through COM: it gets the session's host as its site, or
/// finds it among the running objects, and talks to it through Automation. COM must be started
/// on this thread.
class ComAddIn : public AddIn {
 public:
    /// Raises kestrel::HostError when the add-in cannot be created.
    explicit ComAddIn(Session& session);
    ~ComAddIn() override;

    void Start() override;
    void Save() override;
    void Load() override;
    /// Any of its methods, by name.
    void Run(const wchar_t* method) { CallMethod(*addIn_, method); }

    /// Calls of the host's members that the add-in has made so far.
    std::uint64_t HostCalls() const { return server_->Calls(); }

 private:
    void OfferHost();
    /// Calls the command, its file dialog answered by `path`, which messages call `name`.
    void RunCommand(const wchar_t* command, const std::string& path, const std::string& name);

    Session& session_;
    SessionProgram program_;
    std::shared_ptr<automation::AutomationServer> server_;
    kestrel::win32::ComPtr<IDispatch> host_;
    std::optional<automation::ActiveObject> listed_;
    DialogAnswerer answers_;  ///< also of messages in the middle of an analysis
    kestrel::win32::ComPtr<IDispatch> addIn_;
    bool started_ = false;
};

}  // namespace refhost
