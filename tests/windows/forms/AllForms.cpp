#include "windows/forms/AllForms.h"

#include "refhost/workbench/frmRiskReportAssumptions.h"
#include "refhost/workbench/frmRunAnalysis.h"
#include "refhost/workbench/frmSaveChanges.h"
#include "ui/assignment/frmAssignRisk.h"
#include "ui/assignment/frmAssignRiskAdvanced.h"
#include "ui/command_select/frmCommandSelect.h"
#include "ui/driving_risks/frmTornado.h"
#include "ui/editor/frmEditRiskFactors.h"
#include "ui/options/frmLoadRiskFactors.h"
#include "ui/progress/frmMessageBox.h"
#include "ui/progress/frmProgress.h"
#include "ui/progress/frmTextProgress.h"

namespace kestrel::test {
namespace {

template <class FormType>
std::unique_ptr<ui::Form> Make(Stage& stage) {
    return std::make_unique<FormType>(stage.addin.Globals());
}

std::unique_ptr<ui::Form> MakeMessageBox(Stage&) {
    auto box = std::make_unique<ui::frmMessageBox>();
    box->lbMessage.SetCaption("Replace it?");
    return box;
}

std::unique_ptr<ui::Form> MakeSteps(Stage& stage) {
    auto steps = std::make_unique<ui::frmTextProgress>(stage.desktop);
    steps->AddToDo("First");
    steps->AddToDo("Second");
    return steps;
}

}  // namespace

const std::vector<AnyForm>& AllForms() {
    static const std::vector<AnyForm> forms = {
        {"editor", Make<ui::frmEditRiskFactors>},
        {"options", Make<ui::frmLoadRiskFactors>},
        {"assignment", Make<ui::frmAssignRisk>},
        {"assignment in lists", Make<ui::frmAssignRiskAdvanced>},
        {"driving risks", Make<ui::frmTornado>},
        {"command picker", [](Stage&) { return std::make_unique<ui::frmCommandSelect>(); }},
        {"message box", MakeMessageBox},
        {"progress", [](Stage&) { return std::make_unique<ui::frmProgress>(); }},
        {"steps", MakeSteps},
        {"analysis",
         [](Stage& stage) {
             return std::make_unique<refhost::frmRunAnalysis>(stage.desktop,
                                                              refhost::AnalysisSettings());
         }},
        {"save changes",
         [](Stage&) { return std::make_unique<refhost::frmSaveChanges>("Ferry terminal"); }},
        {"report",
         [](Stage&) { return std::make_unique<refhost::frmRiskReportAssumptions>([] {}); }},
    };
    return forms;
}

}  // namespace kestrel::test
