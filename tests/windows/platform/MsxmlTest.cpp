#include <windows.h>
#include <gtest/gtest.h>
#include <objbase.h>

#include <thread>

#include "platform/win32/ComApartment.h"
#include "platform/win32/MsxmlParser.h"

namespace kestrel::win32 {
namespace {

constexpr const char* kDocument =
    "<?xml version='1.0' encoding='windows-1252'?>\r\n<!-- n -->\r\n"
    "<R Version='RiskFactors1.00' xmlns='urn:d' xmlns:q='urn:q'>\r\n"
    "  <q:F ID='1' q:x='&lt;&amp;\"&#9;'> a &amp; \xE4 <![CDATA[<b>&]]>c&#13;\r\n</q:F>\r\n"
    "  <e/>\t<E xmlns=''> </E><?pi x?>\r\n</R>";

TEST(Msxml, EveryVersionGivesTheSameText) {
    int found = 0;
    for (int version = 0; version < kXmlClassCount; ++version) {
        const XmlDocument document = ParseXmlBytesWith(version, kDocument);
        if (document.IsEmpty()) continue;
        ++found;
        EXPECT_EQ(SerialiseXml(document.root),
                  "<R xmlns=\"urn:d\" xmlns:q=\"urn:q\" Version=\"RiskFactors1.00\">\n"
                  "  <q:F ID=\"1\" q:x=\"&lt;&amp;&quot;&#9;\"> a &amp; \xC3\xA4 &lt;b&gt;&amp;c"
                  "&#13;\n</q:F>\n  <e/>\t<E xmlns=\"\"> </E>\n</R>")
            << "class " << version;
        EXPECT_EQ(document.root.children[3].line, 6);
    }
    EXPECT_GT(found, 0);
}

bool HasCom() {
    APTTYPE type;
    APTTYPEQUALIFIER qualifier;
    return SUCCEEDED(CoGetApartmentType(&type, &qualifier));
}

TEST(Msxml, NeedsNoComOnTheCallersThreadAndLeavesNone) {
    const struct {
        const char* name;
        DWORD kind;
        bool started;
    } rows[] = {{"none", 0, false},
                {"single", COINIT_APARTMENTTHREADED, true},
                {"multi", COINIT_MULTITHREADED, true}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        std::thread([&row] {
            EXPECT_EQ(row.started && SUCCEEDED(CoInitializeEx(nullptr, row.kind)), row.started);
            EXPECT_EQ(ParseXmlBytes("<a>x</a>").root.TextContent(), "x");
            EXPECT_EQ(HasCom(), row.started);
            if (row.started) CoUninitialize();
            EXPECT_FALSE(HasCom());
        }).join();
    }
}

}  // namespace
}  // namespace kestrel::win32
