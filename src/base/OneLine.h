#pragma once

#include <string>
#include <string_view>

namespace kestrel {

/// The text as it may stand in a terminal: control characters, characters that turn the direction
/// of writing, and bytes that are no UTF-8 are written as "\n", "\x1B" or "\u202E", so that
/// nothing that a file holds moves the cursor or looks like a message of its own.
std::string Printable(std::string_view text);

/// A message of one line: printable, and shortened in its middle, where an echoed value stands,
/// so that beginning and end can still be read.
std::string OneLine(std::string_view text);

}  // namespace kestrel
