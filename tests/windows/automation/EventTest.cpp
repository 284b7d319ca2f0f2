#include <gmock/gmock.h>
#include <olectl.h>

#include "base/Errors.h"
#include "com/automation/HostLink.h"
#include "platform/win32/ComErrors.h"
#include "platform/win32/Variant.h"
#include "windows/support/DescribedClass.h"
#include "windows/support/Interception.h"
#include "windows/support/OfferedHost.h"

#include <Schedulon.h>

namespace kestrel::com {
namespace {

using test::DescribedClass;
using win32::ComPtr;
using win32::Variant;

enum { kBefore = 1, kIteration, kAfter };

/// Writes down what it hears, and does what the test says.
class Listener : public host::AnalysisEvents {
 public:
    std::vector<std::string> heard;
    std::vector<host::PlanPtr> plans;
    std::function<void()> reaction = [] {};

    void PlanBeforeRiskAnalysis(const host::PlanPtr& plan) override { Hear("before", plan); }
    void PlanAfterRiskIteration(const host::PlanPtr& plan) override { Hear("iteration", plan); }
    void PlanAfterRiskAnalysis(const host::PlanPtr& plan) override { Hear("after", plan); }

 private:
    void Hear(const char* event, const host::PlanPtr& plan) {
        heard.push_back(event + (plan ? " " + plan->Name() : std::string()));
        plans.push_back(plan);
        reaction();
    }
};

/// The reference host behind an interception, and a listener to its events.
class Events : public testing::Test {
 protected:
    void Subscribe() {
        application_ = WrapApplication(between_->Over(offered_.application.Get()),
                                       std::make_shared<win32::FloatingPointBorder>());
        application_->Subscribe(listener_);
        ASSERT_EQ(between_->sinks.size(), 1u);
        sink_ = between_->sinks.begin()->second;  // as a host may keep it for as long as it likes
    }
    void Describe(std::vector<std::wstring> names, TYPEKIND kind = TKIND_DISPATCH) {
        const auto described = win32::MakeCom<DescribedClass>(names, kind);
        between_->onQuery = [described](REFIID id, void** object) {
            return SUCCEEDED(described->QueryInterface(id, object));
        };
    }
    void Lack(const IID& lacked) {
        between_->onQuery = [&lacked](REFIID id, void**) { return id == lacked; };
    }
    /// Answers the description of a failure, "" when there is none.
    std::string Raise(DISPID event, std::vector<VARIANT> arguments = {}) {
        DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
        win32::ExceptionInfo failure;
        const HRESULT result = sink_->Invoke(event, IID_NULL, 0x0409, DISPATCH_METHOD, &parameters,
                                             nullptr, &failure, nullptr);
        EXPECT_EQ(result == DISP_E_EXCEPTION, !failure.Description().empty());
        return failure.Description();
    }
    std::string RaiseWithPlan(DISPID event) {
        return Raise(event, {Variant(between_->Over(offered_.PlanObject().Get()).Get())});
    }

    refhost::test::OfferedHost offered_;
    std::shared_ptr<test::Interception> between_ = std::make_shared<test::Interception>();
    ComPtr<IDispatch> sink_;
    Listener listener_;
    host::ApplicationPtr application_;
};

TEST_F(Events, ReachTheListenerWithTheirPlanUntilItUnsubscribes) {
    Subscribe();
    application_->Subscribe(listener_);
    ASSERT_EQ(between_->sinks.size(), 1u);
    EXPECT_EQ(sink_.As<IUnknown>(DIID__ApplicationEvents).Get(), sink_.As<IUnknown>().Get());
    for (const DISPID event : {kBefore, kIteration, kIteration, kAfter})
        EXPECT_EQ(RaiseWithPlan(event), "");
    EXPECT_EQ(RaiseWithPlan(99), "") << "another event of the host";
    const Variant number(std::int32_t{1});
    EXPECT_NE(Raise(kBefore, {number}), "");
    EXPECT_EQ(Raise(kBefore), "");
    {  // arguments that a newer host adds stand behind the plan, which is last in the list
        const Variant plan(offered_.PlanObject().Get());
        EXPECT_EQ(Raise(kAfter, {number, plan}), "");
    }
    EXPECT_THAT(listener_.heard,
                testing::ElementsAre("before Größe", "iteration Größe", "iteration Größe",
                                     "after Größe", "before", "after Größe"));
    EXPECT_EQ(listener_.plans[1], listener_.plans[2]) << "one object for the plan of an analysis";
    listener_.plans.clear();
    for (int i = 0; i < 2; ++i) application_->Unsubscribe(listener_);
    EXPECT_TRUE(between_->sinks.empty());
    application_ = nullptr;
    EXPECT_EQ(between_->objects, 0);
}

TEST_F(Events, NeverReachAListenerThatHasGoneWhateverTheHostDoes) {
    between_->unadvise = RPC_E_DISCONNECTED;
    Subscribe();
    application_->Unsubscribe(listener_);
    EXPECT_EQ(RaiseWithPlan(kBefore), "");
    Subscribe();
    application_ = nullptr;  // with the subscription on
    EXPECT_EQ(RaiseWithPlan(kBefore), "");
    EXPECT_TRUE(listener_.heard.empty());
    EXPECT_EQ(between_->objects, 0);
}

TEST_F(Events, CanEndTheSubscriptionOrTheWholeConnectionWhileTheyAreDelivered) {
    Subscribe();
    listener_.reaction = [&] {
        application_->Unsubscribe(listener_);
        application_ = nullptr;
        listener_.plans.clear();
    };
    for (const DISPID event : {kBefore, kIteration}) EXPECT_EQ(RaiseWithPlan(event), "");
    EXPECT_THAT(listener_.heard, testing::ElementsAre("before Größe"));
    EXPECT_EQ(between_->objects, 0);
}

TEST_F(Events, OfASecondAnalysisInsideTheFirstAreRefused) {
    Subscribe();
    std::string inner;
    listener_.reaction = [&] { inner = Raise(kBefore); };
    EXPECT_EQ(Raise(kIteration), "");
    EXPECT_THAT(inner, testing::HasSubstr("inside another one"));
    listener_.reaction = [] {};
    EXPECT_EQ(Raise(kIteration), "");
    EXPECT_THAT(listener_.heard, testing::ElementsAre("iteration", "iteration"));
}

TEST_F(Events, ReturnWhatTheListenerThrowsAsAFailureInWords) {
    Subscribe();
    const struct {
        std::function<void()> reaction;
        std::string sentence;
    } rows[] = {
        {[] { throw HostError("The plan is locked."); }, "The plan is locked."},
        {[] { throw ArithmeticError("It overflowed."); }, "It overflowed."},
        {[] { throw std::logic_error("mix-up"); },
         "The risk factors add-in has met a fault of its own: mix-up"},
        {[] { throw std::bad_alloc(); }, "There is not enough memory left for this."},
        {[] { throw 5; }, "The risk factors add-in has met a fault of its own."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.sentence);
        listener_.reaction = row.reaction;
        EXPECT_EQ(Raise(kIteration), row.sentence);
        EXPECT_TRUE(FAILED(sink_->Invoke(kIteration, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr,
                                         nullptr, nullptr)));
    }
}

TEST_F(Events, OfAHostThatDoesNotDescribeOrRaiseThemAreRefusedInWords) {
    const std::string ending =
        ", so the add-in cannot take part in its risk analyses; install a version of it that this "
        "add-in works with.";
    const struct {
        std::function<void()> prepare;
        std::string sentence;  ///< "" where the host will do
    } rows[] = {
        {[&] { Lack(IID_IProvideClassInfo2); }, ""},
        {[&] {  // letter case and order are free
             Describe(
                 {L"PLANAFTERRISKANALYSIS", L"planAfterRiskIteration", L"PlanBeforeriskanalysis"});
         },
         ""},
        {[&] {
             between_->onQuery = [](REFIID id, void**) {
                 return id == IID_IProvideClassInfo || id == IID_IProvideClassInfo2;
             };
         },
         "The host does not describe its events" + ending},
        {[&] { Lack(IID_IConnectionPointContainer); },
         "The host offers no connection point for its events" + ending},
        {[&] {
             Describe({L"PlanBeforeRiskAnalysis", L"PlanAfterRiskAnalysis"});
         },
         "The host has no event PlanAfterRiskIteration" + ending},
        {[&] { Describe({L"PlanBeforeRiskAnalysis"}, TKIND_INTERFACE); },
         "The host raises its events through an interface without dispatch ids" + ending},
        {[&] {
             between_->onQuery = [](REFIID, void**) { return false; };
             between_->members["Advise"] = [](auto&) { return CONNECT_E_ADVISELIMIT; };
         },
         "The host refused to tell the add-in of its risk analyses ("},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.sentence);
        row.prepare();
        std::string sentence;
        try {
            Subscribe();
        } catch (const HostError& error) {
            sentence = error.what();
        }
        EXPECT_THAT(sentence, testing::StartsWith(row.sentence));
        EXPECT_EQ(sentence.empty(), row.sentence.empty());
        application_ = nullptr;
        EXPECT_TRUE(between_->sinks.empty());
        EXPECT_EQ(between_->objects, 0);
    }
}

}  // namespace
}  // namespace kestrel::com
