#pragma once

#include <memory>

#include "refhost/engine/StoredResults.h"
#include "refhost/files/StrictElement.h"

/// The element of a plan file that holds what the last analysis found.
namespace refhost {

kestrel::XmlNode ResultsElement(const StoredResults& results);

/// The same figures, to the last bit. `plan` is what has been read of the plan, for what the
/// element leaves to it. Raises kestrel::DataError, naming file and line.
std::shared_ptr<const StoredResults> ReadResultsElement(const StrictElement& element,
                                                        const PlanData& plan);

}  // namespace refhost
