#include <cstdlib>
#include <new>

#include "support/AddInTest.h"
#include "support/TemporaryFolder.h"

// Every allocation of the process goes through here, the XML parser's included. The sanitizers
// bring a malloc of their own.
#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__)

namespace {
std::size_t allocationsLeft = 0;  // the last of them fails; 0: none does

bool Fails() { return allocationsLeft != 0 && --allocationsLeft == 0; }
}  // namespace

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* malloc(std::size_t size) { return Fails() ? nullptr : __libc_malloc(size); }
void* realloc(void* block, std::size_t size) {
    return Fails() ? nullptr : __libc_realloc(block, size);
}
}

namespace kestrel::test {
namespace {

constexpr const char* kFactor =
    "<RiskFactor><Name>A</Name><Minimum>90</Minimum><MostLikely>100</MostLikely>"
    "<Maximum>110</Maximum><Probability>50</Probability></RiskFactor>";

std::string Register(int factors) {
    std::string text = "<RiskFactors Version=\"RiskFactors1.00\">";
    for (int i = 0; i < factors; ++i) text += kFactor;
    return text + "</RiskFactors>";
}

struct Scene {
    FakeHost host;
    FakeDesktop desktop;
    ScriptedRunner runner;
    clsKestrelDll addin{[this] { return host.application; }, desktop, runner};

    explicit Scene(const std::string& file) {
        host.plan->texts["RiskFactors"] = Register(2);
        host.AddTask("1", "Dig", "(1,2)");
        host.plan->randoms = {0.5, 0.5};
        desktop.chosenFiles = {file};
        desktop.answers = {MessageAnswer::Yes};
    }
    void Analyse() {
        addin.LaunchStartSchedulon();
        host::AnalysisEvents& listener = *host.application->sinks.at(0);
        listener.PlanBeforeRiskAnalysis(host.plan);
        listener.PlanAfterRiskIteration(host.plan);
        listener.PlanAfterRiskAnalysis(host.plan);
    }
};

TEST(NoMemory, NeverEndsACommandOrAnAnalysisAsIfItHadBeenDone) {
    TemporaryFolder folder;
    const std::string file = folder / "factors.xml";
    FakeDesktop files;
    const struct {
        const char* what;
        std::function<void(Scene&)> run;
        std::function<std::string(Scene&)> result;
    } rows[] = {
        {"save", [](Scene& s) { s.addin.LaunchSave(); },
         [&](Scene&) { return files.ReadFile(file); }},
        {"load", [](Scene& s) { s.addin.LaunchLoad(); },
         [](Scene& s) { return s.host.plan->texts["RiskFactors"]; }},
        {"analyse", [](Scene& s) { s.Analyse(); },
         [](Scene& s) { return s.host.plan->texts["RiskFactors"]; }},
    };
    for (const auto& row : rows) {
        files.WriteFile(file, Register(3));
        Scene sound(file);
        const std::string before = row.result(sound);
        row.run(sound);
        const std::string after = row.result(sound);
        ASSERT_NE(before, after);
        bool hit = true;
        for (std::size_t n = 1; hit; n += n / 16 + 1) {  // files are flushed: not every one
            files.WriteFile(file, Register(3));
            Scene scene(file);
            bool told = false;
            allocationsLeft = n;
            try {
                row.run(scene);
            } catch (const std::bad_alloc&) {
                told = true;
            }
            hit = allocationsLeft == 0;
            allocationsLeft = 0;
            const std::string result = row.result(scene);
            ASSERT_TRUE(result == after || (told && result == before))
                << row.what << ", allocation " << n << ": " << result;
        }
    }
}

}  // namespace
}  // namespace kestrel::test

#endif
