#pragma once

#include <vector>

#include "refhost/engine/PlanData.h"
#include "refhost/files/project/ProjectSource.h"

namespace refhost {

/// Which ends of a row others hang on, and what its own links lack.
struct RowLinks {
    bool startDrives = false;
    bool finishDrives = false;
    bool zeroPercentLag = false;  ///< see MovedTask
};

/// Gives each task its links, except tasks of other projects, which keep their dates. Elapsed
/// lags are the working time that passes from the predecessor's date in the file on; percentage
/// lags that share of the predecessor's duration. Raises kestrel::DataError, naming file and
/// line, for types and lags that cannot be read.
std::vector<RowLinks> ReadLinks(const ProjectSource& source, std::vector<TaskData>& tasks);

}  // namespace refhost
