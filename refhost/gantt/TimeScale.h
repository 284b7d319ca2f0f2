#pragma once

#include <string>
#include <vector>

#include "refhost/gantt/CalendarUnit.h"

namespace refhost {

/// A cell of the time scale's header, in units from the scale's origin.
struct TimeCell {
    double left = 0;
    double right = 0;
    std::string label;
};

enum class TimeBand { Upper, Lower };

/// Dates on a line: where each lies at a level of zoom, in device-independent units to the right
/// of an origin, and the two bands of the header above it (years over months, months over weeks,
/// weeks over days ...).
class TimeScale {
 public:
    /// `origin` lies at 0.
    explicit TimeScale(Minute origin);

    double X(Minute date) const {
        return static_cast<double>(date - origin_) * UnitsPerDay() / kMinutesPerDay;
    }
    /// The date at a place, cut to the whole minute and to the years 1900 to 9999.
    Minute DateAt(double x) const;

    /// @name Zoom
    ///@{
    static int LevelCount();
    /// 0 shows most.
    int Level() const { return level_; }
    /// Beyond the range the nearer end.
    void SetLevel(int level);
    /// The level that shows most detail while the dates lie within `width`; the widest at least.
    void Fit(Minute from, Minute to, double width);
    double UnitsPerDay() const;
    ///@}

    /// The cells of a band that touch [left, right), from left to right, without gaps.
    std::vector<TimeCell> Cells(TimeBand band, double left, double right) const;

 private:
    Minute origin_;
    int level_;
};

}  // namespace refhost
