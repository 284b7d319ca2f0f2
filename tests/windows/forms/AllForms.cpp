#include "windows/forms/AllForms.h"

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
        {"editor", L"Edit Risk Factors", Make<ui::frmEditRiskFactors>},
        {"options", L"Options", Make<ui::frmLoadRiskFactors>},
        {"assignment", L"Assign Risk Factors", Make<ui::frmAssignRisk>},
        {"assignment in lists", L"Assign Risk Factors", Make<ui::frmAssignRiskAdvanced>},
        {"driving risks", L"Driving Risks", Make<ui::frmTornado>},
        {"command picker", L"Risk Factors",
         [](Stage&) { return std::make_unique<ui::frmCommandSelect>(); }},
        {"message box", L"Quillon Risk Analysis", MakeMessageBox},
        {"progress", L"Calculating Risk Sensitivity",
         [](Stage&) { return std::make_unique<ui::frmProgress>(); }},
        {"steps", L"Progress", MakeSteps},
    };
    return forms;
}

}  // namespace kestrel::test
