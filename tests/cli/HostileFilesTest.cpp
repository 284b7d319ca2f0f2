#include <gmock/gmock.h>

#include <functional>
#include <random>

#include "cli/CommandLine.h"

/// Files made to take time or memory, or to deceive: read in time and memory that grow with the
/// file, or refused in one short sentence.
namespace refhost::test {
namespace {

using testing::HasSubstr;

#ifdef __SANITIZE_ADDRESS__
constexpr int kSlowness = 10;
constexpr bool kBoundsMemory = false;  // the sanitizer reserves terabytes
#else
constexpr int kSlowness = 1;
constexpr bool kBoundsMemory = true;
#endif

std::string Repeated(int count, const std::function<std::string(const std::string&)>& piece) {
    std::string text;
    for (int i = 0; i < count; ++i) text += piece(std::to_string(i));
    return text;
}

std::string Plan(const std::string& inside) {
    return "<Plan Version='1' Name='P' Start='2026-01-05T08:00:00'>" + inside + "</Plan>";
}

std::string Task(const std::string& id, const std::string& inside) {
    return "<Task ID='" + id + "' Name='' Type='0' Duration='1'>" + inside + "</Task>";
}

/// Each task follows the one before; the first one follows `first`.
std::string Chain(int count, const std::string& first) {
    return Plan("<Tasks>" +
                Repeated(count,
                         [&](const std::string& i) {
                             const std::string before =
                                 i == "0" ? first : std::to_string(std::stoi(i) - 1);
                             return Task(i, before.empty() ? "" : "<Link From='" + before + "'/>");
                         }) +
                "</Tasks>");
}

std::string Project(const std::string& inside) {
    return "<Project xmlns='urn:x/project'><StartDate>2026-01-05T08:00:00</StartDate>" + inside +
           "<Tasks><Task><UID>1</UID><ID>1</ID><Duration>PT8H0M0S</Duration></Task></Tasks>"
           "</Project>";
}

std::string Junk(std::size_t size) {
    std::mt19937 random(1);
    std::string bytes(size, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    return bytes;
}

std::string Wide(const std::string& text) {
    std::string wide = "\xFF\xFE";
    for (const char c : text) wide += std::string{c, '\0'};
    return wide;
}

/// A register of that many factors, all carried by one task, as a plan.
std::string Factors(int count) {
    return Plan(
        "<Texts><Text Name='RiskFactors'>&lt;RiskFactors Version='RiskFactors1.00'>" +
        Repeated(count,
                 [](const std::string&) {
                     return "&lt;RiskFactor>&lt;Name/>&lt;Minimum>100&lt;/Minimum>"
                            "&lt;MostLikely>100&lt;/MostLikely>&lt;Maximum>100&lt;/Maximum>"
                            "&lt;Probability>50&lt;/Probability>&lt;/RiskFactor>";
                 }) +
        "&lt;/RiskFactors></Text></Texts><Tasks>" +
        Task("1", "<UserValue Name='RiskFactors'>(1," + std::to_string(count) + ")</UserValue>") +
        "</Tasks>");
}

TEST(HostileFiles, AreReadOrRefusedWithinBounds) {
    const int many = 100000;
    const struct {
        const char* name;
        std::string bytes;
        int exitCode;
        const char* told;
        int seconds = 1;      ///< of the processor
        int megabytes = 100;  ///< of addresses
        const char* words = "check p";
    } rows[] = {
        {"chain", Chain(many, ""), 0, "", 2, 300},
        {"loop", Chain(many, std::to_string(many - 1)), 1, "loop", 2, 300, "analyse p"},
        {"deep", Repeated(many, [](auto&) { return "<Task>"; }), 1, "200 deep"},
        {"huge value", "<Plan Version='1' Name='' Start='" + std::string(5 << 20, 'x') + "'/>", 1,
         "attribute 'Start'"},
        {"forged message",
         Plan("<Tasks>" + Task("1", "<Link From='&#10;&#x9B;2J all is well'/>") + "</Tasks>"), 1,
         "all is well"},
        {"junk", Junk(1 << 20), 1, "p: line "},
        {"UTF-16", Wide(Plan("<Tasks/>")), 0, ""},
        {"UTF-7",
         "<?xml version='1.0' encoding='utf-7'?>+ADwAIQ-DOCTYPE r [+ADwAIQ-ENTITY e 'x'+AD4AXQA+-"
         "<r>+ACY-e;</r>",
         1, ""},
        {"entities", "<!DOCTYPE r [<!ENTITY a 'xxxxxxxxxx'><!ENTITY b '&a;&a;&a;'>]><r>&b;&b;</r>",
         1, "DOCTYPE"},
        {"attributes", "<Plan " + Repeated(many, [](auto& i) { return "a" + i + "='' "; }) + "/>",
         1, "attributes"},
        {"prefixes",
         Repeated(150,
                  [](auto& i) {
                      return "<e " +
                             Repeated(200,
                                      [&](auto& j) { return "xmlns:p" + j + "='" + i + "' "; }) +
                             ">";
                  }) +
             Repeated(many, [](auto&) { return "<p0:e/>"; }) +
             Repeated(150, [](auto&) { return "</e>"; }),
         1, "prefixes"},
        {"user fields",
         Plan("<UserFields>" +
              Repeated(many, [](auto& i) { return "<UserField Name='" + i + "'/>"; }) +
              "</UserFields><Tasks/>"),
         0, "", 2, 300},
        {"factors", Factors(10000), 0, "", 2, 300, "analyse p --iterations 2"},
        {"chained calendars",
         Project("<CalendarUID>0</CalendarUID><Calendars>" +
                 Repeated(50000,
                          [](auto& i) {
                              return "<Calendar><UID>" + i + "</UID><BaseCalendarUID>" +
                                     std::to_string(std::stoi(i) + 1) +
                                     "</BaseCalendarUID></Calendar>";
                          }) +
                 "</Calendars>"),
         1, "calendar", 2, 300},
        {"exceptions of decades",
         Project(
             "<CalendarUID>1</CalendarUID><Calendars><Calendar><UID>1</"
             "UID><WeekDays><WeekDay><DayType>2</DayType><DayWorking>1</"
             "DayWorking><WorkingTimes><WorkingTime><FromTime>08:00:00</FromTime><ToTime>16:00:00</"
             "ToTime></WorkingTime></WorkingTimes></WeekDay></WeekDays><Exceptions>" +
             Repeated(81,
                      [](auto& i) {
                          return "<Exception><TimePeriod><FromDate>1900-01-01T00:00:00"
                                 "</FromDate><ToDate>" +
                                 std::to_string(9900 + std::stoi(i)) +
                                 "-01-01T00:00:00</ToDate></TimePeriod><DayWorking>0"
                                 "</DayWorking></Exception>";
                      }) +
             "</Exceptions></Calendar></Calendars>"),
         1, "calendar", 2, 300},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const Workplace place;
        place.Write("p", row.bytes);
        std::string limits = "ulimit -t " + std::to_string(kSlowness * row.seconds);
        if (kBoundsMemory) limits += "; ulimit -v " + std::to_string(1024 * row.megabytes);
        const RunResult result = place.Run(row.words, "/dev/null", limits);
        EXPECT_EQ(result.exitCode, row.exitCode) << result.errors.substr(0, 1000);
        EXPECT_THAT(result.errors.substr(0, 1000), HasSubstr(row.told));
        EXPECT_LE(result.errors.size(), 1000u);
        EXPECT_EQ(result.errors.find("\xC2\x9B"), std::string::npos) << "a terminal obeys it";
        if (row.exitCode != 0) {
            EXPECT_EQ(result.errors.find('\n'), result.errors.size() - 1);
        }
    }
}

}  // namespace
}  // namespace refhost::test
