#pragma once

#include <string>
#include <string_view>

#include "platform/Desktop.h"
#include "platform/XmlDom.h"

/// Stateless helpers through which all documents are loaded, queried and built.
namespace kestrel {

/// The parsed text, blank text dropped. The text is decoded already: an encoding that it declares
/// means nothing. Raises DataError with the line when it is not well formed.
XmlDocument ParseXmlString(Desktop& desktop, std::string_view text);

/// Replaces `document` by ParseXmlString. Answers false, and leaves the document empty, when the
/// text is not well formed.
bool LoadXmlFromString(Desktop& desktop, XmlDocument& document, std::string_view text);

/// The same for a file, bytes of the encoding that it declares; a file that cannot be read counts
/// as not well formed.
bool LoadXmlFromFile(Desktop& desktop, XmlDocument& document, const std::string& path);

/// A new element with an optional text and an optional attribute (made only when both its name
/// and its value are non-empty), in the namespace `uri` (empty for none). Attached nowhere.
XmlNode CreateXmlElement(const std::string& name, const std::string& text = {},
                         const std::string& attribute = {}, const std::string& value = {},
                         const std::string& uri = {});

/// Sets the attribute, replacing one of the same name.
void AddXmlAttribute(XmlNode& element, const std::string& name, const std::string& value);

/// Text of the first direct child of exactly that name; empty when there is none.
std::string GetChildText(std::string_view name, const XmlNode& element);

/// GetChildText without every "%", as a number. DataError, naming element and line, when empty
/// or not a number.
double GetChildNumber(std::string_view name, const XmlNode& element);

}  // namespace kestrel
