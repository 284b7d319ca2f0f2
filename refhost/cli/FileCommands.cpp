#include <iostream>
#include <utility>

#include "base/Errors.h"
#include "refhost/cli/Commands.h"
#include "refhost/cli/LinkedAddIn.h"
#include "refhost/cli/Output.h"
#include "refhost/cli/Report.h"
#include "refhost/cli/Session.h"
#include "refhost/files/Csv.h"
#include "refhost/files/RegisterTable.h"
#include "refhost/results/FactorTracker.h"
#include "store/RegisterDocument.h"
#include "store/TaskField.h"
#include "ui/editor/frmEditRiskFactors.h"

namespace refhost {
namespace {

using kestrel::DataError;
using kestrel::ui::frmEditRiskFactors;

/// Commands trap a file that cannot be read and end quietly; here its reason is wanted.
void RefuseUnreadable(CliDesktop& desktop, const std::string& path) {
    const std::string bytes = desktop.ReadFile(path);
    try {
        kestrel::ui::ReadFactors(desktop.ParseXml(bytes));
    } catch (const DataError& error) {
        throw DataError(path + ": " + error.what());
    }
}

void RefuseEmptyRegister(Session& session) {
    if (session.Plan().GetText(kestrel::kRegisterText).empty())
        throw DataError(session.PlanPath() + " holds no risk factors; there is nothing to save.");
}

void FailWithMessages(const CliDesktop& desktop) {
    if (!desktop.Messages().empty()) throw DataError(desktop.Messages().front());
}

/// Opens the editor on the plan and presses a button, then OK or Cancel.
void RunEditor(Session& session, kestrel::ui::Button frmEditRiskFactors::*button, bool confirm) {
    CliDesktop& desktop = session.Desktop();
    desktop.collects = true;
    // The editor asks for a file by itself when the plan has no factors: not here.
    const std::string fileToOpen = std::exchange(desktop.fileToOpen, {});
    LinkedAddIn addIn(session, [&](kestrel::ui::Form& form) {
        auto& editor = dynamic_cast<frmEditRiskFactors&>(form);
        desktop.fileToOpen = fileToOpen;
        (editor.*button).Press();
        if (!desktop.Messages().empty() || !confirm) return;
        editor.cmdOKRisk.Press();
    });
    addIn.Dll().LaunchEdit();
    FailWithMessages(desktop);
}

void LoadTemplate(Session& session, const std::string& path) {
    RefuseUnreadable(session.Desktop(), path);
    session.Desktop().fileToOpen = path;
    RunEditor(session, &frmEditRiskFactors::cmdLoadFile, true);
}

void SaveTemplate(Session& session, const std::string& path) {
    RefuseEmptyRegister(session);
    session.Desktop().fileToSave = path;
    RunEditor(session, &frmEditRiskFactors::cmdSave, false);
    if (session.Desktop().FilesWritten() == 0)
        throw DataError("'" + path +
                        "' could not be written; check the folder and its permissions.");
}

/// The register with the sensitivities of those factors that stay as they are called, so that a
/// table that says what the plan says changes nothing. Tasks name factors by number: a number that
/// some task carries must go on meaning the same factor.
void KeepMeaning(Session& session, const FactorList& factors) {
    const FactorTracker before(session.Host(), session.Desktop());
    for (std::size_t i = 0; i < before.Register().size(); ++i) {
        const kestrel::clsRiskFactor& old = *before.Register()[i];
        if (i < factors.size() && factors[i]->strDescription == old.strDescription) {
            factors[i]->dblDurSens = old.dblDurSens;
            factors[i]->m_dCostSens = old.m_dCostSens;
        } else if (before.Carried()[i]) {
            throw DataError("Tasks carry risk factor " + old.strID + " - " + old.strDescription +
                            ", which is not number " + old.strID +
                            " of the table; keep it in its place, or take it from the tasks.");
        }
    }
}

void LoadTable(Session& session, const std::string& path) {
    RegisterTableReading reading;
    try {
        reading = ReadRegisterTable(session.Desktop().ReadFile(path));
    } catch (const DataError& error) {
        throw DataError(path + ": " + error.what());
    }
    if (!reading.complaints.empty()) {
        for (const std::string& complaint : reading.complaints)
            std::cerr << path << ": " << complaint << "\n";
        throw DataError(path + " cannot be read (" + std::to_string(reading.complaints.size()) +
                        " complaints); nothing is changed.");
    }
    KeepMeaning(session, reading.factors);
    kestrel::EnsureTextField(session.Plan(), kestrel::kRiskFactorsField);
    kestrel::SaveRegisterToPlan(reading.factors, session.Plan());
}

void ListRegister(Session& session) {
    const auto factors = FactorTracker::ReadRegister(session.Host(), session.Desktop());
    std::cout << (factors.empty() ? "The plan holds no risk factors.\n" : RegisterTable(factors));
}

void TellNotWritten() {
    std::cerr << "The plan is not written; name a file with -o to keep this.\n";
}

}  // namespace

void Factors(const Arguments& arguments) {
    Session session(arguments.Positional(0));
    if (!arguments.Has("--load") && !arguments.Has("--save")) {
        if (arguments.Has("-o")) throw UsageError("-o needs --load, or there is nothing to write");
        ListRegister(session);
        return;
    }
    if (const auto path = arguments.Option("--load"))
        IsTableFile(*path) ? LoadTable(session, *path) : LoadTemplate(session, *path);
    if (const auto path = arguments.Option("--save")) {
        if (IsTableFile(*path))
            WriteOutput(*path, RegisterTableText(
                                   FactorTracker::ReadRegister(session.Host(), session.Desktop()),
                                   SeparatorFor(*path)));
        else
            SaveTemplate(session, *path);
    }
    if (const auto target = arguments.Option("-o"))
        session.SavePlan(*target);
    else if (arguments.Has("--load") && !arguments.Has("--save"))
        TellNotWritten();
}

void Save(const Arguments& arguments) {
    Session session(arguments.Positional(0));
    RefuseEmptyRegister(session);
    session.Desktop().fileToSave = arguments.Positional(1);
    MakeAddIn(session)->Save();
    if (session.Desktop().FilesWritten() == 0)
        throw DataError(session.PlanPath() +
                        ": its register is no risk factors document; nothing was saved.");
}

void Load(const Arguments& arguments) {
    Session session(arguments.Positional(0));
    CliDesktop& desktop = session.Desktop();
    RefuseUnreadable(desktop, arguments.Positional(1));
    desktop.fileToOpen = arguments.Positional(1);
    desktop.answerYes = arguments.Has("--yes");
    desktop.collects = true;
    MakeAddIn(session)->Load();
    if (!desktop.Messages().empty())
        throw DataError(desktop.Messages().back() +
                        (desktop.QuestionsRefused() > 0 ? ": not confirmed; add --yes." : ""));
    if (const auto target = arguments.Option("-o"))
        session.SavePlan(*target);
    else
        TellNotWritten();
}

}  // namespace refhost
