#pragma once

#include "refhost/cli/AddIn.h"
#include "refhost/windows/console/AddInConnection.h"
#include "refhost/windows/console/DialogAnswerer.h"
#include "refhost/windows/console/SessionProgram.h"

namespace refhost {

/// The add-in as a command drives it on Windows: through COM, its dialogs and messages answered
/// by the session's desktop.
class ComAddIn : public AddIn {
 public:
    /// Raises kestrel::HostError when the add-in cannot be created.
    explicit ComAddIn(Session& session);

    void Start() override { connection_.Start(); }
    void Save() override;
    void Load() override;

    AddInConnection& Connection() { return connection_; }

 private:
    /// Calls the command, its file dialog answered by `path`, which messages call `name`.
    void RunCommand(const wchar_t* command, const std::string& path, const std::string& name);

    Session& session_;
    SessionProgram program_;
    DialogAnswerer answers_;  ///< also of messages in the middle of an analysis
    AddInConnection connection_;
};

}  // namespace refhost
