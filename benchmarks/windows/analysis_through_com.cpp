// What the add-in's analysis costs across COM: microseconds per iteration and host calls per
// iteration beside the least that it could do with, and the time of a call beside that of an empty
// Invoke, on the generated plan of 1,280 tasks with 20 factors on a third of the tasks.
// KestrelDll.dll stands beside the program.
//
//   benchmark_analysis_through_com [ITERATIONS]     by default 2000

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "platform/Files.h"
#include "platform/win32/ComApartment.h"
#include "refhost/engine/Analysis.h"
#include "refhost/files/PlanFile.h"
#include "refhost/windows/console/ComAddIn.h"
#include "support/GeneratedPlan.h"

namespace {

using namespace refhost;

constexpr std::size_t kTasks = 1280;
constexpr int kFactors = 20;

/// The generated plan in a file, as a session reads it; removed at the end.
struct PlanInFile {
    PlanInFile() {
        const PlanData plan = GeneratedPlan({kTasks, kFactors, 1});
        for (const TaskData& task : plan.tasks)
            carrying += FindText(task.userValues, "RiskFactors") != nullptr;
        kestrel::ReplaceWholeFile(path, WritePlan(plan));
    }
    ~PlanInFile() { std::remove(path.c_str()); }
    PlanInFile(const PlanInFile&) = delete;
    PlanInFile& operator=(const PlanInFile&) = delete;

    const std::string path = "benchmark-1280.kplan";
    std::uint64_t carrying = 0;  ///< tasks that carry factors
};

/// From the end of the first iteration to the end of the last: preparation is left out.
class Meter : public AnalysisWatcher {
 public:
    explicit Meter(const AddInConnection* connection) : connection_(connection) {}
    bool AfterIteration(std::int32_t number, std::span<const std::int32_t>,
                        const AnalysisResults&) override {
        Reading& reading = number == 1 ? first_ : last_;
        reading.time = std::chrono::steady_clock::now();
        reading.calls = connection_ ? connection_->HostCalls() : 0;
        measured_ = number - 1;
        return true;
    }
    double Microseconds() const {
        return std::chrono::duration<double, std::micro>(last_.time - first_.time).count() /
               measured_;
    }
    double Calls() const { return static_cast<double>(last_.calls - first_.calls) / measured_; }

 private:
    struct Reading {
        std::chrono::steady_clock::time_point time;
        std::uint64_t calls = 0;
    };
    const AddInConnection* connection_;
    Reading first_, last_;
    std::int32_t measured_ = 1;
};

/// An object of which every member answers a number and does nothing: a call of it is the least
/// that one across COM can cost.
class EmptyObject final : public IDispatch {
 public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) noexcept override {
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return 1; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return 1; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID,
                                            DISPID*) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* answer,
                                     EXCEPINFO*, UINT*) noexcept override {
        answer->vt = VT_I4;
        answer->lVal = id;
        return S_OK;
    }
};

double NanosecondsOfAnEmptyInvoke() {
    constexpr int kCalls = 10'000'000;
    EmptyObject object;
    IDispatch* volatile dispatch = &object;  // or the call would be compiled away
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < kCalls; ++i) {
        DISPPARAMS none{};
        VARIANT answer;
        VariantInit(&answer);
        dispatch->Invoke(i, IID_NULL, LOCALE_NEUTRAL, DISPATCH_PROPERTYGET, &none, &answer, nullptr,
                         nullptr);
    }
    const std::chrono::duration<double, std::nano> passed =
        std::chrono::steady_clock::now() - start;
    return passed.count() / kCalls;
}

/// A command that writes nothing.
Outputs NoOutputs() {
    const ArgumentRules rules;
    return Outputs(Arguments({}, rules), rules);
}

void Run(std::int32_t iterations) {
    const PlanInFile plan;
    AnalysisSettings settings;
    settings.iterations = iterations;

    Session alone(plan.path, NoOutputs());
    Meter hostAlone(nullptr);
    RunAnalysis(alone.Host(), settings, &hostAlone);

    Session session(plan.path, NoOutputs());
    ComAddIn addIn(session);
    addIn.Start();
    Meter through(&addIn.Connection());
    RunAnalysis(session.Host(), settings, &through);

    const auto least = static_cast<double>(2 + 3 * kFactors + 3 * plan.carrying + 2 + 3);
    const double extra = through.Microseconds() - hostAlone.Microseconds();
    std::printf("%zu tasks, %d factors, %d iterations\n", kTasks, kFactors, iterations);
    std::printf("host alone          %10.1f us per iteration\n", hostAlone.Microseconds());
    std::printf("with the add-in     %10.1f us per iteration\n", through.Microseconds());
    std::printf("host calls          %10.1f per iteration, least %.0f\n", through.Calls(), least);
    std::printf("a host call         %10.1f ns, the add-in's own work included\n",
                1000 * extra / through.Calls());
    std::printf("an empty Invoke     %10.1f ns\n", NanosecondsOfAnEmptyInvoke());
}

}  // namespace

int main(int count, char** words) {
    const kestrel::win32::ComApartment com;
    try {
        Run(std::max(count > 1 ? std::atoi(words[1]) : 2000, 2));
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
