#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace refhost {

/// The one random stream of an analysis: the standard 64-bit Mersenne Twister (the numbers of
/// std::mt19937_64; M. Matsumoto and T. Nishimura, 1998 and 2004).
///
/// It has its own code because the library's takes 7 ns a number where the whole of an analysis
/// aims at 5 ns a task: here a block of the state is renewed and tempered at once, in loops that
/// compilers turn into vector instructions.
class RandomStream {
 public:
    explicit RandomStream(std::uint64_t seed = 5489) { Seed(seed); }
    void Seed(std::uint64_t seed);

    /// The next number, uniform in [0, 1): the top 53 bits of one output x 2^-53.
    double Next() {
        if (next_ == kSize) Renew();
        return uniform_[next_++];
    }
    /// The next numbers of the stream, as many as fit.
    void Fill(std::span<double> numbers);

 private:
    static constexpr std::size_t kSize = 312;

    void Renew();

    std::array<std::uint64_t, kSize> state_;
    std::array<double, kSize> uniform_;
    std::size_t next_ = kSize;
};

}  // namespace refhost
