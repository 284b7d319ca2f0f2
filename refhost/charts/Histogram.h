#pragma once

#include <functional>
#include <string>
#include <vector>

namespace refhost {

/// How many values fall into each of a row of equal bars; of day serials whole days, weeks from
/// Monday to Sunday, or more. The first and the last bar are empty.
struct Histogram {
    double step = 1;   ///< width of a bar
    double first = 0;  ///< start of the first bar
    std::vector<int> counts;

    double End() const { return first + step * static_cast<double>(counts.size()); }
    /// Start of a bar; of the one behind the last it is End().
    double Edge(int bar) const { return first + step * bar; }
    /// Adds empty bars at the ends until `value` lies between them; none for a value so far away
    /// that the others would shrink to nothing.
    void ReachTo(double value);
    /// The width of bars of days in words: "day", "2 weeks".
    std::string StepText() const;
};

/// The finest histogram of at most 42 bars; at least one value. Bars of hours are made only where
/// `differ` says that two times within a day are told apart.
Histogram HistogramOf(const std::vector<double>& ascending,
                      const std::function<bool(double, double)>& differ);

/// The same of amounts: bars start at multiples of 1, 2 or 5 times a power of ten.
Histogram AmountHistogramOf(const std::vector<double>& ascending);

}  // namespace refhost
