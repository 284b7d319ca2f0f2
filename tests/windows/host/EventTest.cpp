#include <gmock/gmock.h>

#include <olectl.h>

#include <Schedulon.h>
#include <functional>

#include "base/Errors.h"
#include "platform/win32/Bstr.h"
#include "platform/win32/ComObject.h"
#include "windows/support/OfferedHost.h"

namespace refhost::test {
namespace {

using kestrel::win32::AnswerInterface;
using kestrel::win32::Bstr;
using kestrel::win32::WithoutTypes;
using testing::ElementsAre;
using testing::HasSubstr;

/// A listener that notes what it hears and answers as a test wishes.
class Sink final : public WithoutTypes<IDispatch> {
 public:
    std::vector<DISPID> heard;
    std::vector<IDispatch*> plans;
    std::function<HRESULT(EXCEPINFO*)> answer;
    bool offersEvents = true;
    ULONG references = 1;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override {
        const bool has = iid == IID_IUnknown ||
                         (offersEvents && (iid == IID_IDispatch || iid == DIID__ApplicationEvents));
        return AnswerInterface(has ? this : nullptr, object);
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return --references; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters,
                                     VARIANT*, EXCEPINFO* failure, UINT*) noexcept override {
        heard.push_back(id);
        if (parameters->cArgs == 1 && parameters->rgvarg[0].vt == VT_DISPATCH)
            plans.push_back(parameters->rgvarg[0].pdispVal);
        return answer ? answer(failure) : S_OK;
    }
};

ComPtr<IConnectionPoint> PointOf(const OfferedHost& offered) {
    ComPtr<IConnectionPoint> point;
    EXPECT_EQ(offered.application.As<IConnectionPointContainer>(IID_IConnectionPointContainer)
                  ->FindConnectionPoint(DIID__ApplicationEvents, point.Out()),
              S_OK);
    return point;
}

DWORD Advise(const OfferedHost& offered, Sink& sink) {
    DWORD cookie = 0;
    EXPECT_EQ(PointOf(offered)->Advise(&sink, &cookie), S_OK);
    return cookie;
}

AnalysisSettings Iterations(std::int32_t count) {
    AnalysisSettings settings;
    settings.iterations = count;
    return settings;
}

/// What RunAnalysis raises; empty for nothing.
std::string FailureOf(OfferedHost& offered) {
    try {
        RunAnalysis(offered.host, Iterations(1));
        return {};
    } catch (const kestrel::HostError& error) {
        return error.what();
    }
}

TEST(Events, GoToEverySinkWithThePlan) {
    OfferedHost offered;
    const auto plan = offered.PlanObject();
    Sink first, second;
    const DWORD cookie = Advise(offered, first);
    const DWORD other = Advise(offered, second);
    EXPECT_NE(cookie, other);
    RunAnalysis(offered.host, Iterations(2));
    EXPECT_THAT(first.heard, ElementsAre(1, 2, 2, 3));
    EXPECT_THAT(first.plans, ElementsAre(plan.Get(), plan.Get(), plan.Get(), plan.Get()));
    EXPECT_EQ(second.heard, first.heard);

    EXPECT_EQ(PointOf(offered)->Unadvise(cookie), S_OK);
    EXPECT_EQ(PointOf(offered)->Unadvise(cookie), CONNECT_E_NOCONNECTION);
    RunAnalysis(offered.host, Iterations(1));
    EXPECT_EQ(first.heard.size(), 4u);
    EXPECT_EQ(second.heard.size(), 7u);
    EXPECT_EQ(first.references, 1u);
    EXPECT_EQ(PointOf(offered)->Unadvise(other), S_OK);
    EXPECT_EQ(second.references, 1u);
}

TEST(Events, ReportAFailingSinkToTheAnalysisOnceAllHaveHeard) {
    const struct {
        std::function<HRESULT(EXCEPINFO*)> answer;
        const char* sentence;
    } rows[] = {
        {[](EXCEPINFO* failure) {
             failure->bstrDescription = Bstr("Task 'x' would last too long.").Detach();
             return DISP_E_EXCEPTION;
         },
         "Task 'x' would last too long."},
        {[](EXCEPINFO* failure) {  // filled in only when it is asked for
             failure->pfnDeferredFillIn = [](EXCEPINFO* asked) {
                 asked->bstrDescription = Bstr("Late.").Detach();
                 return S_OK;
             };
             return DISP_E_EXCEPTION;
         },
         "Late."},
        {[](EXCEPINFO*) { return E_ACCESSDENIED; },
         "A listener failed in PlanBeforeRiskAnalysis: "},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.sentence);
        OfferedHost offered;
        Sink failing, sound;
        failing.answer = row.answer;
        const DWORD cookie = Advise(offered, failing);
        Advise(offered, sound);
        EXPECT_THAT(FailureOf(offered), HasSubstr(row.sentence));
        EXPECT_THAT(sound.heard, ElementsAre(1));
        // So it is for a client that runs the analysis.
        const auto analysis = Follow(offered.PlanObject(), {L"RiskAnalysis"});
        EXPECT_THAT(Get(*analysis, L"Run").description, HasSubstr(row.sentence));
        EXPECT_EQ(PointOf(offered)->Unadvise(cookie), S_OK);
        EXPECT_EQ(FailureOf(offered), "") << "the next analysis runs";
    }
}

TEST(Events, LetSinksComeAndGoInTheMiddle) {
    OfferedHost offered;
    Sink leaving, next, late;
    DWORD cookie = 0, nextCookie = 0;
    leaving.answer = [&](EXCEPINFO*) {
        if (cookie == 0) return S_OK;
        EXPECT_EQ(PointOf(offered)->Unadvise(std::exchange(cookie, 0)), S_OK);
        EXPECT_EQ(PointOf(offered)->Unadvise(nextCookie), S_OK);
        Advise(offered, late);
        return S_OK;
    };
    cookie = Advise(offered, leaving);
    nextCookie = Advise(offered, next);
    RunAnalysis(offered.host, Iterations(1));
    EXPECT_THAT(leaving.heard, ElementsAre(1));
    EXPECT_THAT(next.heard, ElementsAre());
    EXPECT_THAT(late.heard, ElementsAre(2, 3)) << "not the event during which it came";
    EXPECT_EQ(leaving.references, 1u);
}

TEST(Events, DropASinkWhoseProcessHasGone) {
    OfferedHost offered;
    Sink gone;
    gone.answer = [](EXCEPINFO*) { return RPC_E_DISCONNECTED; };
    Advise(offered, gone);
    EXPECT_NE(FailureOf(offered), "");
    EXPECT_EQ(FailureOf(offered), "");
    EXPECT_EQ(gone.references, 1u);
}

TEST(Events, OutliveTheLastReferenceThatASinkLetsGo) {
    OfferedHost offered;
    Sink sink;
    Advise(offered, sink);
    sink.answer = [&](EXCEPINFO*) {
        offered.application.Reset();
        return S_OK;
    };
    RunAnalysis(offered.host, Iterations(1));
    EXPECT_THAT(sink.heard, ElementsAre(1)) << "the connection ends with the object";
    EXPECT_EQ(sink.references, 1u);
}

TEST(ConnectionPoint, DescribesItselfAndItsConnections) {
    OfferedHost offered;
    const auto container =
        offered.application.As<IConnectionPointContainer>(IID_IConnectionPointContainer);
    ComPtr<IEnumConnectionPoints> points;
    ASSERT_EQ(container->EnumConnectionPoints(points.Out()), S_OK);
    ComPtr<IConnectionPoint> point;
    EXPECT_EQ(points->Next(1, point.Out(), nullptr), S_OK);
    EXPECT_EQ(point.Get(), PointOf(offered).Get());
    IID iid{};
    EXPECT_EQ(point->GetConnectionInterface(&iid), S_OK);
    EXPECT_EQ(iid, DIID__ApplicationEvents);
    ComPtr<IConnectionPoint> none;
    EXPECT_EQ(container->FindConnectionPoint(IID_IDispatch, none.Out()), CONNECT_E_NOCONNECTION);

    Sink sink, stranger;
    stranger.offersEvents = false;
    DWORD cookie = Advise(offered, sink), refused = 1;
    EXPECT_EQ(point->Advise(&stranger, &refused), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(refused, 0u);
    ComPtr<IEnumConnections> connections;
    ASSERT_EQ(point->EnumConnections(connections.Out()), S_OK);
    CONNECTDATA data{};
    EXPECT_EQ(connections->Next(1, &data, nullptr), S_OK);
    EXPECT_EQ(data.dwCookie, cookie);
    data.pUnk->Release();
    EXPECT_EQ(connections->Next(1, &data, nullptr), S_FALSE);
}

}  // namespace
}  // namespace refhost::test
