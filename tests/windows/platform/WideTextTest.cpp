#include "platform/win32/WideText.h"

#include <gtest/gtest.h>

#include "platform/win32/Bstr.h"

namespace kestrel::win32 {
namespace {

TEST(WideText, KeepsEveryCharacterAndReplacesWhatIsBroken) {
    const struct {
        const char* utf8;
        const wchar_t* wide;
        const char* back;
    } rows[] = {
        {"", L"", ""},
        {"Größe 10 µm", L"Größe 10 µm", "Größe 10 µm"},
        {"\xF0\x9F\x8C\x8A", L"\xD83C\xDF0A", "\xF0\x9F\x8C\x8A"},
        {"a\xFF"
         "b",
         L"a\xFFFD"
         L"b",
         "a\xEF\xBF\xBD"
         "b"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.utf8);
        EXPECT_EQ(Wide(row.utf8), row.wide);
        EXPECT_EQ(Utf8(row.wide), row.back);
        EXPECT_EQ(Bstr(row.utf8).Utf8(), row.back);
    }
}

}  // namespace
}  // namespace kestrel::win32
