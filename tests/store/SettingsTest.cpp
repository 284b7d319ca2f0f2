#include "store/modSettings.h"

#include <gtest/gtest.h>

#include "store/modRegistry.h"
#include "support/FakeDesktop.h"
#include "support/FakeHost.h"

namespace kestrel {
namespace {

using namespace std::string_literals;
using Getter = std::string (*)(host::Application&);
using Setter = void (*)(host::Application&, const std::string&);

TEST(Settings, EachHasItsKeyAndDefault) {
    const struct {
        const char* section;
        const char* key;
        Getter get;
        Setter save;  ///< null for what nothing writes
        const char* fallback;
    } rows[] = {
        {"RiskFactors", "FileLocation", GetFileLocation, SaveFileLocation,
         "C:\\Host\\Samples\\SampleRiskFactors.xml"},
        {"RiskFactors", "OptionSetting", GetOptionSetting, SaveOptionSetting, "2"},
        {"RiskFactors", "AssignView", GetAssignView, nullptr, "1"},
        {"RiskFactors", "Top", GetTop, SaveTop, "180"},
        {"RiskFactors", "Left", GetLeft, SaveLeft, "20.25"},
        {"RiskFactors", "CalculationOption", GetCalculationOption, SaveCalculationOption, "1"},
        {"Options", "ShowTopRisks", GetShowTopRisks, nullptr, "10"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.key);
        test::FakeHost host;
        auto& stored = host.application->settings;
        EXPECT_EQ(row.get(*host.application), row.fallback);
        stored[{"RiskFactors", row.section, row.key}] = "set";
        EXPECT_EQ(row.get(*host.application), "set");
        if (!row.save) continue;
        row.save(*host.application, "saved");
        EXPECT_EQ((stored[{"RiskFactors", row.section, row.key}]), "saved");
        EXPECT_EQ(stored.size(), 1u);
    }
}

TEST(Settings, IterationsShowOnlyForExactlyTrue) {
    test::FakeHost host;
    EXPECT_FALSE(GetShowIterations(*host.application));
    std::string& stored =
        host.application->settings[{"RiskFactors", "RiskFactors", "ShowIterations"}];
    for (const char* text : {"True", "true", "1", " TRUE"}) {
        stored = text;
        EXPECT_FALSE(GetShowIterations(*host.application)) << text;
    }
    SaveShowIterations(*host.application, true);
    EXPECT_EQ(stored, "TRUE");
    EXPECT_TRUE(GetShowIterations(*host.application));
    SaveShowIterations(*host.application, false);
    EXPECT_EQ(stored, "FALSE");
}

TEST(Registry, ValuesBecomeTextByTheirType) {
    const std::string longest(2048, 'x');
    std::string sharp;
    for (int i = 0; i < 2047; ++i) sharp += "ß";
    const struct {
        const char* name;
        std::uint32_t type;
        std::string bytes;
        std::string text;
    } rows[] = {
        {"string", 1, "C:\\Plans\0"s, "C:\\Plans"},
        {"string without NUL", 1, "abc", "ab"},
        {"empty", 1, "", ""},
        {"number", 4, "\x07\0\0\0"s, "007"},
        {"long number", 4, "\xD2\x04\0\0"s, "123"},
        {"largest number", 4, "\xFF\xFF\xFF\xFF"s, "429"},
        {"binary", 3, "\0\x0A\xFF"s, "000AFF"},
        {"fits the buffer", 1, longest, longest.substr(1)},
        {"beyond the buffer", 1, longest + 'x', "default"},
        {"fits before it is decoded", 1, std::string(2047, '\xDF') + '\0', sharp},
    };
    test::FakeDesktop desktop;
    EXPECT_EQ(GetRegValue(desktop, "key", "absent", "default"), "default");
    for (const auto& row : rows) {
        desktop.registry[{"key", row.name}] = {row.type, row.bytes};
        EXPECT_EQ(GetRegValue(desktop, "key", row.name, "default"), row.text) << row.name;
    }
}

}  // namespace
}  // namespace kestrel
