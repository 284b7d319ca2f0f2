#include "platform/XmlDom.h"

#include <gtest/gtest.h>

#include "base/Errors.h"
#include "platform/SystemDesktop.h"

namespace kestrel {
namespace {

using namespace std::string_literals;

XmlDocument ParseXmlBytes(const std::string& bytes) { return SystemDesktop().ParseXml(bytes); }

/// The ASCII text in UTF-16.
std::string Utf16(const std::string& text, bool bigEndian, bool withMark) {
    std::string wide;
    if (withMark) wide = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char c : text) wide += bigEndian ? std::string{'\0', c} : std::string{c, '\0'};
    return wide;
}

std::string MessageOf(const std::string& bytes) {
    try {
        ParseXmlBytes(bytes);
    } catch (const DataError& error) {
        return error.what();
    }
    return "no error";
}

std::string Nested(int depth) {
    std::string text;
    for (int i = 0; i < depth; ++i) text += "<a>";
    for (int i = 0; i < depth; ++i) text += "</a>";
    return text;
}

TEST(XmlParser, ReadsNamesNamespacesAttributesAndLines) {
    const XmlDocument document = ParseXmlBytes(
        "<?xml version='1.0'?>\n<!-- note --><r xmlns='urn:a' xmlns:p='urn:b'>\n"
        "  <p:child\n\n  p:one='1 &amp; &lt;2&#38;' two='\xC3\xA9'/>\n<?pi data?><plain "
        "xmlns=''/></r>");
    const XmlNode& root = document.root;
    EXPECT_EQ(root.uri, "urn:a");
    EXPECT_EQ(root.line, 2);
    EXPECT_EQ(*root.Attribute("xmlns:p"), "urn:b");
    ASSERT_EQ(root.children.size(), 4u);  // blank text is kept until it is dropped
    const XmlNode& child = root.children[1];
    EXPECT_EQ(child.name, "p:child");
    EXPECT_EQ(child.LocalName(), "child");
    EXPECT_EQ(child.uri, "urn:b");
    EXPECT_EQ(child.line, 3);
    EXPECT_EQ(*child.Attribute("p:one"), "1 & <2&");
    EXPECT_EQ(*child.Attribute("two"), "\xC3\xA9");
    EXPECT_EQ(root.children[3].uri, "");
    EXPECT_EQ(root.children[3].line, 6);
}

TEST(XmlParser, JoinsTextAcrossSectionsAndComments) {
    const XmlDocument document =
        ParseXmlBytes("<r>a&amp;<![CDATA[<b>]]>c<!-- x -->d&#65;<e>f</e>g</r>");
    ASSERT_EQ(document.root.children.size(), 3u);
    EXPECT_EQ(document.root.children[0].text, "a&<b>cdA");
    EXPECT_EQ(document.root.TextContent(), "a&<b>cdAfg");
}

TEST(XmlParser, ReadsEncodingsThatTheDocumentDeclares) {
    EXPECT_EQ(
        ParseXmlBytes("<?xml version='1.0' encoding='ISO-8859-1'?><r>\xE9</r>").root.TextContent(),
        "\xC3\xA9");
    EXPECT_EQ(ParseXmlBytes("\xEF\xBB\xBF<r>x</r>").root.TextContent(), "x");
    EXPECT_EQ(ParseXmlBytes("<?xml version='1.0' encoding='windows-1252'?><r>\x80</r>")
                  .root.TextContent(),
              "\xE2\x82\xAC");
    for (const bool bigEndian : {false, true}) {
        const XmlDocument wide = ParseXmlBytes(Utf16("<r>\n<a>x</a></r>", bigEndian, true));
        EXPECT_EQ(wide.root.TextContent(), "\nx");
        EXPECT_EQ(wide.root.children[1].line, 2);
    }
    EXPECT_EQ(ParseXmlBytes("\xFF\xFE"s + Utf16("<r>", false, false) + "\x3D\xD8\x00\xDE"s +
                            Utf16("</r>", false, false))
                  .root.TextContent(),
              "\xF0\x9F\x98\x80");
}

TEST(XmlParser, KeepsWhiteSpaceAsTheRulesOfXmlHaveIt) {
    const XmlDocument document = ParseXmlBytes(
        "<r a='x&#9;y&#10;z  w\n v' xml:space='default'>&#13;\r\n q \r w<b> </b>\t<c>\n</c></r>");
    EXPECT_EQ(*document.root.Attribute("a"), "x\ty\nz  w  v");
    EXPECT_EQ(document.root.children[0].text, "\r\n q \n w");
    EXPECT_EQ(SerialiseXml(document.root),
              "<r a=\"x&#9;y&#10;z  w  v\" xml:space=\"default\">"
              "&#13;\n q \n w<b> </b>\t<c>\n</c></r>");
}

TEST(XmlParser, PutsNamespacesBeforeOtherAttributesAndKeepsTheOrderOfEach) {
    EXPECT_EQ(
        SerialiseXml(ParseXmlBytes("<a z='1' q:y='2' xmlns:q='u' xml:lang='de' xmlns='&amp;d'>"
                                   "<q:b xmlns:q='v' x='3' xmlns:n='n'/></a>")
                         .root),
        "<a xmlns:q=\"u\" xmlns=\"&amp;d\" z=\"1\" q:y=\"2\" xml:lang=\"de\">"
        "<q:b xmlns:q=\"v\" xmlns:n=\"n\" x=\"3\"/></a>");
}

TEST(XmlParser, RefusesDocumentTypesInEveryEncoding) {
    const std::string bomb =
        "<?xml version='1.0'?>\n<!-- > -->\n<!DOCTYPE r [<!ENTITY e 'x'>]><r>&e;</r>";
    const std::string bytes[] = {bomb, "\xEF\xBB\xBF" + bomb, Utf16(bomb, false, true),
                                 Utf16(bomb, true, true), Utf16(bomb, false, false)};
    for (const std::string& document : bytes) {
        EXPECT_THROW(RefuseUnsafeXml(document), DataError);
        EXPECT_NE(MessageOf(document).find("DOCTYPE"), std::string::npos);
    }
    // EBCDIC ("<?xml version='1.0' encoding='cp037'?>") is read by some parsers alone, by others
    // not at all.
    const std::string ebcdic =
        "\x4C\x6F\xA7\x94\x93\x40\xA5\x85\x99\xA2\x89\x96\x95\x7E\x7D\xF1\x4B\xF0\x7D\x40\x85\x95"
        "\x83"
        "\x96\x84\x89\x95\x87\x7E\x7D\x83\x97\xF0\xF3\xF7\x7D\x6F\x6E"
        "\x4C\x5A\xC4\xD6\xC3\xE3\xE8\xD7\xC5\x40\x99\x6E\x4C\x99\x61\x6E";
    const std::string utf7 =
        "<?xml version='1.0' encoding='UTF-7'?>+ADwAIQ-DOCTYPE r [<!ENTITY e 'x'>]><r>&e;</r>";
    const std::string iso2022 =
        "<?xml version='1.0' encoding = \"ISO-2022-JP\" ?><!DOC\x1B(BTYPE r><r/>";
    for (const std::string& document : {ebcdic, utf7, iso2022})
        EXPECT_NE(MessageOf(document).find("; save it as UTF-8"), std::string::npos) << document;
}

TEST(XmlParser, LooksForADocumentTypeInThePrologOnly) {
    for (const char* text : {"<r>&lt;!DOCTYPE r></r>", "<!-- <!DOCTYPE r> --><r/>",
                             "<r><![CDATA[<!DOCTYPE r>]]></r>", "<?pi <!DOCTYPE r> ?><r/>"})
        EXPECT_NO_THROW(ParseXmlBytes(text)) << text;
    // Characters whose bytes look like the end of a comment do not end it.
    std::string tricky = "\xFF\xFE"s + Utf16("<!--", false, false);
    tricky += "\0-\0-\0>"s;
    tricky += Utf16("<a --><!DOCTYPE r><r/>", false, false);
    EXPECT_THROW(RefuseUnsafeXml(tricky), DataError);
}

TEST(XmlParser, BoundsDepthAndAttributesButNotTheLengthOfText) {
    EXPECT_EQ(SerialiseXml(ParseXmlBytes(Nested(kXmlMaximumDepth)).root).size(), 199u * 7 + 4);
    EXPECT_EQ(MessageOf(Nested(kXmlMaximumDepth + 1)),
              "line 1: elements stand more than 200 deep in each other; flatten the document");
    const auto crowded = [](std::size_t count, const std::string& name,
                            const char* value = "='>'") {
        std::string text = "<!-- \" -->\n<r";
        for (std::size_t i = 0; i < count; ++i) text += " " + name + std::to_string(i) + value;
        return text + "/>";
    };
    EXPECT_EQ(ParseXmlBytes(crowded(kXmlMaximumAttributes, "a")).root.attributes.size(),
              kXmlMaximumAttributes);
    const char* const tooMany =
        "line 2: a tag has more than 256 attributes; remove those that are not needed";
    EXPECT_EQ(MessageOf(crowded(kXmlMaximumAttributes + 1, "a")), tooMany);
    EXPECT_EQ(MessageOf("\xFF\xFE"s + Utf16(crowded(100000, "a"), false, false)), tooMany);
    std::string declaring = crowded(200, "xmlns:a", "='u'");
    declaring.replace(declaring.size() - 2, 2, ">\n" + crowded(57, "xmlns:b", "='u'") + "</r>");
    EXPECT_EQ(MessageOf(declaring),
              "line 4: more than 256 prefixes are declared at one place; declare those only that "
              "the document uses");
    const std::string longText(11u << 20, 'x');
    EXPECT_EQ(ParseXmlBytes("<r>" + longText + "</r>").root.TextContent(), longText);
}

TEST(XmlDom, SelectsElementsWithoutNamespaceInDocumentOrder) {
    const XmlDocument document = ParseXmlBytes(
        "<F n='1'><F n='2'/><x><F n='3'/></x><F xmlns='urn:a'/><p:F xmlns:p='urn:a'/>F<f/></F>");
    std::string order;
    for (const XmlNode* node : SelectElements(document, "F")) order += *node->Attribute("n");
    EXPECT_EQ(order, "123");
    EXPECT_TRUE(SelectElements(XmlDocument{}, "F").empty());
    EXPECT_TRUE(SelectElements(XmlDocument{}, "").empty());
}

TEST(XmlDom, WhatIsWrittenReadsBackTheSame) {
    XmlNode root = XmlNode::Element("r");
    const std::string awkward = "\"a' & <b> ]]>\t\n\r\n \xF0\x9F\x98\x80";
    root.SetAttribute("t", "old");
    root.SetAttribute("t", awkward);
    root.Append(XmlNode::Element("e")).Append(XmlNode::Text(awkward));
    root.Append(XmlNode::Element("empty"));

    const XmlDocument read = ParseXmlBytes(SerialiseXmlFile(root));
    EXPECT_EQ(*read.root.Attribute("t"), awkward);
    EXPECT_EQ(read.root.children[0].TextContent(), awkward);
    EXPECT_EQ(SerialiseXml(read.root), SerialiseXml(root));
    EXPECT_EQ(SerialiseXmlFile(XmlNode::Element("r")), "<?xml version=\"1.0\"?>\r\n<r/>\r\n");
}

TEST(XmlDom, DeclaresNamespacesThatElementsBuiltInMemoryLack) {
    XmlNode root = XmlNode::Element("r");
    root.uri = "urn:a";
    XmlNode same = XmlNode::Element("same");
    same.uri = "urn:a";
    XmlNode prefixed = XmlNode::Element("p:x");
    prefixed.uri = "urn:b";
    root.Append(same);
    root.Append(prefixed);
    root.Append(XmlNode::Element("none"));
    const std::string text = SerialiseXml(root);
    EXPECT_EQ(text, "<r xmlns=\"urn:a\"><same/><p:x xmlns:p=\"urn:b\"/><none xmlns=\"\"/></r>");
    EXPECT_EQ(SerialiseXml(ParseXmlBytes(text).root), text);
}

TEST(XmlDom, RefusesToWriteWhatXmlCannotHold) {
    for (const std::string& text :
         {"\x01"s, "a\0b"s, "\xFF"s, "\xC3"s, "\xC0\x80"s, "\xED\xA0\x80"s, "\xEF\xBF\xBE"s,
          "\xEF\xBF\xBF"s, "\xF4\x90\x80\x80"s, "\xE0\x80\x80"s}) {
        XmlNode node = XmlNode::Element("r");
        node.Append(XmlNode::Text(text));
        EXPECT_THROW(SerialiseXml(node), DataError) << testing::PrintToString(text);
    }
}

TEST(XmlDom, DropsTextOfWhiteSpaceOnly) {
    XmlNode root = ParseXmlBytes("<r>\n <a> </a> x <b>y </b>\t</r>").root;
    DropBlankText(root);
    EXPECT_EQ(SerialiseXml(root), "<r><a/> x <b>y </b></r>");
}

}  // namespace
}  // namespace kestrel
