#include "com/automation/HostLink.h"

#include <gmock/gmock.h>
#include <oleauto.h>

#include "base/Errors.h"
#include "platform/SystemDesktop.h"
#include "platform/win32/WideText.h"
#include "support/TemporaryFolder.h"
#include "windows/support/Interception.h"
#include "windows/support/OfferedHost.h"
#include "windows/support/ScriptedEvents.h"

namespace kestrel::com {
namespace {

using test::Interception;
using test::PassingCall;
using win32::ComPtr;

/// The host's name as good as registered, for this thread only, with a server that is missing.
class PretendedRegistration {
 public:
    PretendedRegistration() {
        const std::string path = folder_ / "host.manifest";
        SystemDesktop().WriteFile(
            path,
            "<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">"
            "<assemblyIdentity name=\"Host\" version=\"1.0.0.0\" type=\"win32\"/>"
            "<file name=\"missing.dll\"><comClass progid=\"Schedulon.Application\" "
            "clsid=\"{d0c5ab42-61f1-4a52-9b0e-3c57810a6e11}\"/></file></assembly>");
        const std::wstring wide = win32::Wide(path);
        ACTCTXW description{};
        description.cbSize = sizeof description;
        description.lpSource = wide.c_str();
        context_ = CreateActCtxW(&description);
        EXPECT_TRUE(ActivateActCtx(context_, &cookie_));
    }
    ~PretendedRegistration() {
        DeactivateActCtx(0, cookie_);
        ReleaseActCtx(context_);
    }

 private:
    test::TemporaryFolder folder_;
    HANDLE context_ = nullptr;
    ULONG_PTR cookie_ = 0;
};

std::string FailureToFind() {
    try {
        FindHost();
    } catch (const HostError& error) {
        return error.what();
    }
    return "";
}

class HostLink : public testing::Test {
 protected:
    host::ApplicationPtr Application() {
        return WrapApplication(between_->Over(offered_.application.Get()),
                               std::make_shared<win32::FloatingPointBorder>());
    }

    refhost::test::OfferedHost offered_;
    std::shared_ptr<Interception> between_ = std::make_shared<Interception>();
};

TEST_F(HostLink, FindsTheRunningHostAndSaysWhatToDoWhenThereIsNone) {
    const PretendedRegistration registered;
    CLSID hostClass{};  // a stand-in that the activation context makes up
    ASSERT_EQ(CLSIDFromProgID(kHostProgId, &hostClass), S_OK);
    DWORD active = 0;
    ASSERT_EQ(
        RegisterActiveObject(offered_.application.Get(), hostClass, ACTIVEOBJECT_STRONG, &active),
        S_OK);
    EXPECT_EQ(FindHost().Get(), offered_.application.Get());
    ASSERT_EQ(RevokeActiveObject(active, nullptr), S_OK);

    const std::string failure = FailureToFind();
    EXPECT_THAT(failure,
                testing::StartsWith("Schedulon is not running and could not be started ("));
    EXPECT_THAT(failure, testing::EndsWith("); start it and try again."));
}

TEST_F(HostLink, RefusesAnApplicationThatIsNone) {
    EXPECT_THROW(WrapApplication(nullptr, nullptr), HostError);
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
    const ComPtr<test::EventSource> classOf(new test::EventSource(between_, {}));
    between_->onQuery = [&](REFIID id, void** object) {
        return SUCCEEDED(classOf->QueryInterface(id, object));
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
