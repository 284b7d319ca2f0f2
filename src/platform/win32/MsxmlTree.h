#pragma once

#include <windows.h>
#include <msxml2.h>

#include "platform/XmlDom.h"
#include "platform/XmlOutline.h"

namespace kestrel::win32 {

/// Raises DataError for a failed call of the DOM. S_FALSE, "there is none", is no failure.
void CheckDom(HRESULT result);

/// The root element and everything below it as our own tree. `outline` is of the same document:
/// the DOM knows no lines, and not every version shows the declarations of namespaces.
XmlNode ReadDomTree(IXMLDOMNode& root, XmlOutline outline);

}  // namespace kestrel::win32
