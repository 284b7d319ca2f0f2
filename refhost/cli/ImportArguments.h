#pragma once

#include <optional>
#include <string>

#include "refhost/cli/Arguments.h"
#include "refhost/files/ImportReport.h"

namespace refhost {

/// What --costs and --keep-dates say. Raises UsageError for another unit.
ImportOptions ReadImportOptions(const Arguments& arguments);

/// Raises UsageError when one of --costs, --keep-dates and --dates is given for a plan file, which
/// has nothing to do with them.
void RefuseImportOptions(const Arguments& arguments, const std::optional<ImportReport>& imported);

/// The tasks that moved, by size of the shift, as a text table.
std::string MovedTasksText(const DateComparison& dates);

}  // namespace refhost
