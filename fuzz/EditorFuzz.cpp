#include "fuzz/Fuzz.h"
#include "host/clsKestrelDll.h"
#include "platform/XmlCharacters.h"
#include "store/GridRegister.h"
#include "store/RegisterDocument.h"
#include "store/RiskList.h"
#include "store/TaskField.h"
#include "support/FakeHost.h"
#include "support/ScriptedRunner.h"

/// A user of the editor who hits keys, cells and buttons as the input says. The first byte is the
/// number of factors that the plan has, the second whether a task carries some.
namespace kestrel::fuzz {
namespace {

using namespace test;

constexpr int kColumns = kRiskColumns;

class EditorSession {
 public:
    explicit EditorSession(Input& input) : input_(input) {
        host_.application->settings[{"RiskFactors", "RiskFactors", "OptionSetting"}] = "3";
        modGlobals globals(desktop_);
        const int factors = input.Below(10);
        for (int i = 1; i <= factors; ++i) {
            auto& factor = globals.RiskFactors.emplace_back(std::make_shared<clsRiskFactor>());
            factor->strDescription = "F" + std::to_string(i);
            factor->dblProb = 10 * i;
            if (i % 3 == 0) factor->CorrelatedTo = i - 1;
        }
        SaveRegisterToPlan(globals.RiskFactors, *host_.plan);
        task_ = host_.AddTask("1", "Dig", factors > 3 && input.Below(2) ? "(3(P));(1,2)" : "");
        desktop_.files["saved.xml"] = host_.plan->texts[kRegisterText];
    }

    void Run() {
        while (!input_.AtEnd()) {
            Edit([this](User& user) {
                const std::size_t before = TimesStored();
                while (user.TheForm().IsOpen() && !input_.AtEnd()) {
                    desktop_.agrees = true;
                    Act(user);
                    if (user.TheForm().IsOpen()) CheckGrid();
                }
                if (TimesStored() != before) CheckStored(LastRiskRow(*grid_));
            });
        }
    }

 private:
    void Edit(const std::function<void(User&)>& script) {
        runner_.script = [&](User& user) {
            grid_ = &user.Get<Grid>("Tabulon1");
            script(user);
        };
        const int before = runner_.shown;
        addin_.LaunchEdit();
        Require(runner_.shown == before + 1, "the editor opens on what it has stored");
    }

    std::size_t TimesStored() const { return host_.log.Count("Plan.SetText"); }

    void Act(User& user) {
        MouseEvent how;
        switch (input_.Below(9)) {
            case 0: {
                const unsigned bits = input_.Byte();
                const auto key = static_cast<Key>(1 + bits % 15);
                user.Press(key, bits & 0x40, bits & 0x80);
                break;
            }
            case 1:
                user.Type(input_.Text(1));
                break;
            case 2:
                user.Type(input_.Text(input_.Byte()));
                break;
            case 3:
                user.TheForm().KeyPress(Character());
                break;
            case 4: {
                const unsigned bits = input_.Byte();
                how.shift = bits & 0x40;
                how.ctrl = bits & 0x80;
                how.doubleClick = bits & 0x20;
                const int row = 1 + static_cast<int>(bits & 0x1F) % (grid_->RowCount() - 1);
                user.ClickCell("Tabulon1", row, input_.Below(kColumns), how);
                break;
            }
            case 5:
                Click(user);
                break;
            case 6:
                user.PressLetter(static_cast<char>('A' + input_.Below(26)), input_.Below(2), false);
                break;
            case 7:
                user.PressLetter("DLSO"[input_.Below(4)], false, true);
                break;
            case 8:
                grid_->Paste(input_.Text(input_.Byte()));
                break;
        }
        desktop_.chosenFiles.clear();
    }

    void Click(User& user) {
        static const char* const buttons[] = {"cmdDeleteRisk", "cmdLoadFile", "cmdSave",
                                              "cmdOKRisk"};
        const unsigned bits = input_.Byte();
        desktop_.agrees = bits & 0x80;
        desktop_.chosenFiles = {"saved.xml"};
        user.Click(buttons[bits % 4]);
    }

    char32_t Character() {
        const char32_t code = input_.Byte() | input_.Byte() << 8 | (input_.Byte() % 17) << 16;
        return code >> 11 == 0xD800 >> 11 ? U'?' : code;
    }

    void CheckGrid() const {
        Require(grid_->RowCount() >= 2, "there is an entry row");
        Require(grid_->IsDataCell(grid_->CurrentRow(), grid_->CurrentColumn()),
                "a cell is current");
        for (int row = 1; row < grid_->RowCount(); ++row) {
            Require(grid_->Text(row, Grid::kRowHeader) == std::to_string(row) + ".",
                    "rows are numbered");
            for (int column = 0; column < kColumns; ++column) CheckText(grid_->Text(row, column));
        }
    }

    static void CheckText(std::string_view text) {
        Require(XmlTextLength(text) == text.size(), "a cell's text is one that can be stored");
    }

    /// The register in the plan can be read, has a factor for each row that the grid showed, and
    /// the task refers to what is there.
    void CheckStored(int rows) {
        modGlobals globals(desktop_);
        LoadRegisterFromPlan(globals, *host_.plan);
        const auto count = static_cast<int>(globals.RiskFactors.size());
        Require(count == rows, "OK stores every row");
        for (const auto& factor : globals.RiskFactors)
            Require(factor->CorrelatedTo >= 0 && factor->CorrelatedTo <= count,
                    "a factor follows one that is there");
        for (const bool inSeries : {false, true})
            for (const std::int32_t id :
                 ListedIDs(GetRiskList(task_->texts[kRiskFactorsField], inSeries)))
                Require(id >= 1 && id <= count, "the task carries factors that are there");
    }

    Input& input_;
    FakeHost host_;
    MemoryDesktop desktop_;
    ScriptedRunner runner_;
    clsKestrelDll addin_{[this] { return host_.application; }, desktop_, runner_};
    std::shared_ptr<FakeTask> task_;
    Grid* grid_ = nullptr;  ///< while the form is shown
};

}  // namespace
}  // namespace kestrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    kestrel::fuzz::Input input(data, size);
    kestrel::fuzz::EditorSession(input).Run();
    return 0;
}
