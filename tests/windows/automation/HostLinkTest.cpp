#include "com/automation/HostLink.h"

#include <gmock/gmock.h>
#include <oleauto.h>

#include "base/Errors.h"
#include "windows/support/DescribedClass.h"
#include "windows/support/Interception.h"
#include "windows/support/OfferedHost.h"

namespace kestrel::com {
namespace {

using test::Interception;
using test::PassingCall;
using win32::ComPtr;

class HostLink : public testing::Test {
 protected:
    host::ApplicationPtr Application() {
        return WrapApplication(between_->Over(offered_.application.Get()),
                               std::make_shared<win32::FloatingPointBorder>());
    }

    refhost::test::OfferedHost offered_;
    std::shared_ptr<Interception> between_ = std::make_shared<Interception>();
};

TEST_F(HostLink, SaysWhatToDoWhenTheHostCannotBeStarted) {
    // Registered, with a server that is missing.
    constexpr const wchar_t* kName = L"Software\\Classes\\Schedulon.Application";
    constexpr std::wstring_view kNobody = L"{d0c5ab42-61f1-4a52-9b0e-3c57810a6e11}";
    ASSERT_EQ(RegSetValueW(HKEY_LOCAL_MACHINE, (std::wstring(kName) + L"\\CLSID").c_str(), REG_SZ,
                           kNobody.data(), 0),
              ERROR_SUCCESS);
    try {
        FindHost();
        ADD_FAILURE() << "found";
    } catch (const HostError& error) {
        EXPECT_THAT(error.what(),
                    testing::StartsWith("Schedulon is not running and could not be started ("));
        EXPECT_THAT(error.what(), testing::EndsWith("); start it and try again."));
    }
    EXPECT_EQ(RegDeleteTreeW(HKEY_LOCAL_MACHINE, kName), ERROR_SUCCESS);
}

TEST_F(HostLink, NamesAViewByItsPropertyElseByItsTypeInformation) {
    const auto name = [&] { return Application()->ActivePlan()->CurrentView()->TypeName(); };
    EXPECT_EQ(name(), "GanttChart");
    between_->members["GanttChart.TypeName?"] = [](PassingCall&) { return DISP_E_UNKNOWNNAME; };
    for (const auto& [type, expected] : {std::pair(L"_GanttChart", "GanttChart"),
                                         {L"IGanttChart", "GanttChart"},
                                         {L"Image", "Image"}}) {
        between_->typeInfo = test::MakeType(type, TKIND_DISPATCH).As<ITypeInfo>();
        EXPECT_EQ(name(), expected);
    }
    // A class has the last word over its interfaces.
    const auto described = win32::MakeCom<test::DescribedClass>(std::vector<std::wstring>{L"Any"});
    between_->onQuery = [&](REFIID id, void** object) {
        return SUCCEEDED(described->QueryInterface(id, object));
    };
    EXPECT_EQ(name(), "Application");
    between_->onQuery = [](REFIID, void**) { return false; };
    between_->typeInfo = ComPtr<ITypeInfo>();
    EXPECT_EQ(name(), "");
}

TEST_F(HostLink, AnswersNothingOnlyWhereTheModelAllowsIt) {
    const auto application = Application();
    const auto plan = application->ActivePlan();
    EXPECT_TRUE(plan->Tasks()->Item("A"));
    EXPECT_FALSE(plan->Tasks()->Item("8"));
    EXPECT_THROW(plan->Tasks()->Item(9), HostError);
    EXPECT_FALSE(plan->Groups()->Item("none"));
    EXPECT_THROW(plan->Groups()->Remove("none"), HostError);
    EXPECT_FALSE(plan->UserFieldDefinitions()->Item("none"));
    EXPECT_EQ(plan->GetText("none"), "");
    const auto member = plan->Groups()->Add("new")->Members()->Add("B");
    EXPECT_FALSE(member->Group());
    EXPECT_FALSE(member->Distribution(false));
    EXPECT_TRUE(member->Distribution(true));
    EXPECT_TRUE(plan->Groups()->Item("new")->Members()->Item(1));
    EXPECT_FALSE(plan->Groups()->Item("new")->Members()->Item(2));
    between_->all = [](PassingCall& call) { return call.name.ends_with('?') ? call.Pass() : S_OK; };
    EXPECT_FALSE(application->ActivePlan());
    EXPECT_THROW(member->Distribution(true), HostError);
    EXPECT_THROW(plan->Tasks(), HostError);
    EXPECT_THROW(plan->Groups(), HostError);
    EXPECT_THROW(plan->RiskAnalysis(), HostError);
}

}  // namespace
}  // namespace kestrel::com
