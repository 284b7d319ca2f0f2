#include "refhost/workbench/ReportWriter.h"

#include <algorithm>
#include <thread>

#include "refhost/results/ReportRun.h"
#include "refhost/workbench/WorkProgress.h"
#include "refhost/workbench/frmRiskReportAssumptions.h"
#include "util/modeHelp.h"

namespace refhost {
namespace {

std::string AskForFile(kestrel::Desktop& desktop, const PlanDocument& document) {
    kestrel::FileDialog dialog;
    dialog.title = "Save Report As";
    dialog.defaultExtension = "html";
    dialog.initialFile = document.PathBeside(".html");
    dialog.filters = {{"Pages (*.html)", "*.html"}, {"All Files (*.*)", "*.*"}};
    return desktop.SaveFile(dialog);
}

std::optional<std::string> MakePage(const Workbench::Parts& parts,
                                    const ReportAssumptions& assumptions) {
    const PlanData plan = parts.host.OpenPlan()->Snapshot();
    PriorityQuestion question;
    question.settings = plan.analysis;
    question.threads = std::max(1u, std::thread::hardware_concurrency());
    WorkProgress progress(parts.window, "Report");
    return MakeReportPage(plan, question, assumptions, parts.desktop, parts.threadDesktops,
                          [&](const char* what, std::int32_t done, std::int32_t of) {
                              return progress.Show(what, done, of);
                          });
}

}  // namespace

void WriteReportByDialog(const Workbench::Parts& parts, const PlanDocument& document) {
    frmRiskReportAssumptions ask(
        [&] { kestrel::ShowHelpOrTell(parts.host, parts.desktop, kestrel::kHelpDrivingRisks); });
    parts.runner.ShowModal(ask);
    if (!ask.Result()) return;
    const std::string path = AskForFile(parts.desktop, document);
    if (path.empty()) return;
    const auto page = MakePage(parts, *ask.Result());
    if (page) parts.desktop.WriteFile(path, *page);
    parts.desktop.ShowMessage(page ? "The report is in '" + path + "'; a browser shows it."
                                   : "The analyses were cancelled; no report is written.",
                              kestrel::MessageButtons::Ok, "Kestrel");
}

}  // namespace refhost
