#pragma once

#include <array>
#include <cmath>

namespace refhost {

/// A triangular distribution over [lo, hi] with its mode at ml, drawn from by inversion of its
/// distribution function. Uses exactly one uniform number a draw, also when the points coincide.
class Triangular {
 public:
    Triangular() = default;
    Triangular(double lo, double ml, double hi) : lo_(lo), hi_(hi), ml_(ml) {
        if (hi > lo)
            threshold_ = (ml - lo) / (hi - lo);
        else
            hi_ = ml_ = lo;  // the formula then gives lo for every u
    }

    double Draw(double u) const { return Draw(u, lo_, ml_, hi_, threshold_); }

    /// With F = (ml - lo)/(hi - lo): lo + sqrt(u(hi - lo)(ml - lo)) when u < F, otherwise
    /// hi - sqrt((1 - u)(hi - lo)(hi - ml)). Free of branches: which side u falls on cannot be
    /// predicted, and a missed branch costs more than the square root.
    static double Draw(double u, double lo, double ml, double hi, double threshold) {
        const double toMode = ml - lo;
        const double fromMode = hi - ml;
        const double rest = 1 - u;
        const bool left = u < threshold;
        const double root = std::sqrt((left ? u : rest) * (hi - lo) * (left ? toMode : fromMode));
        const double above = lo + root;
        const double below = hi - root;
        return left ? above : below;
    }

    double Low() const { return lo_; }
    double Mode() const { return ml_; }
    double High() const { return hi_; }
    double Threshold() const { return threshold_; }  ///< F; -1 where the points coincide

    /// Values that no draw goes beyond, whatever the order of the points.
    std::array<double, 4> Extremes() const {
        return {lo_, hi_, lo_ + std::sqrt((hi_ - lo_) * std::abs(ml_ - lo_)),
                hi_ - std::sqrt((hi_ - lo_) * std::abs(hi_ - ml_))};
    }

 private:
    double lo_ = 0;
    double hi_ = 0;
    double ml_ = 0;
    double threshold_ = -1;
};

}  // namespace refhost
