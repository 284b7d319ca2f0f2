#pragma once

#include <cstdint>

namespace kestrel::ui {

/// 0xBBGGRR or, with the highest bit set, the number of a colour of the user's desktop, which
/// whoever paints looks up.
using Colour = std::uint32_t;

inline constexpr Colour kWhite = 0xFFFFFF;
inline constexpr Colour kGrey = 0x808080;
inline constexpr Colour kSystemColour = 0x80000000;
inline constexpr Colour kSystemWindowText = kSystemColour | 8;
inline constexpr Colour kSystemButtonShadow = kSystemColour | 16;
inline constexpr Colour kSystemGreyText = kSystemColour | 17;

}  // namespace kestrel::ui
