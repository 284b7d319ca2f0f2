#include <gtest/gtest.h>

#include <random>

#include "base/Errors.h"
#include "platform/XmlOutline.h"
#include "platform/posix/XmlParser.h"

namespace kestrel {
namespace {

/// The document with a few pieces of markup put in, left out or repeated at random.
std::string Mangled(std::string text, std::mt19937& random) {
    constexpr const char* kPieces[] = {
        "<",   "</",  ">",   "/>",   "'", "\"", "&",  "&amp;", "\n", " ", "<!--", "<![CDATA[",
        "-->", "]]>", "<b>", "</b>", "=", "p:", "<?", "?>",    "--", "1", "<b/>", "c='d'"};
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    for (std::size_t i = 1 + below(3); i > 0; --i) {
        const std::size_t at = below(text.size() + 1);
        switch (below(3)) {
            case 0:
                text.insert(at, kPieces[below(std::size(kPieces))]);
                break;
            case 1:
                text.erase(at, 1 + below(4));
                break;
            default:
                text.insert(at, text.substr(below(text.size()), 1 + below(20)));
        }
    }
    return text;
}

void CollectLines(const XmlNode& node, std::vector<int>& lines) {
    if (node.IsElement()) lines.push_back(node.line);
    for (const XmlNode& child : node.children) CollectLines(child, lines);
}

// On Windows the outline stands before the parser: it must not refuse what is well formed, and its
// elements must be the parser's.
TEST(XmlOutline, AgreesWithAParserOnWhateverThatAccepts) {
    const std::string seeds[] = {
        "<?xml version='1.0'?>\n<!-- n --><r xmlns='urn:a' xmlns:p='urn:b'>\n <p:c\n\n p:d='1 "
        "&amp; "
        "&lt;2&#38;' e='\xC3\xA9'/>\n<?pi data?><f xmlns=''/></r>\n",
        "<a b='1' c=\"&#x41;\"><![CDATA[x]]>y<b/>\n<c>z</c></a>",
        "<?xml version='1.0' encoding='ISO-8859-1'?><r>\xE9<x/></r>",
    };
    std::mt19937 random(1);
    int accepted = 0;
    for (int i = 0; i < 6000; ++i) {
        const std::string text = Mangled(seeds[static_cast<std::size_t>(i) % 3], random);
        SCOPED_TRACE(text);
        std::vector<int> lines;
        try {
            CollectLines(ParseXmlBytes(text).root, lines);
        } catch (const DataError&) {
            continue;
        }
        ++accepted;
        ASSERT_NO_THROW(EXPECT_EQ(OutlineXml(text).lines, lines));
    }
    EXPECT_GT(accepted, 300);
}

}  // namespace
}  // namespace kestrel
