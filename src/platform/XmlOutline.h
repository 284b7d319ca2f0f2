#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "platform/XmlDom.h"

namespace kestrel {

/// What some parsers keep to themselves about a document: where its elements start and which
/// namespaces they declare. Elements are in document order.
struct XmlOutline {
    std::vector<int> lines;  ///< one an element, from 1: the line of the "<" that starts it
    /// Declarations of namespaces ("xmlns", "xmlns:p") beside the element's place in `lines`.
    std::vector<std::pair<std::size_t, XmlAttribute>> namespaces;
};

/// Walks the markup of a document in UTF-8, UTF-16, UTF-32 or any encoding that extends ASCII.
/// Raises DataError with the line for what parsers take too long over (elements deeper than
/// kXmlMaximumDepth, more than kXmlMaximumPrefixes), what some do not notice (prefixes that are
/// not declared) and what leaves the walk without an end: markup that is not closed, tags that do
/// not match. What else may be malformed is the parser's to tell.
XmlOutline OutlineXml(std::string_view bytes);

}  // namespace kestrel
