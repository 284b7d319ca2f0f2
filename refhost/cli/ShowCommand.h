#pragma once

#include <string>

#include "ui/driving_risks/DrivingRisks.h"

namespace refhost {

/// How many factors a chart shows unless told otherwise.
inline constexpr int kDefaultTopRisks = 10;

/// The tornado chart of a register as an SVG document; `axis` names the correlations where they
/// are not those of the add-in.
std::string TornadoSvg(const kestrel::ui::Register& factors, const std::string& planName,
                       kestrel::ui::Measure measure, int count, const std::string& axis = "");

}  // namespace refhost
