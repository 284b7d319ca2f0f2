#pragma once

#include "util/Errors.h"

namespace kestrel {

/// Runs the whole of a command or button handler: a host call that fails, or a document that
/// cannot be read, ends it quietly. Programming faults go on to the caller. Answers whether the
/// handler came to its end.
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

}  // namespace kestrel
