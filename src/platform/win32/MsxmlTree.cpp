#include "platform/win32/MsxmlTree.h"

#include <new>
#include <string>
#include <utility>

#include "base/Errors.h"
#include "platform/win32/Bstr.h"
#include "platform/win32/ComPtr.h"
#include "platform/win32/SystemMessage.h"
#include "platform/win32/Variant.h"

namespace kestrel::win32 {
namespace {

using NodePtr = ComPtr<IXMLDOMNode>;

std::string NameOf(IXMLDOMNode& node) {
    Bstr name;
    CheckDom(node.get_nodeName(name.Out()));
    return name.Utf8();
}

/// Not get_text, which trims and joins.
std::string ValueOf(IXMLDOMNode& node) {
    Variant value;
    CheckDom(node.get_nodeValue(value.Out()));
    return value.vt == VT_BSTR
               ? Utf8({value.bstrVal ? value.bstrVal : L"", SysStringLen(value.bstrVal)})
               : std::string();
}

class TreeReader {
 public:
    explicit TreeReader(XmlOutline outline) : outline_(std::move(outline)) {}

    XmlNode ReadElement(IXMLDOMNode& element) {
        XmlNode read = XmlNode::Element(NameOf(element));
        Bstr uri;
        CheckDom(element.get_namespaceURI(uri.Out()));
        read.uri = uri.Utf8();
        const std::size_t place = nextElement_++;
        if (place < outline_.lines.size()) read.line = outline_.lines[place];
        auto& namespaces = outline_.namespaces;
        for (; nextNamespace_ < namespaces.size() && namespaces[nextNamespace_].first == place;
             ++nextNamespace_)
            read.attributes.push_back(std::move(namespaces[nextNamespace_].second));
        ReadAttributes(element, read);
        ReadChildren(element, read);
        return read;
    }

 private:
    static void ReadAttributes(IXMLDOMNode& element, XmlNode& read) {
        ComPtr<IXMLDOMNamedNodeMap> map;
        CheckDom(element.get_attributes(map.Out()));
        if (!map) return;
        for (NodePtr attribute;;) {
            CheckDom(map->nextNode(attribute.Out()));
            if (!attribute) return;
            std::string name = NameOf(*attribute);
            // They come from the outline, as some versions leave them out here.
            if (name == "xmlns" || name.starts_with("xmlns:")) continue;
            read.attributes.push_back({std::move(name), ValueOf(*attribute)});
        }
    }

    void ReadChildren(IXMLDOMNode& element, XmlNode& read) {
        NodePtr child;
        CheckDom(element.get_firstChild(child.Out()));
        while (child) {
            ReadChild(*child, read.children);
            NodePtr sibling;
            CheckDom(child->get_nextSibling(sibling.Out()));
            child = std::move(sibling);
        }
    }

    void ReadChild(IXMLDOMNode& child, std::vector<XmlNode>& siblings) {
        DOMNodeType type = NODE_INVALID;
        CheckDom(child.get_nodeType(&type));
        if (type == NODE_ELEMENT) siblings.push_back(ReadElement(child));
        if (type != NODE_TEXT && type != NODE_CDATA_SECTION) return;
        if (siblings.empty() || siblings.back().IsElement()) siblings.push_back(XmlNode::Text({}));
        siblings.back().text += ValueOf(child);
    }

    XmlOutline outline_;
    std::size_t nextElement_ = 0;
    std::size_t nextNamespace_ = 0;
};

}  // namespace

void CheckDom(HRESULT result) {
    if (result == E_OUTOFMEMORY) throw std::bad_alloc();
    if (FAILED(result))
        throw DataError("The document cannot be read: " + SystemMessage(result) + ".");
}

XmlNode ReadDomTree(IXMLDOMNode& root, XmlOutline outline) {
    return TreeReader(std::move(outline)).ReadElement(root);
}

}  // namespace kestrel::win32
