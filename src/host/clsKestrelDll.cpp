#include "host/clsKestrelDll.h"

#include <utility>

#include "ui/driving_risks/frmTornado.h"
#include "util/Errors.h"
#include "util/Trapped.h"
#include "util/modLocale.h"

namespace kestrel {

clsKestrelDll::clsKestrelDll(std::function<host::ApplicationPtr()> attach, Desktop& desktop,
                             ui::FormRunner& runner)
    : attach_(std::move(attach)), globals_(desktop), runner_(runner) {
    windows_.drivingRisks = [](modGlobals& globals, ui::FormRunner& shown) {
        ui::frmTornado window(globals);
        shown.ShowModal(window);
    };
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

void clsKestrelDll::Launch(const char* command) {
    decimalSeparator_ = ForceDecimalPoint(globals_.desktop);
    Trapped([&] {
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
