#pragma once

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>

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
    /// predicted, and a missed branch costs more than the square root. Sides are chosen by bit
    /// masks: of conditional expressions compilers make a square root for each side.
    static double Draw(double u, double lo, double ml, double hi, double threshold) {
        const std::uint64_t left = 0 - static_cast<std::uint64_t>(u < threshold);
        const double root =
            std::sqrt(Select(left, u, 1 - u) * (hi - lo) * Select(left, ml - lo, hi - ml));
        return Select(left, lo, hi) + Select(left, root, -root);
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
    /// `a` where the mask's bits are set, `b` where they are not.
    static double Select(std::uint64_t mask, double a, double b) {
        return std::bit_cast<double>((std::bit_cast<std::uint64_t>(a) & mask) |
                                     (std::bit_cast<std::uint64_t>(b) & ~mask));
    }

    double lo_ = 0;
    double hi_ = 0;
    double ml_ = 0;
    double threshold_ = -1;
};

}  // namespace refhost
