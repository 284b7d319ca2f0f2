#pragma once

#include <optional>
#include <string>

#include "refhost/engine/PlanData.h"

namespace refhost {

/// Adds a shift to those of a day, keeping them in order. A shift that does not end after it
/// starts, or overlaps another, is not added: answers the sentence that says so.
std::optional<std::string> AddShift(Shifts& shifts, const Shift& shift);

}  // namespace refhost
