#pragma once

#include <cmath>

namespace refhost {

/// A triangular distribution over [lo, hi] with its mode at ml, ready to be drawn from by
/// inversion of its distribution function. Uses exactly one uniform number a draw.
class Triangular {
 public:
    Triangular() = default;
    Triangular(double lo, double ml, double hi) : lo_(lo), hi_(hi), ml_(ml) {
        if (hi > lo) {
            threshold_ = (ml - lo) / (hi - lo);
        } else {
            hi_ = ml_ = lo;  // the formula then gives lo for every u
            threshold_ = -1;
        }
    }

    /// With F = (ml - lo)/(hi - lo): lo + sqrt(u(hi - lo)(ml - lo)) when u < F, otherwise
    /// hi - sqrt((1 - u)(hi - lo)(hi - ml)); lo when hi <= lo. Free of branches: which side u
    /// falls on cannot be predicted, and a missed branch costs more than the square root.
    double Draw(double u) const {
        const bool left = u < threshold_;
        const double share = left ? u : 1 - u;
        const double leg = left ? ml_ - lo_ : hi_ - ml_;
        const double root = std::sqrt(share * (hi_ - lo_) * leg);
        return left ? lo_ + root : hi_ - root;
    }

 private:
    double lo_ = 0;
    double hi_ = 0;
    double ml_ = 0;
    double threshold_ = -1;  ///< F
};

}  // namespace refhost
