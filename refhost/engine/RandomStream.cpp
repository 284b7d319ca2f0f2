#include "refhost/engine/RandomStream.h"

#include <algorithm>
#include <bit>

#include "refhost/engine/VectorClones.h"

namespace refhost {
namespace {

constexpr std::size_t kShift = 156;
constexpr std::uint64_t kUpper = 0xFFFFFFFF80000000u;
constexpr std::uint64_t kTwist = 0xB5026F5AA96619E9u;

inline std::uint64_t Twisted(std::uint64_t upper, std::uint64_t lower, std::uint64_t shifted) {
    const std::uint64_t y = (upper & kUpper) | (lower & ~kUpper);
    return shifted ^ (y >> 1) ^ ((0 - (y & 1)) & kTwist);
}

inline std::uint64_t Tempered(std::uint64_t x) {
    x ^= (x >> 29) & 0x5555555555555555u;
    x ^= (x << 17) & 0x71D67FFFEDA60000u;
    x ^= (x << 37) & 0xFFF7EEE000000000u;
    return x ^ (x >> 43);
}

/// A number below 2^53 as a double: its upper 21 and lower 32 bits are set into the fractions of
/// 2^84 and 2^52, whose sums are exact. Unlike a conversion instruction this has a vector form.
inline double ToDouble(std::uint64_t below53) {
    const double upper = std::bit_cast<double>((below53 >> 32) | 0x4530000000000000u);
    const double lower = std::bit_cast<double>((below53 & 0xFFFFFFFFu) | 0x4330000000000000u);
    return (upper - 0x1.00000001p84) + lower;  // less 2^84 + 2^52
}

}  // namespace

void RandomStream::Seed(std::uint64_t seed) {
    state_[0] = seed;
    for (std::size_t i = 1; i < kSize; ++i)
        state_[i] = 6364136223846793005u * (state_[i - 1] ^ (state_[i - 1] >> 62)) + i;
    next_ = kSize;
}

KESTREL_VECTOR_CLONES
void RandomStream::Renew() {
    std::uint64_t* const s = state_.data();
    for (std::size_t i = 0; i < kSize - kShift; ++i) s[i] = Twisted(s[i], s[i + 1], s[i + kShift]);
    for (std::size_t i = kSize - kShift; i < kSize - 1; ++i)
        s[i] = Twisted(s[i], s[i + 1], s[i - (kSize - kShift)]);
    s[kSize - 1] = Twisted(s[kSize - 1], s[0], s[kShift - 1]);
    for (std::size_t i = 0; i < kSize; ++i) uniform_[i] = ToDouble(Tempered(s[i]) >> 11) * 0x1p-53;
    next_ = 0;
}

void RandomStream::Fill(std::span<double> numbers) {
    while (!numbers.empty()) {
        if (next_ == kSize) Renew();
        const std::size_t count = std::min(numbers.size(), kSize - next_);
        std::copy_n(uniform_.begin() + static_cast<std::ptrdiff_t>(next_), count, numbers.begin());
        next_ += count;
        numbers = numbers.subspan(count);
    }
}

}  // namespace refhost
