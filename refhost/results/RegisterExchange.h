#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Desktop.h"
#include "refhost/engine/ReferenceHost.h"

/// The register of the open plan as a table file (Csv.h, RegisterTable.h).
namespace refhost {

/// The register as a table; of a plan without factors its headings. Raises kestrel::DataError for
/// a register that cannot be read.
std::string RegisterAsTable(ReferenceHost& host, kestrel::Desktop& desktop, char separator);

/// Puts a table's factors in place of the plan's and answers what is wrong with the table, cell by
/// cell; then, as when it raises, nothing is changed. The sensitivities of factors that stay as
/// they are called stay. Raises kestrel::DataError for a file that is no table, and for one in
/// which a factor that some task carries has another number.
std::vector<std::string> ReplaceRegisterByTable(ReferenceHost& host, kestrel::Desktop& desktop,
                                                std::string_view bytes);

}  // namespace refhost
