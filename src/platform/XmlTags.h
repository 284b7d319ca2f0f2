#pragma once

#include <string_view>

namespace kestrel {

/// Raises DataError with the line for a tag of more than kXmlMaximumAttributes attributes, in time
/// that grows with the bytes only. A malformed document is passed on as soon as that is plain.
void RefuseCrowdedTags(std::string_view bytes);

}  // namespace kestrel
