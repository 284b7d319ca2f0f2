#include "com/automation/HostValue.h"

#include <gmock/gmock.h>

#include <cmath>
#include <functional>
#include <limits>
#include <optional>

#include "base/Errors.h"
#include "base/NumberText.h"
#include "platform/win32/Variant.h"
#include "windows/support/Interception.h"
#include "windows/support/OfferedHost.h"

namespace kestrel::com {
namespace {

using win32::Bstr;
using win32::ComPtr;
using win32::Variant;

using Maker = std::function<void(Variant&)>;

/// A value of that type, in the union's member for it.
template <class Member>
Maker Is(int type, Member VARIANT::*member, std::type_identity_t<Member> content) {
    return [=](Variant& value) {
        value.vt = static_cast<VARTYPE>(type);
        value.*member = content;
    };
}

Maker Empty(VARTYPE type) {
    return [=](Variant& value) { value.vt = type; };
}

Maker Text(const wchar_t* text) {
    return [=](Variant& value) {
        value.vt = VT_BSTR;
        value.bstrVal = Bstr(std::wstring_view(text)).Detach();
    };
}

/// What the conversion answers, or nothing where it raises a HostError that names the member.
template <class Value>
std::optional<Value> Try(Value (*convert)(const VARIANT&, HostMember), const VARIANT& answer) {
    try {
        return convert(answer, HostMember::TaskDuration);
    } catch (const HostError& error) {
        EXPECT_THAT(error.what(), testing::StartsWith("The host answered Task.Duration with "));
        EXPECT_THAT(error.what(), testing::EndsWith(" is needed."));
        return std::nullopt;
    }
}

std::string Shown(const std::optional<double>& value) {
    return value ? GeneralText(*value) : "refused";
}

/// A number for each of the model's types; nothing where the answer must be refused.
struct Expected {
    std::optional<double> number;
    std::optional<std::int32_t> int32;
    std::optional<std::int16_t> int16;
    std::optional<bool> truth;
    std::optional<std::string> text;
};

constexpr std::nullopt_t kNo = std::nullopt;

const Expected kRefused{kNo, kNo, kNo, kNo, kNo};

struct Row {
    const char* what;
    Maker make;
    Expected expected;
};

long kLong = 70000;
double kDouble = 12.5;
VARIANT_BOOL kTrue = VARIANT_TRUE;
VARIANT kInner{};

DECIMAL Decimal(unsigned long long low, unsigned char scale, bool negative) {
    DECIMAL decimal{};
    decimal.Lo64 = low;
    decimal.scale = scale;
    decimal.sign = negative ? DECIMAL_NEG : 0;
    return decimal;
}

const Row kRows[] = {
    {"empty", Empty(VT_EMPTY), {0.0, 0, 0, false, ""}},
    {"null", Empty(VT_NULL), {0.0, 0, 0, false, ""}},
    {"missing", Is(VT_ERROR, &VARIANT::scode, DISP_E_PARAMNOTFOUND), {0.0, 0, 0, false, ""}},
    {"no object", Empty(VT_DISPATCH), {0.0, 0, 0, false, ""}},
    {"I1", Is(VT_I1, &VARIANT::cVal, static_cast<char>(-5)), {-5.0, -5, -5, true, "-5"}},
    {"I2", Is(VT_I2, &VARIANT::iVal, -300), {-300.0, -300, -300, true, "-300"}},
    {"I4", Is(VT_I4, &VARIANT::lVal, 70000), {70000.0, 70000, kNo, true, "70000"}},
    {"INT", Is(VT_INT, &VARIANT::intVal, -7), {-7.0, -7, -7, true, "-7"}},
    {"I8 that fits", Is(VT_I8, &VARIANT::llVal, -12), {-12.0, -12, -12, true, "-12"}},
    {"I8 beyond 32 bits",
     Is(VT_I8, &VARIANT::llVal, 2147483648LL),
     {2147483648.0, kNo, kNo, true, "2147483648"}},
    {"UI1", Is(VT_UI1, &VARIANT::bVal, 200), {200.0, 200, 200, true, "200"}},
    {"UI2", Is(VT_UI2, &VARIANT::uiVal, 65535), {65535.0, 65535, kNo, true, "65535"}},
    {"UI4", Is(VT_UI4, &VARIANT::ulVal, 4294967295u), {4294967295.0, kNo, kNo, true, "4294967295"}},
    {"UINT", Is(VT_UINT, &VARIANT::uintVal, 3), {3.0, 3, 3, true, "3"}},
    {"UI8",
     Is(VT_UI8, &VARIANT::ullVal, 18446744073709551615ull),
     {18446744073709551616.0, kNo, kNo, true, "18446744073709551615"}},
    {"R4", Is(VT_R4, &VARIANT::fltVal, 0.5f), {0.5, 0, 0, true, "0.5"}},
    {"R8, half up to even", Is(VT_R8, &VARIANT::dblVal, 3.5), {3.5, 4, 4, true, "3.5"}},
    {"R8 too large", Is(VT_R8, &VARIANT::dblVal, 1e300), {1e300, kNo, kNo, true, "1E+300"}},
    {"R8 not a number", Is(VT_R8, &VARIANT::dblVal, std::numeric_limits<double>::quiet_NaN()),
     kRefused},
    {"R4 infinite", Is(VT_R4, &VARIANT::fltVal, -HUGE_VALF), kRefused},
    {"CY", Is(VT_CY, &VARIANT::cyVal, CY{.int64 = -12345}), {-1.2345, -1, -1, true, "-1.2345"}},
    {"DATE", Is(VT_DATE, &VARIANT::date, 45000.25), {45000.25, 45000, kNo, true, "45000.25"}},
    {"DECIMAL",
     [](Variant& v) {
         v.decVal = Decimal(1234567, 3, true);
         v.vt = VT_DECIMAL;
     },
     {-1234.567, -1235, -1235, true, "-1234.567"}},
    {"BOOL, set otherwise than -1",
     Is(VT_BOOL, &VARIANT::boolVal, 1),
     {-1.0, -1, -1, true, "True"}},
    {"BOOL false", Is(VT_BOOL, &VARIANT::boolVal, VARIANT_FALSE), {0.0, 0, 0, false, "False"}},
    {"text of a number", Text(L" 12.5 "), {12.5, 12, 12, true, " 12.5 "}},
    {"text of zero", Text(L"0"), {0.0, 0, 0, false, "0"}},
    {"text with a decimal comma", Text(L"12,5"), {kNo, kNo, kNo, kNo, "12,5"}},
    {"text of truth", Text(L"TRUE"), {kNo, kNo, kNo, true, "TRUE"}},
    {"text of untruth", Text(L"False"), {kNo, kNo, kNo, false, "False"}},
    {"empty text", Text(L""), {kNo, kNo, kNo, kNo, ""}},
    {"text of an endless number", Text(L"1e999"), {kNo, kNo, kNo, kNo, "1e999"}},
    {"other letters", Text(L"Größe \x03A9"), {kNo, kNo, kNo, kNo, "Größe Ω"}},
    {"text without a string", Empty(VT_BSTR), {kNo, kNo, kNo, kNo, ""}},
    {"reference to I4",
     Is(VT_I4 | VT_BYREF, &VARIANT::plVal, &kLong),
     {70000.0, 70000, kNo, true, "70000"}},
    {"reference to R8",
     Is(VT_R8 | VT_BYREF, &VARIANT::pdblVal, &kDouble),
     {12.5, 12, 12, true, "12.5"}},
    {"reference to BOOL",
     Is(VT_BOOL | VT_BYREF, &VARIANT::pboolVal, &kTrue),
     {-1.0, -1, -1, true, "True"}},
    {"reference to a value that refers",
     [](Variant& v) {
         kInner.vt = VT_I4 | VT_BYREF;
         kInner.plVal = &kLong;
         v.vt = VT_VARIANT | VT_BYREF;
         v.pvarVal = &kInner;
     },
     {70000.0, 70000, kNo, true, "70000"}},
    {"reference to nowhere", Is(VT_I4 | VT_BYREF, &VARIANT::plVal, nullptr), kRefused},
    {"reference to no value", Is(VT_VARIANT | VT_BYREF, &VARIANT::pvarVal, nullptr), kRefused},
    {"an error", Is(VT_ERROR, &VARIANT::scode, E_ACCESSDENIED), kRefused},
    {"an array",
     [](Variant& v) {
         v.vt = VT_ARRAY | VT_I4;
         v.parray = SafeArrayCreateVector(VT_I4, 0, 3);
     },
     kRefused},
    {"a type that no value has", Is(VT_CARRAY, &VARIANT::lVal, 1), kRefused},
};

TEST(HostValue, TakesEveryAnswerThatCanBeMeantAndRefusesTheRest) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.what);
        Variant answer;
        row.make(answer);
        const auto number = Try(NumberOf, answer);
        EXPECT_EQ(Shown(number), Shown(row.expected.number));
        EXPECT_EQ(Try(Int32Of, answer), row.expected.int32);
        EXPECT_EQ(Try(Int16Of, answer), row.expected.int16);
        EXPECT_EQ(Try(TruthOf, answer), row.expected.truth);
        EXPECT_EQ(Try(TextOf, answer), row.expected.text);
        if (answer.vt == VT_CARRAY) answer.vt = VT_EMPTY;  // which the system would not clear
    }
}

TEST(HostValue, TakesObjectsOfEitherKindAndNeverTheirDefaultProperty) {
    refhost::test::OfferedHost offered;
    const auto between = std::make_shared<test::Interception>();
    const auto tasks = refhost::test::Follow(offered.PlanObject(), {L"Tasks"});
    const auto object = between->Over(tasks.Get());
    const Variant dispatch(object.Get());
    Variant unknown;
    unknown.vt = VT_UNKNOWN;
    unknown.punkVal = ComPtr<IUnknown>(object.Get()).Detach();
    IDispatch* held = object.Get();
    VARIANT reference{};
    reference.vt = VT_DISPATCH | VT_BYREF;
    reference.ppdispVal = &held;
    for (const VARIANT* answer :
         {static_cast<const VARIANT*>(&dispatch), static_cast<const VARIANT*>(&unknown),
          static_cast<const VARIANT*>(&reference)}) {
        SCOPED_TRACE(answer->vt);
        EXPECT_EQ(ObjectOf(*answer, HostMember::PlanTasks).Get(), object.Get());
        EXPECT_EQ(Try(NumberOf, *answer), std::nullopt);
        EXPECT_EQ(Try(TextOf, *answer), std::nullopt);
    }
    EXPECT_EQ(between->calls.size(), 0u);

    // An object that cannot be called by name is of no use.
    Variant other;
    other.vt = VT_UNKNOWN;
    const auto list = refhost::test::Invoke(*tasks, DISPID_NEWENUM, DISPATCH_PROPERTYGET);
    other.punkVal = ComPtr<IUnknown>(list.value->punkVal).Detach();
    EXPECT_THROW(ObjectOf(other, HostMember::PlanTasks), HostError);
    EXPECT_THROW(ObjectOf(Variant(std::int32_t{1}), HostMember::PlanTasks), HostError);
    EXPECT_FALSE(ObjectOf(Variant(), HostMember::PlanTasks));
}

TEST(HostValue, SaysWhatTheHostAnsweredAndWhatIsNeeded) {
    const auto sentence = [](const Variant& answer) -> std::string {
        try {
            Int32Of(answer, HostMember::TaskDuration);
        } catch (const HostError& error) {
            return error.what();
        }
        return {};
    };
    EXPECT_EQ(sentence(Variant(3e9)),
              "The host answered Task.Duration with 3000000000 where a whole number from "
              "-2147483648 to 2147483647 is needed.");
    EXPECT_EQ(sentence(Variant("five days")),
              "The host answered Task.Duration with the text \"five days\" where a number is "
              "needed.");
    EXPECT_THAT(sentence(Variant(std::string(59, 'x') + "ä and much more")),
                testing::HasSubstr("\"" + std::string(59, 'x') + "...\""));
}

}  // namespace
}  // namespace kestrel::com
