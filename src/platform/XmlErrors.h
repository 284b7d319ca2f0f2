#pragma once

#include <string>

#include "base/Errors.h"
#include "platform/XmlDom.h"

/// The sentences of what can be wrong with a document, the same for every parser.
namespace kestrel {

inline DataError XmlErrorAtLine(int line, const std::string& message) {
    return DataError("line " + std::to_string(line) + ": " + message);
}

inline DataError XmlTooDeepAtLine(int line) {
    return XmlErrorAtLine(line, "elements stand more than " + std::to_string(kXmlMaximumDepth) +
                                    " deep in each other; flatten the document");
}

inline DataError XmlTooManyPrefixesAtLine(int line) {
    return XmlErrorAtLine(line, "more than " + std::to_string(kXmlMaximumPrefixes) +
                                    " prefixes are declared at one place; declare those only that "
                                    "the document uses");
}

inline DataError XmlTypeDeclaredAtLine(int line) {
    return XmlErrorAtLine(line,
                          "the document has a document type declaration (DOCTYPE); remove it");
}

inline DataError XmlEmpty() { return XmlErrorAtLine(1, "the document is empty"); }

}  // namespace kestrel
