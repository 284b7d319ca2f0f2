#pragma once

#include <cstddef>
#include <vector>

#include "refhost/engine/RandomStream.h"
#include "refhost/engine/Triangular.h"

namespace refhost {

/// Triangular distributions that are drawn from together, as columns, so that compilers can draw
/// several with one vector instruction.
class TriangularColumns {
 public:
    void Add(const Triangular& shape) {
        low_.push_back(shape.Low());
        mode_.push_back(shape.Mode());
        high_.push_back(shape.High());
        threshold_.push_back(shape.Threshold());
        uniform_.push_back(0);
    }
    std::size_t Count() const { return low_.size(); }

    /// Draws once from each, in order, each with one number of the stream, and stores what
    /// `convert` makes of it. To be called where VectorClones.h marks the function.
    template <typename Value, typename Convert>
    void Draw(RandomStream& stream, std::vector<Value>& drawn, Convert convert) {
        stream.Fill(uniform_);
        const std::size_t count = Count();
        for (std::size_t i = 0; i < count; ++i)
            drawn[i] =
                convert(Triangular::Draw(uniform_[i], low_[i], mode_[i], high_[i], threshold_[i]));
    }

 private:
    std::vector<double> low_, mode_, high_, threshold_;
    std::vector<double> uniform_;  ///< of the last draw
};

}  // namespace refhost
