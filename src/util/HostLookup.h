#pragma once

#include "base/Errors.h"

namespace kestrel {

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
