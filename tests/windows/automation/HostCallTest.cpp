#include <gmock/gmock.h>

#include "base/Errors.h"
#include "com/automation/Dispatch.h"
#include "com/automation/HostList.h"
#include "platform/win32/SystemMessage.h"
#include "windows/support/ScriptedDispatch.h"

namespace kestrel::com {
namespace {

using test::MakeEnumerator;
using test::Script;
using test::ScriptedCall;
using test::ScriptedDispatch;
using win32::Bstr;
using win32::ComPtr;

constexpr ListKind kTasks{HostMember::Tasks_NewEnum, HostMember::TasksCount, HostMember::TasksItem};

template <class Action>
std::string SentenceOf(Action action) {
    try {
        action();
    } catch (const HostError& error) {
        return error.what();
    }
    return "";
}

HRESULT STDAPICALLTYPE FillInLater(EXCEPINFO* failure) {
    failure->bstrDescription = Bstr("told only when asked").Detach();
    return S_OK;
}

/// One scripted object and the add-in's hold on it.
class HostCall : public testing::Test {
 protected:
    ComPtr<ScriptedDispatch> Make(const char* type) {
        return ComPtr<ScriptedDispatch>(new ScriptedDispatch(script_, type));
    }
    Dispatch Hold(const ComPtr<ScriptedDispatch>& object) {
        return {ComPtr<IDispatch>(object.Get()), connection_};
    }
    ComPtr<IDispatch> Plain(const char* type) { return Make(type).Get(); }

    std::shared_ptr<Script> script_ = std::make_shared<Script>();
    ConnectionPtr connection_ = std::make_shared<HostConnection>();
};

TEST_F(HostCall, TellsAFailureInTheHostsOwnWordsElseInTheSystems) {
    const std::string denied = win32::SystemMessage(E_ACCESSDENIED);
    const struct {
        const char* what;
        std::function<HRESULT(ScriptedCall&)> handler;
        std::string reason;
    } rows[] = {
        {"described", [](auto& call) { return call.Fail("The plan is locked."); },
         "The plan is locked"},
        {"described on demand",
         [](auto& call) {
             call.Failure().pfnDeferredFillIn = FillInLater;
             return DISP_E_EXCEPTION;
         },
         "told only when asked"},
        {"a code alone", [](auto& call) { return call.Fail("", E_ACCESSDENIED); }, denied},
        {"an old error number",
         [](auto& call) {
             call.Failure().wCode = 1001;
             return DISP_E_EXCEPTION;
         },
         "error 0x800A03E9"},
        {"no exception", [](auto&) { return E_ACCESSDENIED; }, denied},
        {"the error object of another",
         [](auto&) {
             ComPtr<ICreateErrorInfo> error;
             CreateErrorInfo(error.Out());
             error->SetDescription(const_cast<wchar_t*>(L"left behind"));
             SetErrorInfo(0, error.As<IErrorInfo>().Get());
             return E_ACCESSDENIED;
         },
         denied},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const auto object = Make("Task");
        object->On("Duration", row.handler);
        const Dispatch task = Hold(object);
        EXPECT_EQ(SentenceOf([&] { task.Int32(HostMember::TaskDuration); }),
                  "The host could not read Task.Duration: " + row.reason + ".");
        EXPECT_EQ(SentenceOf([&] { task.Put(HostMember::TaskDuration, 5); }),
                  "The host could not set Task.Duration: " + row.reason + ".");
    }
    // The last row left its error object; an object that says that it leaves them is believed.
    const auto honest = Make("Plan");
    honest->leavesErrorObject = true;
    honest->On("Recalculate", rows[5].handler);
    EXPECT_EQ(SentenceOf([&] { Hold(honest).Run(HostMember::PlanRecalculate); }),
              "The host could not run Plan.Recalculate: left behind.");
}

TEST_F(HostCall, NamesAMemberThatTheHostLacks) {
    const Dispatch task = Hold(Make("Task"));
    EXPECT_EQ(SentenceOf([&] { task.Text(HostMember::TaskName); }),
              "The host has no Task.Name; install a version of it that this add-in works with.");
}

TEST_F(HostCall, AsksForAMembersIdOnceAType) {
    for (int i = 0; i < 3; ++i) {
        const auto object = Make("CostItem");
        double cost = 0;
        object->On("Cost", [&](ScriptedCall& call) {
            if (call.IsPut()) cost = call.Number(0);
            call.Answer(cost);
        });
        const Dispatch item = Hold(object);
        item.Put(HostMember::CostItemCost, 2.5);
        EXPECT_EQ(item.Number(HostMember::CostItemCost), 2.5);
    }
    EXPECT_EQ(script_->lookUps, (std::map<std::string, int>{{"CostItem.Cost", 1}}));
}

TEST_F(HostCall, TakesAFailedLookUpForAnAbsenceOnlyWhereItCanBeOne) {
    const struct {
        HRESULT result;
        HRESULT code;  ///< of the exception
        bool absent;
    } rows[] = {
        {DISP_E_EXCEPTION, MAKE_HRESULT(1, FACILITY_CONTROL, 9), true},
        {DISP_E_EXCEPTION, E_FAIL, true},
        {DISP_E_BADINDEX, 0, true},
        {E_INVALIDARG, 0, true},
        {HRESULT_FROM_WIN32(ERROR_NOT_FOUND), 0, true},
        {DISP_E_EXCEPTION, E_OUTOFMEMORY, false},
        {DISP_E_EXCEPTION, RPC_E_DISCONNECTED, false},
        {RPC_E_DISCONNECTED, 0, false},
        {HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE), 0, false},
        {DISP_E_TYPEMISMATCH, 0, false},
        {E_ACCESSDENIED, 0, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << std::hex << row.result << " " << row.code);
        const auto object = Make("Groups");
        object->On("Item", [&](ScriptedCall& call) {
            return row.result == DISP_E_EXCEPTION ? call.Fail("No.", row.code) : row.result;
        });
        const Dispatch groups = Hold(object);
        const auto find = [&] { EXPECT_FALSE(groups.Find(HostMember::GroupsItem, Bstr("A"))); };
        EXPECT_EQ(SentenceOf(find).empty(), row.absent);
    }
}

TEST_F(HostCall, ReadsListsByTheirEnumeratorElseByPosition) {
    for (const bool enumerates : {true, false}) {
        for (const int size : {0, 1, 64, 65, 200}) {
            SCOPED_TRACE(testing::Message() << enumerates << " " << size);
            std::vector<ComPtr<IDispatch>> objects;
            for (int i = 0; i < size; ++i) objects.push_back(Plain("Task"));
            const auto list = Make("Tasks");
            list->On("Count", [&](ScriptedCall& call) { call.Answer(size); });
            list->On("Item", [&](ScriptedCall& call) {
                call.Answer(objects.at(static_cast<std::size_t>(call.Int32(0)) - 1));
            });
            if (enumerates)
                list->On("_NewEnum", [&](ScriptedCall& call) {
                    call.Answer(MakeEnumerator(script_, objects));
                });
            const auto elements = Elements(Hold(list), kTasks);
            ASSERT_EQ(elements.size(), objects.size());
            for (std::size_t i = 0; i < objects.size(); ++i)
                EXPECT_EQ(elements[i].Object(), objects[i].Get());
            EXPECT_EQ(script_->calls["Tasks.Item"], enumerates ? 0 : size);
            script_->calls.clear();
        }
    }
    EXPECT_EQ(script_->objects, 0);
    EXPECT_TRUE(Elements(Dispatch(), kTasks).empty());
}

TEST_F(HostCall, RefusesListsThatCannotBeRead) {
    const struct {
        const char* what;
        std::function<void(ScriptedDispatch&)> add;
        const char* sentence;
    } rows[] = {
        {"a gap",
         [&](auto& list) {
             list.On("_NewEnum", [&](ScriptedCall& call) {
                 call.Answer(MakeEnumerator(script_, {Plain("Task"), nullptr}));
             });
         },
         "The host answered Tasks._NewEnum with nothing where an object is needed."},
        {"a failing enumerator",
         [](auto& list) {
             list.On("_NewEnum", [](ScriptedCall& call) { return call.Fail("Not now"); });
         },
         "The host could not read Tasks._NewEnum: Not now."},
        {"neither enumerator nor count", [](auto&) {},
         "The host has no Tasks.Count; install a version of it that this add-in works with."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const auto list = Make("Tasks");
        row.add(*list);
        EXPECT_EQ(SentenceOf([&] { Elements(Hold(list), kTasks); }), row.sentence);
    }
}

}  // namespace
}  // namespace kestrel::com
