#include <gmock/gmock.h>

#include "platform/win32/Bstr.h"
#include "windows/support/OfferedHost.h"

namespace refhost::test {
namespace {

using testing::HasSubstr;

VARIANT Raw(VARTYPE type) {
    VARIANT value{};
    value.vt = type;
    return value;
}

VARIANT LeftOut() {
    VARIANT value = Raw(VT_ERROR);
    value.scode = DISP_E_PARAMNOTFOUND;
    return value;
}

TEST(Call, ReadsWhatTheAddInSeldomAsksFor) {
    OfferedHost offered;
    const auto plan = offered.PlanObject();
    const struct {
        const char* what;
        Answer answer;
        double number;
        const char* text;
    } rows[] = {
        {"GetText, absent", Get(*plan, L"GetText", {"None"}), 0, ""},
        {"Path", Get(*offered.application, L"Path"), 0, "C:\\Host"},
        {"GetSetting", Get(*offered.application, L"GetSetting", {"a", "s", "k", "other"}), 0,
         "other"},
        {"VersionMajor", Get(*offered.application, L"VersionMajor"), 8, nullptr},
        {"Tasks.Count", Get(*Follow(plan, {L"Tasks"}), L"Count"), 3, nullptr},
        {"second child", Get(*ItemOf(Follow(offered.Task("S"), {L"ChildTasks"}), 2), L"ID"), 0,
         "B"},
        {"Finish", Get(*Follow(plan, {L"SummaryTask"}), L"Finish"), 46028 + 17 / 24.0, nullptr},
        {"plan's cost", Get(*Follow(plan, {L"SummaryTask"}), L"Cost"), 112.5, nullptr},
        {"TypeName", Get(*Follow(plan, {L"CurrentView"}), L"TypeName"), 0, "GanttChart"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(row.answer.code, S_OK) << row.answer.description;
        if (row.text)
            EXPECT_EQ(row.answer.Text(), row.text);
        else
            EXPECT_DOUBLE_EQ(row.answer.Number(), row.number);
    }
}

TEST(Call, ConvertsNumbersAsAutomationDoesWithAPointInEveryLocale) {
    VARIANT wide = Raw(VT_I8);
    wide.llVal = 77;
    VARIANT referred = Raw(VT_I4);
    referred.lVal = 55;
    VARIANT reference = Raw(VT_BYREF | VT_VARIANT);
    reference.pvarVal = &referred;
    VARIANT notFinite = Raw(VT_R8);
    notFinite.dblVal = std::numeric_limits<double>::infinity();
    const struct {
        const wchar_t* member;
        Argument argument;
        HRESULT code;
        double result;
    } rows[] = {
        {L"Duration", 4800.0, S_OK, 4800},
        {L"Duration", "60", S_OK, 60},
        {L"Duration", 2.5, S_OK, 2},  // halves to even, as Automation rounds
        {L"Duration", wide, S_OK, 77},
        {L"Duration", reference, S_OK, 55},
        {L"Duration", "soon", DISP_E_TYPEMISMATCH, 480},
        {L"Duration", 3e9, DISP_E_OVERFLOW, 480},
        {L"Duration", LeftOut(), DISP_E_BADPARAMCOUNT, 480},
        {L"Duration", -5.0, DISP_E_EXCEPTION, 480},
        {L"Cost", "1234.5", S_OK, 1234.5},
        {L"Cost", std::int32_t{7}, S_OK, 7},
        {L"Cost", notFinite, DISP_E_OVERFLOW, 12.5},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.member << " " << row.argument.Value().vt);
        OfferedHost offered;
        ComPtr<IDispatch> object = offered.Task("A");
        if (row.member == std::wstring(L"Cost")) object = ItemOf(Follow(object, {L"CostItems"}), 1);
        const Answer answer = Put(*object, row.member, {row.argument});
        EXPECT_EQ(answer.code, row.code) << answer.description;
        if (FAILED(row.code) && row.code != DISP_E_EXCEPTION) {
            EXPECT_EQ(answer.badArgument, 0u);
        }
        EXPECT_DOUBLE_EQ(Get(*object, row.member).Number(), row.result);
    }
}

TEST(Call, PutsNamedArgumentsInTheirPlaces) {
    OfferedHost offered;
    const auto plan = offered.PlanObject();
    const DISPID setText = IdOf(*plan, L"SetText");
    const Arguments values = {"T", "N"};  // written as Text:="T", Name:="N", stored reversed
    EXPECT_EQ(Invoke(*plan, setText, DISPATCH_METHOD, values, {0, 1}).code, S_OK);
    EXPECT_EQ(Get(*plan, L"GetText", {"N"}).Text(), "T");
    EXPECT_EQ(Invoke(*plan, setText, DISPATCH_METHOD, {"first", "second"}, {1}).code, S_OK);
    EXPECT_EQ(Get(*plan, L"GetText", {"first"}).Text(), "second");
    const struct {
        const char* what;
        std::vector<DISPID> names;
        HRESULT code;
    } wrong[] = {{"no such parameter", {7}, DISP_E_PARAMNOTFOUND},
                 {"given twice", {0}, DISP_E_BADPARAMCOUNT},
                 {"a value of no put", {DISPID_PROPERTYPUT}, DISP_E_PARAMNOTFOUND}};
    for (const auto& row : wrong)
        EXPECT_EQ(Invoke(*plan, setText, DISPATCH_METHOD, {"N", "T"}, row.names).code, row.code)
            << row.what;
}

TEST(Call, TellsWhatTheHostRefusesInItsOwnWords) {
    OfferedHost offered;
    const auto plan = offered.PlanObject();
    const auto tasks = Follow(plan, {L"Tasks"});
    const auto groups = Follow(plan, {L"Groups"});
    const auto fields = Follow(plan, {L"UserFieldDefinitions"});
    const auto analysis = Follow(plan, {L"RiskAnalysis"});
    const auto view = Follow(plan, {L"CurrentView"});
    const struct {
        Answer answer;
        const char* sentence;
    } rows[] = {
        {Get(*tasks, L"Item", {std::int32_t{4}}), "no task number 4"},
        {Get(*tasks, L"Item", {std::int32_t{0}}), "no task number 0"},
        {Get(*groups, L"Remove", {"none"}), "no group 'none'"},
        {Get(*groups, L"Add", {"G"}), "already has a group 'G'"},
        {Get(*fields, L"Item", {"none"}), "no user field 'none'"},
        {Get(*fields, L"Add", {"Owner", std::int32_t{1}}), "already defines"},
        {Get(*analysis, L"Run", {std::int32_t{0}}), "0 iterations"},
        {Put(*offered.Task("A"), L"Duration", {-5.0}), "'A' cannot be -5 minutes"},
        {Put(*view, L"CurrentRow", {99999.0}), "no row number 99999"},
        {Put(*view, L"CurrentRow", {0.0}), "no row number 0"},
        {Get(*plan, L"SetText", {"Note", "a\x01"}), "character number 1 at its byte 2"},
        {Put(*Follow(offered.Task("A"), {L"UserValues"}), L"Item", {"Owner", "\x1F"}), "number 31"},
        {Get(*fields, L"Add", {"\x0C", std::int32_t{1}}), "character number 12"},
        {Get(*offered.application, L"Open", {"gone.kplan"}), "'gone.kplan' is not there"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.answer.code, DISP_E_EXCEPTION);
        EXPECT_THAT(row.answer.description, HasSubstr(row.sentence));
    }
    // What is merely absent is Nothing.
    for (const auto& [collection, key] : {std::pair(tasks, "Z"), {groups, "none"}}) {
        const Answer absent = Get(*collection, L"Item", {key});
        EXPECT_EQ(absent.code, S_OK);
        EXPECT_EQ(absent.value->vt, VT_DISPATCH);
        EXPECT_FALSE(absent.Object());
    }
}

TEST(Call, GivesArgumentsOfAPropertyWithoutAnyToTheDefaultMemberOfItsObject) {
    OfferedHost offered;
    const auto plan = offered.PlanObject();
    const auto first = Get(*plan, L"Tasks", {std::int32_t{2}}).Object();
    ASSERT_TRUE(first);
    EXPECT_EQ(Get(*first, L"ID").Text(), "A");
    EXPECT_EQ(Get(*first, L"UserValues", {"Owner"}).Text(), "Ada");
    EXPECT_EQ(Put(*first, L"UserValues", {"Owner", "Bea"}).code, S_OK);
    EXPECT_EQ(Get(*first, L"UserValues", {"Owner"}).Text(), "Bea");
    EXPECT_THAT(Get(*plan, L"Tasks", {std::int32_t{4}}).description, HasSubstr("number 4"));
}

TEST(Call, LeavesAnErrorObjectForCallersThatLookThere) {
    OfferedHost offered;
    const auto tasks = Follow(offered.PlanObject(), {L"Tasks"});
    EXPECT_EQ(tasks.As<ISupportErrorInfo>(IID_ISupportErrorInfo)
                  ->InterfaceSupportsErrorInfo(IID_IDispatch),
              S_OK);
    VARIANT position = Raw(VT_I4);
    DISPPARAMS parameters{&position, nullptr, 1, 0};
    EXPECT_TRUE(FAILED(tasks->Invoke(DISPID_VALUE, IID_NULL, LOCALE_NEUTRAL, DISPATCH_PROPERTYGET,
                                     &parameters, nullptr, nullptr, nullptr)));
    ComPtr<IErrorInfo> error;
    ASSERT_EQ(GetErrorInfo(0, error.Out()), S_OK);
    kestrel::win32::Bstr description;
    EXPECT_EQ(error->GetDescription(description.Out()), S_OK);
    EXPECT_THAT(description.Utf8(), HasSubstr("no task number 0"));
}

TEST(Call, RunsAnAnalysisThatAListenerCannotNest) {
    OfferedHost offered;
    const auto analysis = Follow(offered.PlanObject(), {L"RiskAnalysis"});
    EXPECT_EQ(Get(*analysis, L"IsUpToDate").Number(), VARIANT_FALSE);
    EXPECT_EQ(Get(*analysis, L"Run", {std::int32_t{5}, "18446744073709551615"}).code, S_OK);
    const AnalysisSettings ran = offered.Plan().Data().analysis;
    EXPECT_EQ(ran.iterations, 5);
    EXPECT_EQ(ran.seed, 18446744073709551615u);
    EXPECT_EQ(Get(*analysis, L"IsUpToDate").Number(), VARIANT_TRUE);

    const ReferenceHost::AnalysisMark running(offered.host);
    EXPECT_THAT(Get(*analysis, L"Run").description, HasSubstr("running already"));
    EXPECT_THAT(Get(*offered.application, L"Open", {"other.kplan"}).description,
                HasSubstr("while an analysis runs"));
}

}  // namespace
}  // namespace refhost::test
