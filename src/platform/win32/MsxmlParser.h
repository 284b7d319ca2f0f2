#pragma once

#include <string_view>

#include "platform/XmlDom.h"

namespace kestrel::win32 {

/// Parses a document with the system's DOM under the rules of Desktop::ParseXml, into the same
/// tree as the parsers of other systems: comments and processing instructions are dropped, CDATA
/// and the text around it are one text node, declarations of namespaces come before the other
/// attributes. COM need not be started on the calling thread.
XmlDocument ParseXmlBytes(std::string_view bytes);

/// The DOM's classes in order of preference: 4.0, 6.0, 3.0. The first that the system has is taken.
inline constexpr int kXmlClassCount = 3;

/// The same with one of them only; nothing (an empty document) when the system lacks it.
XmlDocument ParseXmlBytesWith(int xmlClass, std::string_view bytes);

}  // namespace kestrel::win32
