#pragma once

#include <cstdint>
#include <random>

namespace refhost {

/// The one random stream of an analysis: the standard 64-bit Mersenne Twister.
class RandomStream {
 public:
    void Seed(std::uint64_t seed) { engine_.seed(seed); }

    /// The next number, uniform in [0, 1): the top 53 bits of one output x 2^-53.
    double Next() {
        return static_cast<double>(static_cast<std::int64_t>(engine_() >> 11)) * 0x1p-53;
    }

 private:
    std::mt19937_64 engine_;
};

}  // namespace refhost
