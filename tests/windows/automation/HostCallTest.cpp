#include <gmock/gmock.h>

#include "base/Errors.h"
#include "com/automation/Dispatch.h"
#include "com/automation/HostList.h"
#include "platform/win32/SystemMessage.h"
#include "windows/support/Interception.h"
#include "windows/support/OfferedHost.h"

namespace kestrel::com {
namespace {

using test::Interception;
using test::PassingCall;
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

/// The reference host behind an interception, and the add-in's hold on its objects.
class HostCall : public testing::Test {
 protected:
    Dispatch Hold(const ComPtr<IDispatch>& object) {
        return {between_->Over(object.Get()), connection_};
    }

    refhost::test::OfferedHost offered_;
    std::shared_ptr<Interception> between_ = std::make_shared<Interception>();
    ConnectionPtr connection_ = std::make_shared<HostConnection>();
};

TEST_F(HostCall, TellsAFailureInTheHostsOwnWordsElseInTheSystems) {
    const std::string denied = win32::SystemMessage(E_ACCESSDENIED);
    const struct {
        const char* what;
        Interception::Handler handler;
        std::string reason;
    } rows[] = {
        {"described", [](auto& call) { return call.Fail("The plan is locked."); },
         "The plan is locked"},
        {"described on demand",
         [](auto& call) {
             call.failure.pfnDeferredFillIn = FillInLater;
             return DISP_E_EXCEPTION;
         },
         "told only when asked"},
        {"a code alone", [](auto& call) { return call.Fail("", E_ACCESSDENIED); }, denied},
        {"an old error number",
         [](auto& call) {
             call.failure.wCode = 1001;
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
    // An object that does not say that it leaves an error object is not looked at for one.
    const auto saysSo = std::exchange(between_->onQuery, [](REFIID id, void** object) {
        *object = nullptr;
        return id == IID_ISupportErrorInfo;
    });
    const Dispatch task = Hold(offered_.Task("A"));
    const Dispatch plan = Hold(offered_.PlanObject());
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        between_->all = [&](PassingCall& call) {
            return call.name.ends_with('?') ? call.Pass() : row.handler(call);
        };
        EXPECT_EQ(SentenceOf([&] { task.Int32(HostMember::TaskDuration); }),
                  "The host could not read Task.Duration: " + row.reason + ".");
        EXPECT_EQ(SentenceOf([&] { task.Put(HostMember::TaskDuration, 5); }),
                  "The host could not set Task.Duration: " + row.reason + ".");
    }
    between_->onQuery = saysSo;  // the last row leaves one
    EXPECT_EQ(SentenceOf([&] { plan.Run(HostMember::PlanRecalculate); }),
              "The host could not run Plan.Recalculate: left behind.");
    between_->all = [](PassingCall&) { return DISP_E_UNKNOWNNAME; };
    EXPECT_EQ(SentenceOf([&] { task.Text(HostMember::TaskName); }),
              "The host has no Task.Name; install a version of it that this add-in works with.");
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
        between_->members["Groups.Item"] = [&](PassingCall& call) {
            return row.result == DISP_E_EXCEPTION ? call.Fail("No.", row.code) : row.result;
        };
        const Dispatch groups = Hold(refhost::test::Follow(offered_.PlanObject(), {L"Groups"}));
        const auto find = [&] { EXPECT_FALSE(groups.Find(HostMember::GroupsItem, Bstr("A"))); };
        EXPECT_EQ(SentenceOf(find).empty(), row.absent);
    }
}

TEST_F(HostCall, ReadsListsByTheirEnumeratorElseByPosition) {
    for (const bool enumerates : {true, false}) {
        for (const std::size_t size : {0u, 64u, 65u, 200u}) {
            SCOPED_TRACE(testing::Message() << enumerates << " " << size);
            refhost::PlanData plan;
            for (std::size_t i = 0; i < size; ++i) plan.tasks.emplace_back().id = std::to_string(i);
            refhost::test::OfferedHost offered(plan);
            if (!enumerates)
                between_->members["Tasks._NewEnum"] = [](PassingCall&) {
                    return DISP_E_MEMBERNOTFOUND;
                };
            between_->calls.clear();
            const auto list = Hold(refhost::test::Follow(offered.PlanObject(), {L"Tasks"}));
            const auto elements = Elements(list, kTasks);
            ASSERT_EQ(elements.size(), size);
            for (std::size_t i = 0; i < size; ++i)
                EXPECT_EQ(elements[i].Text(HostMember::TaskID), std::to_string(i));
            EXPECT_EQ(between_->calls["Tasks.Item"], enumerates ? 0 : static_cast<int>(size));
        }
    }
    EXPECT_EQ(between_->objects, 0);
    EXPECT_TRUE(Elements(Dispatch(), kTasks).empty());
}

}  // namespace
}  // namespace kestrel::com
