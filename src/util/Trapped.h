#pragma once

#include <string>

#include "base/Errors.h"
#include "platform/Desktop.h"

/// The outermost frame of command and button handlers. Both traps end a handler on a host call
/// that fails (HostError) or a document or number that cannot be read (DataError) and answer
/// whether it came to its end. Programming faults and the lack of memory go on to the caller.
namespace kestrel {

inline void TellUndone(Desktop& desktop, const std::string& undone, const std::string& reason) {
    desktop.ShowMessage(reason.empty() ? undone : undone + "\r\n\r\n" + reason);
}

/// For what the user has asked for: a failure is told in one message box, `undone` first, the
/// error's own sentence below it. `undone` says what has not been done and, where work could seem
/// lost, that it is still there: "The changes could not be saved; they are still in this window."
/// The errors say which factor, cell or file, and what to do about it.
template <class Handler>
bool TrappedAndTold(Desktop& desktop, const std::string& undone, Handler&& handler) {
    try {
        handler();
        return true;
    } catch (const HostError& error) {
        TellUndone(desktop, undone, error.what());
    } catch (const DataError& error) {
        TellUndone(desktop, undone, error.what());
    }
    return false;
}

/// Ends quietly: only for what the user has not asked for and will not miss.
template <class Handler>
bool Trapped(Handler&& handler) {
    try {
        handler();
        return true;
    } catch (const HostError&) {
    } catch (const DataError&) {
    }
    return false;
}

/// What the look-up finds in one of the host's collections. Some hosts raise an error for what is
/// absent instead of answering nothing: it counts as nothing too.
template <class LookUp>
auto FoundOrNothing(LookUp lookUp) -> decltype(lookUp()) {
    try {
        return lookUp();
    } catch (const HostError&) {
        return nullptr;
    }
}

}  // namespace kestrel
