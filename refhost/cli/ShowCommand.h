#pragma once

#include <string>

#include "refhost/cli/Session.h"
#include "ui/driving_risks/DrivingRisks.h"

namespace refhost {

/// How many factors a chart shows unless told otherwise.
inline constexpr int kDefaultTopRisks = 10;

/// The tornado chart of the plan's register as it stands, as an SVG document.
std::string TornadoSvg(Session& session, kestrel::ui::Measure measure, int count);

}  // namespace refhost
