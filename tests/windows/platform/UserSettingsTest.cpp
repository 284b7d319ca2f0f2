#include <windows.h>
#include <gtest/gtest.h>

#include "platform/win32/Handles.h"
#include "platform/win32/Win32Desktop.h"
#include "store/modRegistry.h"
#include "util/modLocale.h"

namespace kestrel::win32 {
namespace {

using namespace std::string_literals;

constexpr const char* kTestKey = "Software\\KestrelTest";

/// A key below HKEY_CURRENT_USER, removed at the end.
class TestKey {
 public:
    TestKey() { RegCreateKeyA(HKEY_CURRENT_USER, kTestKey, key_.Out()); }
    ~TestKey() {
        key_.Close();
        RegDeleteTreeA(HKEY_CURRENT_USER, kTestKey);
    }
    TestKey(const TestKey&) = delete;
    TestKey& operator=(const TestKey&) = delete;

    void Set(const char* name, DWORD type, const std::string& bytes) {
        RegSetValueExA(key_.Get(), name, 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                       static_cast<DWORD>(bytes.size()));
    }

 private:
    RegistryKey key_;
};

TEST(UserRegistry, ReadsEveryTypeAsText) {
    const struct {
        const char* name;
        DWORD type;
        std::string stored;
        std::string read;
    } rows[] = {
        {"text", REG_SZ, "C:\\Plans\0"s, "C:\\Plans"},
        {"letters", REG_SZ, "C:\\Pl\xE4ne\0"s, "C:\\Pl\xC3\xA4ne"},
        {"expandable", REG_EXPAND_SZ, "%TEMP%\\x\0"s, "%TEMP%\\x"},
        {"small number", REG_DWORD, "\x05\0\0\0"s, "005"},
        {"number", REG_DWORD, "\xD2\x04\0\0"s, "123"},
        {"binary", REG_BINARY, "\x00\x0A\xFF"s, "000AFF"},
        {"no binary", REG_BINARY, "", ""},
        {"empty", REG_SZ, "\0"s, ""},
        {"longest", REG_SZ, std::string(2047, 'x') + '\0', std::string(2047, 'x')},
        {"too long", REG_SZ, std::string(2048, 'x') + '\0', "fallback"},
    };
    ASSERT_EQ(GetACP(), 1252u) << "the row with letters is written for this code page";
    TestKey key;
    Win32Desktop desktop;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        key.Set(row.name, row.type, row.stored);
        EXPECT_EQ(GetRegValue(desktop, kTestKey, row.name, "fallback"), row.read);
    }
    EXPECT_EQ(GetRegValue(desktop, kTestKey, "absent", "fallback"), "fallback");
    EXPECT_EQ(GetRegValue(desktop, "Software\\KestrelAbsent", "x", "fallback"), "fallback");
}

/// Puts the user's separator back, whatever happens.
struct SeparatorGuard {
    Win32Desktop& desktop;
    const std::string kept = desktop.LocaleString(LocaleItem::DecimalSeparator);
    ~SeparatorGuard() { desktop.SetLocaleString(LocaleItem::DecimalSeparator, kept); }
};

TEST(UserLocale, TheSeparatorIsAPointDuringACommandAndTheUsersOwnAfterwards) {
    Win32Desktop desktop;
    const SeparatorGuard guard{desktop};
    for (const std::string own : {",", ";", "\xC2\xB7"}) {
        SCOPED_TRACE(own);
        desktop.SetLocaleString(LocaleItem::DecimalSeparator, own);
        EXPECT_EQ(GetLocaleString(desktop, LocaleItem::DecimalSeparator), own);
        const std::string saved = ForceDecimalPoint(desktop);
        EXPECT_EQ(saved, own);
        wchar_t seen[8] = L"";  // by any other program
        GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, seen, 8);
        EXPECT_STREQ(seen, L".");
        RestoreDecimalSeparator(desktop, saved);
        EXPECT_EQ(desktop.LocaleString(LocaleItem::DecimalSeparator), own);
    }
    EXPECT_EQ(desktop.LocaleString(static_cast<LocaleItem>(0xFFFF)), "");
    EXPECT_EQ(desktop.UserLanguage(), GetUserDefaultLangID());
}

}  // namespace
}  // namespace kestrel::win32
