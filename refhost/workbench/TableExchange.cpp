#include "refhost/workbench/TableExchange.h"

#include "base/Errors.h"
#include "base/OneLine.h"
#include "refhost/files/Csv.h"
#include "refhost/results/RegisterExchange.h"
#include "store/RegisterDocument.h"

namespace refhost {
namespace {

constexpr std::size_t kMostComplaints = 12;  ///< that a message box has room for

kestrel::FileDialog TableDialog(const char* title) {
    kestrel::FileDialog dialog;
    dialog.title = title;
    dialog.defaultExtension = "csv";
    dialog.filters = {{"Tables (*.csv; *.tsv)", "*.csv;*.tsv"}, {"All Files (*.*)", "*.*"}};
    return dialog;
}

std::string ComplaintText(const std::string& path, const std::vector<std::string>& complaints) {
    std::string text = "'" + path + "' is not imported; nothing is changed.\n";
    for (std::size_t i = 0; i < complaints.size() && i < kMostComplaints; ++i)
        text += "\n" + kestrel::OneLine(complaints[i]);
    if (complaints.size() > kMostComplaints)
        text += "\nand " + std::to_string(complaints.size() - kMostComplaints) + " more";
    return text;
}

bool MayReplace(const Workbench::Parts& parts, const std::string& path) {
    if (parts.host.OpenPlan()->GetText(kestrel::kRegisterText).empty()) return true;
    return parts.desktop.ShowMessage("Replace the plan's risk factors by those in '" + path + "'?",
                                     kestrel::MessageButtons::YesNo,
                                     "Kestrel") == kestrel::MessageAnswer::Yes;
}

}  // namespace

void ImportTableByDialog(const Workbench::Parts& parts) {
    const std::string path = parts.desktop.OpenFile(TableDialog("Import Table"));
    if (path.empty()) return;
    const std::string bytes = parts.desktop.ReadFile(path);  // a failure names the path itself
    if (!MayReplace(parts, path)) return;
    std::vector<std::string> complaints;
    try {
        complaints = ReplaceRegisterByTable(parts.host, parts.desktop, bytes);
    } catch (const kestrel::DataError& error) {
        complaints = {error.what()};
    }
    if (!complaints.empty())
        parts.desktop.ShowMessage(ComplaintText(path, complaints), kestrel::MessageButtons::Ok,
                                  "Kestrel");
}

void ExportTableByDialog(const Workbench::Parts& parts, const PlanDocument& document) {
    kestrel::FileDialog dialog = TableDialog("Export Table");
    dialog.initialFile = document.PathBeside("-risks.csv");
    const std::string path = parts.desktop.SaveFile(dialog);
    if (path.empty()) return;
    parts.desktop.WriteFile(path, RegisterAsTable(parts.host, parts.desktop, SeparatorFor(path)));
}

}  // namespace refhost
