#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/model/clsRiskFactor.h"
#include "ui/controls/Chart.h"
#include "ui/controls/Grid.h"

/// How the factors of a register are ranked and charted, with or without a window.
namespace kestrel::ui {

using Register = std::vector<std::shared_ptr<clsRiskFactor>>;

enum class Measure { Duration, Cost };

/// The factor's correlation with the measure, -1 to 1; 0 for a factor never analysed.
double MeasureOf(const clsRiskFactor& factor, Measure measure);

/// Lists all factors, the strongest driver first and equals in register order: position in the
/// register, description and correlation. Ranking goes by the square, so a factor that shortens
/// the project ranks as high as one that stretches it. ArithmeticError for a correlation so large
/// that its square overflows.
void FillRankedGrid(Grid& grid, const Register& factors, Measure measure);

/// Charts the first `count` rows of a grid that FillRankedGrid has filled, which must be there.
void DrawRankedChart(Chart& chart, const Grid& grid, const Register& factors, Measure measure,
                     int count, const std::string& planName);

/// The same without a grid; a count beyond the register stands for all factors, one below 1 for
/// none.
void DrawTornado(Chart& chart, const Register& factors, Measure measure, int count,
                 const std::string& planName);

}  // namespace kestrel::ui
