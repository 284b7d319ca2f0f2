#include "platform/XmlOutline.h"

#include <gtest/gtest.h>

#include "base/Errors.h"

namespace kestrel {
namespace {

using namespace std::string_literals;

/// The ASCII text with the bytes of each character widened.
std::string Widened(const std::string& text, std::size_t width, bool bigEndian) {
    std::string wide;
    for (const char c : text) {
        const std::string zeros(width - 1, '\0');
        wide += bigEndian ? zeros + c : c + zeros;
    }
    return wide;
}

TEST(XmlOutline, FindsElementsAndNamespacesInEveryWidth) {
    const std::string text =
        "<?xml version='1.0'?>\n<!-- <no>\n --><r\n xmlns = 'urn:&#97; &amp;\n&#x62;'>\n"
        "<![CDATA[<no>\n]]><p:x a='>\n/>' xmlns:p=\"\xC2\xB5\"\n/>&lt;<?no <no>\n?></r >\n<!---->";
    const std::pair<std::string, std::string> rows[] = {
        {"UTF-8", text},
        {"UTF-8 with mark", "\xEF\xBB\xBF" + text},
        {"UTF-16", "\xFF\xFE" + Widened(text, 2, false)},
        {"UTF-16 big", Widened(text, 2, true)},
        {"UTF-32", "\xFF\xFE\0\0"s + Widened(text, 4, false)},
        {"UTF-32 big", Widened(text, 4, true)},
    };
    for (const auto& [name, bytes] : rows) {
        SCOPED_TRACE(name);
        const XmlOutline outline = OutlineXml(bytes);
        EXPECT_EQ(outline.lines, (std::vector<int>{3, 7}));
        ASSERT_EQ(outline.namespaces.size(), 2u);
        EXPECT_EQ(outline.namespaces[0].first, 0u);
        EXPECT_EQ(outline.namespaces[0].second.name, "xmlns");
        EXPECT_EQ(outline.namespaces[0].second.value, "urn:a & b");
        EXPECT_EQ(outline.namespaces[1].first, 1u);
        EXPECT_EQ(outline.namespaces[1].second.name, "xmlns:p");
    }
}

TEST(XmlOutline, NamesTheLineAndTheFault) {
    const std::string declared = "<?xml version='1.0' encoding=\"Utf-8\"?>\n";
    const struct {
        std::string bytes;
        int line;
        const char* fault;
    } rows[] = {
        {"", 1, "empty"},
        {" \n\n", 1, "empty"},
        {"<a>\n<b>\n</a>", 3, "</a> stands where <b> of line 2 should be closed"},
        {"<a>\n<b/>\n", 3, "before <a> of line 1 is closed"},
        {"<a/>\n</a>", 2, "</a> closes nothing"},
        {"<a/>\n<b/>", 2, "second root element"},
        {"<a/>\n\nx", 3, "outside the root"},
        {"x", 1, "outside the root"},
        {"<a>\n<!-- \n</a>", 2, "a comment is not closed"},
        {"<a>\n<![CDATA[\n</a>", 2, "a CDATA section is not closed"},
        {"<a>\n<?pi \n</a>", 2, "a processing instruction is not closed"},
        {"<a><!--\n--><!ENTITY x></a>", 2, "DOCTYPE"},
        {"<a>\n< b/></a>", 2, "a name is missing"},
        {"<a>\n<b\n</a>", 3, "<b> of line 2 is not closed"},
        {"<a>\n<b c\n/></a>", 3, "\"c\" has no value in quotes"},
        {"<a>\n<b c=d/></a>", 2, "\"c\" has no value in quotes"},
        {"<a>\n<b c='d/></a>", 2, "\"c\" has no value in quotes"},
        {"<a\nb='1'\nb='2'/>", 3, "\"b\" stands twice"},
        {"<a>\n<b c='1'd='2'/></a>", 2, "a blank is missing"},
        {"<a>\n<b c='>\n<d e=''/></a>", 2, "\"c\" has a \"<\" in its value"},
        {"<a>\n<1b/></a>", 2, "\"1b\" is no name"},
        {"<a>\n<b c@d=''/></a>", 2, "\"c@d\" is no name"},
        {"<a>\n]]></a>", 2, "outside a CDATA section"},
        {"<a><!--\n -- --></a>", 2, "within a comment"},
        {"\n<?xml version='1.0'?>\n<a/>", 2, "the very first thing"},
        {"<a>\n</a", 2, "</a> is not closed"},
        {"<a>\n<b/ ></a>", 2, "<b> of line 2 is not closed"},
        {"<a>\n&e;</a>", 2, "\"&e\" refers to nothing"},
        {"<a>\n& b</a>", 2, "\"& b\" refers to nothing"},
        {"<a b='\n&lt'/>", 2, "\"&lt\" refers to nothing"},
        {"<a>&#0;</a>", 1, "refers to nothing"},
        {"<a>&#xD800;</a>", 1, "refers to nothing"},
        {"<a>&#99999999999;</a>", 1, "refers to nothing"},
        {"<a>&#;</a>", 1, "refers to nothing"},
        {"<p:a/>", 1, "\"p:a\" is not declared"},
        {"<a><b xmlns:p='u'/>\n<b p:c='1'/></a>", 2, "\"p:c\" is not declared"},
        {"<a xmlns:p=''/>", 1, "\"xmlns:p\" gets no namespace"},
        {"<a>\n\x01</a>", 2, "character"},
        {"<a>\n\0</a>"s, 2, "character"},
        {"<a>\n\xC3</a>", 2, "character"},
        {declared + "<a>\n\xFF</a>", 3, "character"},
        {"\xFF\xFE<\0a\0>\0\n\0\x00\xD8<\0/\0a\0>\0"s, 2, "character"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.bytes);
        try {
            OutlineXml(row.bytes);
            ADD_FAILURE() << "no error";
        } catch (const DataError& error) {
            const std::string message = error.what();
            EXPECT_EQ(message.find("line " + std::to_string(row.line) + ": "), 0u) << message;
            EXPECT_NE(message.find(row.fault), std::string::npos) << message;
        }
    }
}

TEST(XmlOutline, LetsPassWhatIsNoneOfItsBusiness) {
    for (const char* text : {
             "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9</a>",
             "<a xml:lang='de' b=\"'\" c='\"]]>'>]] >&quot;&apos;&#x10FFFF;</a>",
             "<a xmlns:p='u'><p:b p:c='1'/><p:b/></a>",
             "<a>\xEF\xBF\xBD\xF0\x9F\x98\x80</a>",
         }) {
        SCOPED_TRACE(text);
        EXPECT_NO_THROW(OutlineXml(text));
    }
}

}  // namespace
}  // namespace kestrel
