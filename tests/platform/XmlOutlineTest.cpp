#include "platform/XmlOutline.h"

#include <gtest/gtest.h>

#include "base/Errors.h"
#include "platform/SystemDesktop.h"

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

template <class Read>
std::string MessageOf(const Read& read, const std::string& bytes) {
    try {
        read(bytes);
    } catch (const DataError& error) {
        return error.what();
    }
    return "no error";
}

TEST(XmlOutline, PlacesTheFaultsThatItFindsAndLeavesTheOthersToTheParser) {
    const struct {
        std::string bytes;
        int line = 0;
        const char* fault = "";  ///< none: the parser's to find
    } rows[] = {
        {"", 1, "empty"},
        {" \n\n", 1, "empty"},
        {"<a>\n<b>\n</a>", 3, "</a> stands where <b> of line 2 should be closed"},
        {"<a>\n<b/>\n", 3, "before <a> of line 1 is closed"},
        {"<a/>\n</a>", 2, "</a> closes nothing"},
        {"<a>\n<!-- \n</a>", 2, "\"<!-- \" is not closed"},
        {"<a>\n<![CDATA[\n</a>", 2, "\"<![CDATA[\" is not closed"},
        {"<a>\n<?pi \n</a>", 2, "\"<?pi \" is not closed"},
        {"<a>\n<b\n</a>", 2, "\"<b\" is not closed"},
        {"<a>\n<b c='>\n<d e=''/></a>", 2, "is not closed"},
        {"<a>\n<b c='d/></a>", 2, "is not closed"},
        {"<a b='<c/>'/>", 1, "is not closed"},
        {"<a>\n</a", 2, "\"</a\" is not closed"},
        {"<p:a/>", 1, "\"p:a\" is not declared"},
        {"<a><b xmlns:p='u'/>\n<b p:c='1'/></a>", 2, "\"p:c\" is not declared"},
        {"<a xmlns:p=''/>", 1, "\"xmlns:p\" gets no namespace"},
        {"<a/>\n<b/>"},
        {"<a/>\nx"},
        {"x"},
        {"<a>\n< b/></a>"},
        {"<a>\n<b c\n/></a>"},
        {"<a>\n<b c=d/></a>"},
        {"<a\nb='1'\nb='2'/>"},
        {"<a>\n<b c='1'd='2'/></a>"},
        {"<a>\n<1b/></a>"},
        {"<a>\n]]></a>"},
        {"<a><!--\n -- --></a>"},
        {"\n<?xml version='1.0'?>\n<a/>"},
        {"<a>\n<b/ ></b/></a>"},
        {"<a>\n&e;</a>"},
        {"<a b='\n&lt'/>"},
        {"<a>&#0;</a>"},
        {"<a>\n\x01</a>"},
        {"<a>\n\0</a>"s},
        {"<a/>\0<b/>"s},
        {"<a>\n\xC3</a>"},
        {"\xFF\xFE<\0a\0>\0\n\0\x00\xD8<\0/\0a\0>\0"s},
        {"<?xml version='1.0' encoding='EUC-JP'?>\n<a>" + std::string(9000, 'x') + "\xFF\xFF</a>"},
        {"<?xml version='1.0' encoding='utf-8nope'?><a/>"},
    };
    testing::internal::CaptureStderr();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.bytes.substr(0, 60));
        const std::string parsed =
            MessageOf([](const auto& bytes) { SystemDesktop().ParseXml(bytes); }, row.bytes);
        EXPECT_TRUE(parsed.starts_with("line ") || parsed.starts_with("the document is malformed"))
            << parsed;
        EXPECT_FALSE(parsed.starts_with("line 0")) << parsed;
        if (!*row.fault) continue;
        const std::string walked = MessageOf(OutlineXml, row.bytes);
        EXPECT_TRUE(walked.starts_with("line " + std::to_string(row.line) + ": ")) << walked;
        EXPECT_NE(walked.find(row.fault), std::string::npos) << walked;
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "parsers print nothing";
}

}  // namespace
}  // namespace kestrel
