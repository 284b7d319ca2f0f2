#include <utility>

#include "base/Errors.h"
#include "refhost/cli/Commands.h"
#include "refhost/cli/LinkedAddIn.h"
#include "refhost/cli/Report.h"
#include "refhost/cli/Session.h"
#include "refhost/files/Csv.h"
#include "refhost/results/FactorTracker.h"
#include "refhost/results/RegisterExchange.h"
#include "store/RegisterDocument.h"
#include "ui/editor/frmEditRiskFactors.h"

namespace refhost {
namespace {

using kestrel::DataError;
using kestrel::ui::frmEditRiskFactors;

/// Commands trap a file that cannot be read and end quietly; here its reason is wanted.
void RefuseUnreadable(CliDesktop& desktop, const std::string& path) {
    const std::string bytes = desktop.ReadFile(path);  // a failure names the path itself
    try {
        kestrel::FactorsOf(desktop.ParseXml(bytes));
    } catch (const DataError& error) {
        throw DataError(InputName(path) + ": " + error.what());
    }
}

void RefuseEmptyRegister(Session& session) {
    if (session.Plan().GetText(kestrel::kRegisterText).empty())
        throw DataError(session.PlanName() + " holds no risk factors; there is nothing to save.");
}

void FailWithMessages(const CliDesktop& desktop) {
    if (!desktop.Messages().empty()) throw DataError(desktop.Messages().front());
}

/// Opens the editor on the plan and presses a button, then OK or Cancel.
void RunEditor(Session& session, kestrel::ui::Button frmEditRiskFactors::*button, bool confirm) {
    CliDesktop& desktop = session.Desktop();
    desktop.collects = true;
    // The editor looks for a file by itself when the plan has no factors: not here.
    session.Settings().ignoresDefaultFile = true;
    const std::string fileToOpen = std::exchange(desktop.fileToOpen, {});
    bool opened = false;
    LinkedAddIn addIn(session, [&](kestrel::ui::Form& form) {
        auto& editor = dynamic_cast<frmEditRiskFactors&>(form);
        opened = true;
        desktop.fileToOpen = fileToOpen;
        (editor.*button).Press();
        if (!desktop.Messages().empty() || !confirm) return;
        editor.cmdOKRisk.Press();
    });
    addIn.Dll().LaunchEdit();
    FailWithMessages(desktop);
    if (!opened)
        throw DataError(session.PlanName() +
                        ": its register cannot be read; 'kestrel check' tells why.");
}

void LoadTemplate(Session& session, const std::string& path) {
    RefuseUnreadable(session.Desktop(), path);
    session.Desktop().fileToOpen = path;
    RunEditor(session, &frmEditRiskFactors::cmdLoadFile, true);
}

void SaveTemplate(Session& session, const std::string& path, Outputs::File* output) {
    RefuseEmptyRegister(session);
    session.Desktop().fileToSave = path;
    session.Desktop().output = output;
    RunEditor(session, &frmEditRiskFactors::cmdSave, false);
    if (session.Desktop().FilesWritten() == 0)
        throw DataError(session.PlanName() +
                        ": its register cannot be written as a template; "
                        "'kestrel check' tells why.");
}

void SaveRegister(Session& session, const std::string& path, Outputs::File& output) {
    if (!IsTableFile(path)) return SaveTemplate(session, path, &output);
    output.Write(RegisterAsTable(session.Host(), session.Desktop(), SeparatorFor(path)));
}

void LoadTable(Session& session, const std::string& path) {
    std::vector<std::string> complaints;
    try {
        complaints = ReplaceRegisterByTable(session.Host(), session.Desktop(),
                                            session.Desktop().ReadFile(path));
    } catch (const DataError& error) {
        throw DataError(path + ": " + error.what());
    }
    if (complaints.empty()) return;
    for (const std::string& complaint : complaints) TellError(path + ": " + complaint);
    throw DataError(path + " cannot be read (" + std::to_string(complaints.size()) +
                    " complaints); nothing is changed.");
}

std::string RegisterText(Session& session) {
    const auto factors = FactorTracker::ReadRegister(session.Host(), session.Desktop());
    return factors.empty() ? "The plan holds no risk factors.\n" : RegisterTable(factors);
}

void TellNotWritten() { TellError("The plan is not written; name a file with -o to keep this."); }

}  // namespace

void Factors(const Arguments& arguments, Outputs& outputs) {
    const bool loads = arguments.Has("--load"), saves = arguments.Has("--save");
    if (arguments.Has("-o") && !loads && !saves)
        throw UsageError("-o needs --load, or there is nothing to write");
    Session session(arguments.Word("PLAN"), outputs);
    if (!loads && !saves) return outputs.Tell(RegisterText(session));
    if (loads) {
        const std::string& path = arguments.Word("--load");
        IsTableFile(path) ? LoadTable(session, path) : LoadTemplate(session, path);
    }
    if (saves) SaveRegister(session, arguments.Word("--save"), *outputs.Find("--save"));
    if (auto* plan = outputs.Find("-o"))
        session.SavePlan(*plan);
    else if (loads && !saves)
        TellNotWritten();
}

void Save(const Arguments& arguments, Outputs& outputs) {
    Session session(arguments.Word("PLAN"), outputs);
    RefuseEmptyRegister(session);
    session.Desktop().fileToSave = arguments.Word("FILE");
    session.Desktop().output = outputs.Find("FILE");
    MakeAddIn(session)->Save();
    if (session.Desktop().FilesWritten() == 0)
        throw DataError(session.PlanName() +
                        ": its register is no risk factors document; nothing was saved.");
}

void Load(const Arguments& arguments, Outputs& outputs) {
    Session session(arguments.Word("PLAN"), outputs);
    CliDesktop& desktop = session.Desktop();
    RefuseUnreadable(desktop, arguments.Word("FILE"));
    desktop.fileToOpen = arguments.Word("FILE");
    desktop.answerYes = arguments.Has("--yes");
    desktop.collects = true;
    MakeAddIn(session)->Load();
    if (!desktop.Messages().empty())
        throw DataError(desktop.Messages().back() +
                        (desktop.QuestionsRefused() > 0 ? ": not confirmed; add --yes." : ""));
    if (auto* plan = outputs.Find("-o"))
        session.SavePlan(*plan);
    else
        TellNotWritten();
}

}  // namespace refhost
