#include <windows.h>
// windows.h first
#include <olectl.h>

#include <gmock/gmock.h>

#include "base/Errors.h"
#include "com/automation/HostLink.h"
#include "platform/win32/Variant.h"
#include "windows/support/Interception.h"
#include "windows/support/OfferedHost.h"
#include "windows/support/ScriptedEvents.h"

namespace kestrel::com {
namespace {

using test::EventScript;
using test::EventSource;
using test::Interception;
using win32::ComPtr;

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

/// A host with events and a listener to them.
class Events : public testing::Test {
 protected:
    /// An Application that raises events so.
    host::ApplicationPtr Connect(const EventScript& events = {}) {
        source_ = ComPtr<EventSource>(new EventSource(between_, events));
        between_->onQuery = [source = source_](REFIID id, void** object) {
            const bool asked = id == IID_IProvideClassInfo || id == IID_IProvideClassInfo2 ||
                               id == IID_IConnectionPointContainer;
            if (asked) static_cast<void>(source->QueryInterface(id, object));  // the object tells
            return asked;
        };
        return WrapApplication(between_->Over(offered_.application.Get()),
                               std::make_shared<win32::FloatingPointBorder>());
    }
    ComPtr<IDispatch> Plan() { return between_->Over(offered_.PlanObject().Get()); }
    /// Every object of the host has been let go but those that the test itself holds.
    void ExpectAllReleased() {
        source_ = nullptr;
        between_->onQuery = [](REFIID, void**) { return false; };
        EXPECT_EQ(between_->objects, 0);
    }

    refhost::test::OfferedHost offered_;
    std::shared_ptr<Interception> between_ = std::make_shared<Interception>();
    ComPtr<EventSource> source_;
    Listener listener_;
};

TEST_F(Events, ReachTheListenerWithTheirPlanUntilItUnsubscribes) {
    auto application = Connect();
    application->Subscribe(listener_);
    application->Subscribe(listener_);
    ASSERT_EQ(source_->sinks.size(), 1u);
    {
        const auto plan = Plan();
        for (const DISPID event : {1, 2, 2, 3})
            EXPECT_EQ(source_->RaisePlan(event, plan.Get()), "");
        EXPECT_EQ(source_->RaisePlan(0, plan.Get()), "");  // another event of the host
        source_->RaisePlan(1, nullptr);
        EXPECT_EQ(source_->Raise(3, {}), S_OK);
    }
    EXPECT_THAT(listener_.heard,
                testing::ElementsAre("before Größe", "iteration Größe", "iteration Größe",
                                     "after Größe", "before", "iteration"));
    EXPECT_EQ(listener_.plans[1], listener_.plans[2]) << "one object for the plan of an analysis";
    listener_.plans.clear();

    application->Unsubscribe(listener_);
    application->Unsubscribe(listener_);
    EXPECT_TRUE(source_->sinks.empty());
    application = nullptr;
    ExpectAllReleased();
}

TEST_F(Events, BringTheirPlanInAnyWayThatAHostPassesAnObject) {
    const auto application = Connect();
    application->Subscribe(listener_);
    auto plan = Plan();
    IDispatch* held = plan.Get();
    win32::Variant inner(plan.Get());
    IDispatch* none = nullptr;
    VARIANT reference{}, value{}, unknown{}, number{}, nothing{};
    reference.vt = VT_DISPATCH | VT_BYREF;
    reference.ppdispVal = &held;
    value.vt = VT_VARIANT | VT_BYREF;
    value.pvarVal = &inner;
    unknown.vt = VT_UNKNOWN;
    unknown.punkVal = held;
    number.vt = VT_I4;
    nothing.vt = VT_DISPATCH | VT_BYREF;
    nothing.ppdispVal = &none;
    for (const VARIANT& argument : {reference, value, unknown})
        EXPECT_EQ(source_->Raise(2, {argument}), S_OK);
    // Arguments that a newer host adds stand behind the plan, which is last in the list.
    EXPECT_EQ(source_->Raise(2, {number, unknown}), S_OK);
    EXPECT_THAT(listener_.heard, testing::Each("before Größe"));
    EXPECT_EQ(listener_.heard.size(), 4u);
    EXPECT_TRUE(FAILED(source_->Raise(2, {number})));
    EXPECT_EQ(source_->Raise(2, {nothing}), S_OK);
    EXPECT_EQ(listener_.heard.size(), 5u);
    EXPECT_EQ(listener_.heard.back(), "before");
}

TEST_F(Events, NeverReachAListenerThatHasGoneWhateverTheHostDoes) {
    for (const HRESULT unadvise : {S_OK, RPC_E_DISCONNECTED}) {
        SCOPED_TRACE(unadvise);
        EventScript events;
        events.unadvise = unadvise;
        auto application = Connect(events);
        application->Subscribe(listener_);
        const auto sinks = source_->sinks;  // a host may keep a sink for as long as it likes
        application->Unsubscribe(listener_);
        source_->sinks = sinks;
        EXPECT_EQ(source_->RaisePlan(1, Plan().Get()), "");
        application->Subscribe(listener_);
        application = nullptr;  // with the subscription on
        EXPECT_EQ(source_->RaisePlan(1, Plan().Get()), "");
        EXPECT_TRUE(listener_.heard.empty());
    }
    ExpectAllReleased();
}

TEST_F(Events, CanEndTheSubscriptionOrTheWholeConnectionWhileTheyAreDelivered) {
    host::ApplicationPtr application = Connect();
    application->Subscribe(listener_);
    listener_.reaction = [&] {
        application->Unsubscribe(listener_);
        application = nullptr;
        listener_.plans.clear();
    };
    EXPECT_EQ(source_->RaisePlan(1, Plan().Get()), "");
    EXPECT_EQ(source_->RaisePlan(2, Plan().Get()), "");
    EXPECT_THAT(listener_.heard, testing::ElementsAre("before Größe"));
    ExpectAllReleased();
}

TEST_F(Events, OfASecondAnalysisInsideTheFirstAreRefused) {
    const auto application = Connect();
    application->Subscribe(listener_);
    std::string inner;
    listener_.reaction = [&] { inner = source_->RaisePlan(1, nullptr); };
    EXPECT_EQ(source_->RaisePlan(2, nullptr), "");
    EXPECT_THAT(inner, testing::HasSubstr("inside another one"));
    listener_.reaction = [] {};
    EXPECT_EQ(source_->RaisePlan(2, nullptr), "");
    EXPECT_THAT(listener_.heard, testing::ElementsAre("iteration", "iteration"));
}

TEST_F(Events, ReturnWhatTheListenerThrowsAsAFailureInWords) {
    const auto application = Connect();
    application->Subscribe(listener_);
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
        EXPECT_EQ(source_->RaisePlan(2, nullptr), row.sentence);
        EXPECT_TRUE(FAILED(source_->Raise(2, {}, nullptr)));
    }
}

TEST_F(Events, OfAHostThatDoesNotDescribeOrRaiseThemAreRefusedInWords) {
    const std::string ending =
        ", so the add-in cannot take part in its risk analyses; install a version of it that this "
        "add-in works with.";
    const struct {
        const char* what;
        EventScript events;
        std::string sentence;  ///< "" where the host will do
    } rows[] = {
        {"without the id", {.namesSource = false}, ""},
        {"letter case and order are free",
         {.names = {L"PLANAFTERRISKANALYSIS", L"planAfterRiskIteration",
                    L"PlanBeforeriskanalysis"}},
         ""},
        {"no type information",
         {.describesClass = false},
         "The host does not describe its events" + ending},
        {"no connection points",
         {.connects = false},
         "The host offers no connection point for its events" + ending},
        {"an event is missing",
         {.names = {L"PlanBeforeRiskAnalysis", L"PlanAfterRiskAnalysis"}},
         "The host has no event PlanAfterRiskIteration" + ending},
        {"not by dispatch ids",
         {.kind = TKIND_INTERFACE},
         "The host raises its events through an interface without dispatch ids" + ending},
        {"refused",
         {.advise = CONNECT_E_ADVISELIMIT},
         "The host refused to tell the add-in of its risk analyses ("},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        std::string sentence;
        auto application = Connect(row.events);
        try {
            application->Subscribe(listener_);
        } catch (const HostError& error) {
            sentence = error.what();
        }
        EXPECT_THAT(sentence, testing::StartsWith(row.sentence));
        EXPECT_EQ(sentence.empty(), row.sentence.empty());
        EXPECT_EQ(source_->sinks.size(), row.sentence.empty() ? 1u : 0u);
        application = nullptr;
        ExpectAllReleased();
    }
}

TEST_F(Events, AreAskedForByIUnknownIDispatchAndTheSourceInterfaceOnly) {
    const auto application = Connect();
    application->Subscribe(listener_);
    const ComPtr<IDispatch> sink = source_->sinks.at(0);
    const auto identity = sink.As<IUnknown>();
    for (const IID& id : {IID_IUnknown, IID_IDispatch, test::kScriptedEvents}) {
        const auto asked = sink.As<IUnknown>(id);
        ASSERT_TRUE(asked);
        EXPECT_EQ(asked.As<IUnknown>().Get(), identity.Get());
    }
    EXPECT_FALSE(sink.As<IUnknown>(IID_IConnectionPoint));
    UINT types = 1;
    EXPECT_EQ(sink->GetTypeInfoCount(&types), S_OK);
    EXPECT_EQ(types, 0u);
    EXPECT_EQ(
        sink->Invoke(2, IID_IDispatch, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
        DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(sink->Invoke(2, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
              S_OK);
    EXPECT_THAT(listener_.heard, testing::ElementsAre("before"));
}

}  // namespace
}  // namespace kestrel::com
