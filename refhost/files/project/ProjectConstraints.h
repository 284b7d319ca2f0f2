#pragma once

#include <optional>

#include "refhost/files/project/ProjectLinks.h"
#include "refhost/files/project/ProjectSource.h"

namespace refhost {

/// Before which date the row at `index` must not start, if any. "Start no earlier than" holds as
/// such. What a forward pass cannot follow holds the task at its start in the file: other
/// constraints, manual scheduling, progress, levelling delays. So does, for what starts by itself,
/// the project's StartDate where other tasks start before it; and a task of another project
/// stands at its date. Raises kestrel::DataError, naming file and line, for a constraint that
/// cannot be read.
std::optional<Minute> ReadNoEarlierThan(const ProjectSource& source, const RowLinks& links,
                                        std::size_t index);

}  // namespace refhost
