#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ui/controls/ChartGeometry.h"
#include "ui/driving_risks/DrivingRisks.h"

namespace kestrel::test {

/// Names and correlations of some factors, the strongest first.
using Drivers = std::vector<std::pair<std::string, double>>;

inline const Drivers kDrivers = {{"Ground conditions worse than surveyed", 0.81},
                                 {"Late delivery of the link span", -0.42},
                                 {"Weather windows missed", 0.25}};

inline void Draw(ui::Chart& chart, const Drivers& drivers, const std::string& planName) {
    ui::Register factors;
    for (const auto& [name, correlation] : drivers) {
        factors.push_back(std::make_shared<clsRiskFactor>());
        factors.back()->strDescription = name;
        factors.back()->dblDurSens = correlation;
    }
    ui::DrawTornado(chart, factors, ui::Measure::Duration, static_cast<int>(factors.size()),
                    planName);
}

inline ui::ChartDrawing SampleDrawing(int width = 600, int height = 300) {
    ui::Chart chart("plot");
    Draw(chart, kDrivers, "Ferry terminal");
    return ui::DrawingOf(chart, width, height);
}

}  // namespace kestrel::test
