#pragma once

#include <string_view>

#include "platform/XmlDom.h"

namespace kestrel {

/// Parses a document of any encoding that libxml2 knows, under the rules of Desktop::ParseXml:
/// DataError with the line when it is not well formed, has a document type declaration, or goes
/// beyond the limits of XmlDom.h. Comments and processing instructions are dropped; CDATA and
/// the text around it are one text node.
XmlDocument ParseXmlBytes(std::string_view bytes);

}  // namespace kestrel
