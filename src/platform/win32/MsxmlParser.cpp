#include "platform/win32/MsxmlParser.h"

#include <windows.h>
#include <msxml2.h>
#include <oleauto.h>

#include <array>
#include <cstring>
#include <new>
#include <string>
#include <utility>

#include "base/Text.h"
#include "platform/XmlErrors.h"
#include "platform/XmlOutline.h"
#include "platform/win32/Bstr.h"
#include "platform/win32/ComApartment.h"
#include "platform/win32/ComPtr.h"
#include "platform/win32/MsxmlTree.h"
#include "platform/win32/Variant.h"

namespace kestrel::win32 {
namespace {

constexpr IID kIidDocument2{
    0x2933BF95, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};

constexpr std::array<CLSID, kXmlClassCount> kClasses{{
    // MSXML2.DOMDocument40: an optional component of 32-bit systems
    {0x88D969C0, 0xF192, 0x11D4, {0xA6, 0x5F, 0x00, 0x40, 0x96, 0x32, 0x51, 0xE5}},
    // MSXML2.DOMDocument60
    {0x88D96A05, 0xF192, 0x11D4, {0xA6, 0x5F, 0x00, 0x40, 0x96, 0x32, 0x51, 0xE5}},
    // MSXML2.DOMDocument30
    {0xF5078F32, 0xC551, 0x11D3, {0x89, 0xB9, 0x00, 0x00, 0xF8, 0x1F, 0xE2, 0x21}},
}};

using DocumentPtr = ComPtr<IXMLDOMDocument2>;

DocumentPtr Create(int xmlClass) {
    DocumentPtr document;
    // A class that is not there leaves the pointer empty.
    static_cast<void>(CoCreateInstance(kClasses.at(static_cast<std::size_t>(xmlClass)), nullptr,
                                       CLSCTX_INPROC_SERVER, kIidDocument2, document.OutVoid()));
    return document;
}

void Configure(IXMLDOMDocument2& document) {
    CheckDom(document.put_async(VARIANT_FALSE));
    CheckDom(document.put_validateOnParse(VARIANT_FALSE));
    CheckDom(document.put_resolveExternals(VARIANT_FALSE));
    CheckDom(document.put_preserveWhiteSpace(VARIANT_TRUE));
    // The second guard after RefuseUnsafeXml. Old releases of the parser do not know it.
    static_cast<void>(document.setProperty(Bstr("ProhibitDTD").Get(), Variant(true)));
}

/// Bytes, not text, so that the parser heeds the encoding that the document declares.
void Load(IXMLDOMDocument2& document, std::string_view bytes) {
    Variant array;
    array.parray = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
    if (!array.parray) throw std::bad_alloc();
    array.vt = VT_ARRAY | VT_UI1;
    void* data = nullptr;
    CheckDom(SafeArrayAccessData(array.parray, &data));
    std::memcpy(data, bytes.data(), bytes.size());
    CheckDom(SafeArrayUnaccessData(array.parray));
    VARIANT_BOOL loaded = VARIANT_FALSE;
    CheckDom(document.load(array, &loaded));
    if (loaded != VARIANT_FALSE) return;

    ComPtr<IXMLDOMParseError> error;
    CheckDom(document.get_parseError(error.Out()));
    long line = 0;
    Bstr reason;
    CheckDom(error->get_line(&line));
    CheckDom(error->get_reason(reason.Out()));
    const std::string message = reason.Utf8();
    // Some versions tell neither line nor reason.
    if (line <= 0)
        throw DataError(
            "the document is malformed, or in an encoding that this system does not know; correct "
            "it or save it as UTF-8.");
    throw XmlErrorAtLine(static_cast<int>(line), std::string(TrimmedEnd(message, kSentenceEnd)));
}

XmlDocument Parse(IXMLDOMDocument2& document, std::string_view bytes, XmlOutline outline) {
    Configure(document);
    Load(document, bytes);
    ComPtr<IXMLDOMElement> root;
    CheckDom(document.get_documentElement(root.Out()));
    if (!root) throw XmlEmpty();
    return {ReadDomTree(*root, std::move(outline))};
}

}  // namespace

XmlDocument ParseXmlBytes(std::string_view bytes) {
    RefuseUnsafeXml(bytes);
    XmlOutline outline = OutlineXml(bytes);
    const ComApartment apartment;
    for (int xmlClass = 0; xmlClass < kXmlClassCount; ++xmlClass)
        if (const DocumentPtr document = Create(xmlClass))
            return Parse(*document, bytes, std::move(outline));
    throw DataError("This system has no parser for XML documents (MSXML); install one.");
}

XmlDocument ParseXmlBytesWith(int xmlClass, std::string_view bytes) {
    RefuseUnsafeXml(bytes);
    const ComApartment apartment;
    const DocumentPtr document = Create(xmlClass);
    return document ? Parse(*document, bytes, OutlineXml(bytes)) : XmlDocument{};
}

}  // namespace kestrel::win32
