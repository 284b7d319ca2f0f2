#pragma once

#include <memory>

#include "refhost/cli/Session.h"

namespace refhost {

/// The add-in as a command uses it, attached to the session's host as any host would have it.
/// What keeps a command from being done is raised as kestrel::HostError or kestrel::DataError.
class AddIn {
 public:
    virtual ~AddIn() = default;

    /// From now on it takes part in the host's analyses.
    virtual void Start() = 0;
    /// Its commands "save" and "load", on the files that the session's desktop names. Messages
    /// and questions go to that desktop.
    virtual void Save() = 0;
    virtual void Load() = 0;
};

/// The add-in as this system has it: linked into the program, or on Windows through COM. The
/// session must outlive it.
std::unique_ptr<AddIn> MakeAddIn(Session& session);

}  // namespace refhost
