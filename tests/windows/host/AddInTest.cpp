// The add-in in KestrelDll.dll at work in this process, through COM on both sides.
#include <gmock/gmock.h>

#include <fstream>

#include "platform/Files.h"
#include "platform/win32/ComApartment.h"
#include "platform/win32/Handles.h"
#include "refhost/engine/Analysis.h"
#include "refhost/files/PlanFile.h"
#include "refhost/windows/console/ComAddIn.h"
#include "support/GeneratedPlan.h"
#include "windows/support/LeakCheck.h"

namespace refhost::test {
namespace {

/// A generated plan in a file of its own, removed at the end.
class PlanInFile {
 public:
    explicit PlanInFile(std::size_t tasks)
        : path_("host-test-" + std::to_string(tasks) + ".kplan") {
        kestrel::ReplaceWholeFile(path_, WritePlan(GeneratedPlan({tasks, 5, 1})));
    }
    ~PlanInFile() { std::remove(path_.c_str()); }
    const std::string& Path() const { return path_; }

 private:
    std::string path_;
};

/// A command that writes nothing.
Outputs NoOutputs() {
    const ArgumentRules rules;
    return Outputs(Arguments({}, rules), rules);
}

AnalysisSettings Few() {
    AnalysisSettings settings;
    settings.iterations = 2;
    return settings;
}

TEST(AddInThroughCom, AsksTheHostNoMoreThanAnIterationNeeds) {
    const kestrel::win32::ComApartment com;
    const PlanInFile file(90);  // of which 30 tasks carry factors
    Session session(file.Path(), NoOutputs());
    ComAddIn addIn(session);
    addIn.Start();
    struct CallCounter : AnalysisWatcher {
        const AddInConnection& connection;
        std::vector<std::uint64_t> atEnd;
        explicit CallCounter(const AddInConnection& counted) : connection(counted) {}
        bool AfterIteration(std::int32_t, std::span<const std::int32_t>,
                            const AnalysisResults&) override {
            atEnd.push_back(connection.HostCalls());
            return true;
        }
    } counter(addIn.Connection());
    AnalysisSettings settings = Few();
    settings.iterations = 4;
    RunAnalysis(session.Host(), settings, &counter);
    ASSERT_EQ(counter.atEnd.size(), 4u);
    // Automatic calculation off and on, per factor a number and two draws, per task its duration
    // read and written and its cost, which recalculation, recalculate, summary, its finish and
    // cost.
    const std::uint64_t least = 2 + 3 * 5 + 3 * 30 + 2 + 3;
    for (std::size_t i = 1; i < 4; ++i)
        EXPECT_EQ(counter.atEnd[i] - counter.atEnd[i - 1], least) << "iteration " << i + 1;
}

TEST(AddInThroughCom, LeavesNothingBehind) {
    const kestrel::win32::ComApartment com;
    const PlanInFile file(6), withoutTasks(0);
    // Loaded in any host that asks for files. Wine's loses a handle whenever it is unloaded.
    const kestrel::win32::LibraryHandle fileDialogs(LoadLibraryW(L"comdlg32.dll"));
    Session session(file.Path(), NoOutputs());
    int refused = 0;
    const struct {
        const char* what;
        int rounds;
        std::function<void()> round;
    } rows[] = {
        {"an analysis", 1000,
         [&] {
             ComAddIn addIn(session);
             addIn.Start();
             RunAnalysis(session.Host(), Few());
         }},
        // A file dialog would lose a handle of its own each time under Wine.
        {"a command that is answered with a message box", 200,
         [&] {
             Session empty(withoutTasks.Path(), NoOutputs());  // keeps its messages
             empty.Desktop().collects = true;
             ComAddIn addIn(empty);
             addIn.Connection().Call(L"LaunchAssign");
             refused +=
                 empty.Desktop().Messages().front() == "There are no tasks to assign risks to.";
         }},
    };
    for (const auto& row : rows)
        EXPECT_TRUE(kestrel::test::LeakCheck(row.rounds, row.round)) << row.what;
    EXPECT_EQ(refused, 220);
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_EQ(GetModuleHandleW(L"KestrelDll.dll"), nullptr) << "the DLL is still loaded";
}

}  // namespace
}  // namespace refhost::test
