#include "com/automation/HostLink.h"

#include <gmock/gmock.h>
#include <oleauto.h>

#include "base/Errors.h"
#include "platform/SystemDesktop.h"
#include "platform/win32/WideText.h"
#include "support/FakeHost.h"
#include "support/TemporaryFolder.h"
#include "windows/support/ScriptedEvents.h"
#include "windows/support/ScriptedHost.h"

namespace kestrel::com {
namespace {

using test::Script;
using test::ScriptedCall;
using test::ScriptedDispatch;
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
    HostLink() { EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK); }
    ~HostLink() override { CoUninitialize(); }

    std::shared_ptr<Script> script_ = std::make_shared<Script>();
};

TEST_F(HostLink, FindsTheRunningHostAndSaysWhatToDoWhenThereIsNone) {
    const PretendedRegistration registered;
    const ComPtr<ScriptedDispatch> object(new ScriptedDispatch(script_, "Application"));
    CLSID hostClass{};  // a stand-in that the activation context makes up
    ASSERT_EQ(CLSIDFromProgID(kHostProgId, &hostClass), S_OK);
    DWORD active = 0;
    ASSERT_EQ(RegisterActiveObject(object.Get(), hostClass, ACTIVEOBJECT_STRONG, &active), S_OK);
    EXPECT_EQ(FindHost().Get(), object.Get());
    ASSERT_EQ(RevokeActiveObject(active, nullptr), S_OK);

    const std::string failure = FailureToFind();
    EXPECT_THAT(failure,
                testing::StartsWith("Schedulon is not running and could not be started ("));
    EXPECT_THAT(failure, testing::EndsWith("); start it and try again."));
}

TEST_F(HostLink, RefusesAnApplicationThatIsNone) {
    EXPECT_THROW(WrapApplication(nullptr), HostError);
}

/// Answers the type name that the add-in sees in this view.
std::string TypeNameOf(const ComPtr<ScriptedDispatch>& view,
                       const std::shared_ptr<Script>& script) {
    const ComPtr<ScriptedDispatch> plan(new ScriptedDispatch(script, "Plan"));
    plan->On("CurrentView",
             [&](ScriptedCall& call) { call.Answer(ComPtr<IDispatch>(view.Get())); });
    const ComPtr<ScriptedDispatch> application(new ScriptedDispatch(script, "Application"));
    application->On("ActivePlan",
                    [&](ScriptedCall& call) { call.Answer(ComPtr<IDispatch>(plan.Get())); });
    return WrapApplication(ComPtr<IDispatch>(application.Get()))
        ->ActivePlan()
        ->CurrentView()
        ->TypeName();
}

TEST_F(HostLink, NamesAViewByItsPropertyElseByItsTypeInformation) {
    const struct {
        const wchar_t* type;  ///< of its type information; none when null
        const char* property;
        const char* name;
    } rows[] = {
        {L"_GanttChart", nullptr, "GanttChart"},
        {L"IGanttChart", nullptr, "GanttChart"},
        {L"Image", nullptr, "Image"},
        {L"_GanttChart", "NetworkChart", "NetworkChart"},
        {nullptr, nullptr, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.name << " " << (row.property ? row.property : ""));
        const ComPtr<ScriptedDispatch> view(new ScriptedDispatch(script_, "View"));
        if (row.type) view->typeInfo = test::MakeType(row.type, TKIND_DISPATCH).As<ITypeInfo>();
        if (row.property)
            view->On("TypeName",
                     [&](ScriptedCall& call) { call.Answer(std::string(row.property)); });
        EXPECT_EQ(TypeNameOf(view, script_), row.name);
    }
    // A class has the last word over its interfaces.
    const ComPtr<ScriptedDispatch> view(new ScriptedDispatch(script_, "View"));
    const ComPtr<test::EventSource> classOf(new test::EventSource(script_, {}));
    view->others = ComPtr<IUnknown>(static_cast<IProvideClassInfo*>(classOf.Get()));
    view->typeInfo = test::MakeType(L"_GanttChart", TKIND_DISPATCH).As<ITypeInfo>();
    EXPECT_EQ(TypeNameOf(view, script_), "Application");
}

TEST_F(HostLink, AsksEachViewForItsMembersBecauseViewsDifferInType) {
    test::FakeHost host;
    host.plan->currentRow = 3;
    const auto application =
        WrapApplication(ComPtr<IDispatch>(test::ShowApplication(script_, host.application).Get()));
    const auto plan = application->ActivePlan();
    EXPECT_EQ(plan->CurrentView()->CurrentRow(), 3);
    EXPECT_EQ(plan->CurrentView()->CurrentRow(), 3);
    EXPECT_EQ(script_->lookUps["View.CurrentRow"], 2);
    EXPECT_EQ(script_->lookUps["Plan.CurrentView"], 1);
}

TEST_F(HostLink, AnswersNothingOnlyWhereTheModelAllowsIt) {
    test::FakeHost host;
    host.AddTask("7", "Dig");
    host.application->plan = nullptr;
    const auto application =
        WrapApplication(ComPtr<IDispatch>(test::ShowApplication(script_, host.application).Get()));
    EXPECT_FALSE(application->ActivePlan());
    host.application->plan = host.plan;
    const auto plan = application->ActivePlan();
    EXPECT_TRUE(plan->Tasks()->Item("7"));
    EXPECT_FALSE(plan->Tasks()->Item("8"));
    EXPECT_THROW(plan->Tasks()->Item(2), HostError);
    EXPECT_FALSE(plan->Groups()->Item("A"));
    EXPECT_THROW(plan->Groups()->Remove("A"), HostError);
    EXPECT_FALSE(plan->UserFieldDefinitions()->Item("A"));
    EXPECT_EQ(plan->GetText("A"), "");
    const auto member = plan->Groups()->Add("A")->Members()->Add("B");
    EXPECT_FALSE(member->Group());
    EXPECT_FALSE(member->Distribution(false));
    EXPECT_TRUE(member->Distribution(true));
    EXPECT_TRUE(plan->Groups()->Item("A")->Members()->Item(1));
    EXPECT_FALSE(plan->Groups()->Item("A")->Members()->Item(2));
    script_->overrides["Member.Distribution"] = [](ScriptedCall&) { return S_OK; };
    EXPECT_THROW(member->Distribution(true), HostError);
    for (const char* part : {"Plan.Tasks", "Plan.Groups", "Plan.RiskAnalysis"})
        script_->overrides[part] = [](ScriptedCall&) { return S_OK; };
    EXPECT_THROW(plan->Tasks(), HostError);
    EXPECT_THROW(plan->Groups(), HostError);
    EXPECT_THROW(plan->RiskAnalysis(), HostError);
}

}  // namespace
}  // namespace kestrel::com
