#include "host/clsKestrelDll.h"

#include <utility>

#include "base/Errors.h"
#include "ui/assignment/frmAssignRisk.h"
#include "ui/assignment/frmAssignRiskAdvanced.h"
#include "ui/driving_risks/frmTornado.h"
#include "ui/options/frmLoadRiskFactors.h"
#include "util/Trapped.h"
#include "util/modLocale.h"

namespace kestrel {
namespace {

template <class FormType>
void Show(modGlobals& globals, ui::FormRunner& runner) {
    FormType form(globals);
    runner.ShowModal(form);
}

}  // namespace

clsKestrelDll::clsKestrelDll(std::function<host::ApplicationPtr()> attach, Desktop& desktop,
                             ui::FormRunner& runner)
    : attach_(std::move(attach)), globals_(desktop), runner_(runner) {
    windows_.assign = Show<ui::frmAssignRisk>;
    windows_.assignAdvanced = ui::ShowAdvancedAssignment;
    windows_.drivingRisks = Show<ui::frmTornado>;
    windows_.options = Show<ui::frmLoadRiskFactors>;
}

void clsKestrelDll::LaunchStartSchedulon() {
    if (schedulon_) return;
    AttachHost();
    auto listener = std::make_unique<clsSchedulon>(globals_);
    listener->StartSchedulon();
    schedulon_ = std::move(listener);
}

void clsKestrelDll::LaunchStopSchedulon() {
    if (const auto listener = std::exchange(schedulon_, nullptr)) listener->StopSchedulon();
}

void clsKestrelDll::Launch(const char* command, const char* undone) {
    decimalSeparator_ = ForceDecimalPoint(globals_.desktop);
    TrappedAndTold(globals_.desktop, undone, [&] {
        AttachHost();
        RunCommand(globals_, runner_, windows_, command);
    });
    RestoreDecimalSeparator(globals_.desktop, decimalSeparator_);
}

void clsKestrelDll::AttachHost() {
    if (!globals_.application) globals_.application = attach_();
    if (!globals_.application) throw HostError("The add-in could not reach its host.");
}

}  // namespace kestrel
