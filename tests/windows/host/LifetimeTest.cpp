#include <gmock/gmock.h>

#include <Schedulon.h>

#include "refhost/windows/automation/ActiveObject.h"
#include "refhost/windows/automation/ClassObject.h"
#include "windows/support/OfferedHost.h"

namespace refhost::test {
namespace {

TEST(Objects, AreTheSameWhileSomebodyHoldsThem) {
    OfferedHost offered;
    const auto plan = offered.PlanObject();
    EXPECT_EQ(plan.Get(), offered.PlanObject().Get());
    EXPECT_EQ(offered.application.Get(), offered.server->Application().Get());
    for (const wchar_t* member : {L"Tasks", L"Groups", L"SummaryTask", L"RiskAnalysis",
                                  L"CurrentView", L"UserFieldDefinitions"}) {
        const auto held = Follow(plan, {member});
        EXPECT_EQ(held.Get(), Follow(plan, {member}).Get());
    }
    const auto task = offered.Task("B");
    const auto child = ItemOf(Follow(offered.Task("S"), {L"ChildTasks"}), 2);
    EXPECT_EQ(task.Get(), child.Get());
    EXPECT_EQ(Enumerated(*Follow(plan, {L"Tasks"}))[2].Get(), task.Get());
    const auto group = ItemOf(Follow(plan, {L"Groups"}), "G");
    EXPECT_EQ(group.Get(), ItemOf(Follow(plan, {L"Groups"}), 1).Get());
}

TEST(Objects, KeepTheirPlanAndNothingIsLeftAtTheEnd) {
    OfferedHost offered;
    std::weak_ptr<HostPlan> plan = offered.host.OpenPlan();
    ComPtr<IDispatch> member =
        ItemOf(Follow(ItemOf(Follow(offered.PlanObject(), {L"Groups"}), "G"), {L"Members"}), "M");
    ComPtr<IDispatch> task = offered.Task("A");
    ASSERT_TRUE(Get(*offered.application, L"Open", {"other.kplan"}).Object());
    EXPECT_EQ(Get(*offered.PlanObject(), L"Name").Text(), "Other");
    EXPECT_EQ(Get(*task, L"Name").Text(), "Dig") << "of the plan that was open before";
    member.Reset();
    EXPECT_FALSE(plan.expired());
    task.Reset();
    EXPECT_TRUE(plan.expired());

    EXPECT_EQ(offered.program.unused, 0);
    offered.application.Reset();
    EXPECT_EQ(offered.program.unused, 1);
    EXPECT_EQ(offered.server.use_count(), 1);
}

TEST(Objects, AnswerWithAnErrorOnceTheHostHasEnded) {
    auto offered = std::make_unique<OfferedHost>();
    const auto application = offered->application;
    const auto task = offered->Task("A");
    offered.reset();
    const Answer answer = Get(*application, L"ActivePlan");
    EXPECT_EQ(answer.code, DISP_E_EXCEPTION);
    EXPECT_THAT(answer.description, testing::HasSubstr("has ended"));
    EXPECT_EQ(Get(*task, L"Duration").Number(), 480) << "the plan needs no host";
}

TEST(Enumerator, GoesThroughWhatWasThereWhenItWasMade) {
    OfferedHost offered;
    const auto groups = Follow(offered.PlanObject(), {L"Groups"});
    for (const char* name : {"H", "I"}) Get(*groups, L"Add", {name});
    const Answer made = Invoke(*groups, DISPID_NEWENUM, DISPATCH_PROPERTYGET);
    const auto enumerator =
        ComPtr<IUnknown>(made.value->punkVal).As<IEnumVARIANT>(IID_IEnumVARIANT);
    ASSERT_TRUE(enumerator);
    for (const char* name : {"G", "H", "I"}) Get(*groups, L"Remove", {name});
    EXPECT_EQ(Get(*groups, L"Count").Number(), 0);

    VARIANT block[4];
    ULONG given = 99;
    EXPECT_EQ(enumerator->Next(4, block, &given), S_FALSE);
    ASSERT_EQ(given, 3u);
    EXPECT_EQ(Get(*block[2].pdispVal, L"Name").Text(), "I");
    for (ULONG i = 0; i < given; ++i) VariantClear(&block[i]);
    EXPECT_EQ(enumerator->Next(2, block, nullptr), E_POINTER);
    EXPECT_EQ(enumerator->Reset(), S_OK);
    EXPECT_EQ(enumerator->Skip(2), S_OK);
    ComPtr<IEnumVARIANT> clone;
    ASSERT_EQ(enumerator->Clone(clone.Out()), S_OK);
    EXPECT_EQ(enumerator->Skip(2), S_FALSE);
    Variant last;
    EXPECT_EQ(clone->Next(1, last.Out(), nullptr), S_OK);
    EXPECT_EQ(Get(*last.pdispVal, L"Name").Text(), "I");
}

TEST(ClassFactory, GivesTheOneApplicationAndCountsLocks) {
    OfferedHost offered;
    int served = 0;
    const auto factory = automation::MakeClassFactory(offered.server, [&](IUnknown&) {
                             ++served;
                         }).As<IClassFactory>(IID_IClassFactory);
    ComPtr<IDispatch> application;
    EXPECT_EQ(factory->CreateInstance(nullptr, DIID__Application, application.OutVoid()), S_OK);
    EXPECT_EQ(application.Get(), offered.application.Get());
    ComPtr<IUnknown> none;
    EXPECT_EQ(factory->CreateInstance(application.Get(), IID_IUnknown, none.OutVoid()),
              CLASS_E_NOAGGREGATION);
    EXPECT_EQ(factory->CreateInstance(nullptr, DIID__Plan, none.OutVoid()), E_NOINTERFACE);
    EXPECT_EQ(served, 1);

    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    application.Reset();
    offered.application.Reset();
    EXPECT_EQ(offered.program.unused, 0) << "locked";
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    EXPECT_EQ(offered.program.unused, 1);
}

TEST(ActiveObject, IsFoundByItsClassAsLongAsItIsListed) {
    OfferedHost offered;
    ComPtr<IUnknown> found;
    {
        const automation::ActiveObject listed(*offered.application, CLSID_Application);
        ASSERT_EQ(GetActiveObject(CLSID_Application, nullptr, found.Out()), S_OK);
        EXPECT_EQ(found.As<IDispatch>(IID_IDispatch).Get(), offered.application.Get());
    }
    EXPECT_NE(GetActiveObject(CLSID_Application, nullptr, found.Out()), S_OK);
}

}  // namespace
}  // namespace refhost::test
