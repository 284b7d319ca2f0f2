#pragma once

#include <string>
#include <vector>

#include "ui/controls/Chart.h"

/// Ticks at round numbers.
namespace kestrel::ui {

/// The smallest of 1, 2 and 5 times a power of ten that is at least `least` (> 0).
double RoundStep(double least);

/// Ticks at multiples of a round step within [min, max], at most `count` (>= 1) steps apart,
/// labelled as percentages (0.2 -> "20%") with the decimals that the step needs.
std::vector<ChartTick> PercentTicks(double min, double max, int count);

}  // namespace kestrel::ui
