#include "refhost/workbench/PlanDocument.h"

#include <utility>

#include "base/Errors.h"
#include "base/OneLine.h"
#include "base/Text.h"
#include "refhost/files/PlanFile.h"
#include "refhost/gantt/PlanFigures.h"
#include "refhost/workbench/frmSaveChanges.h"

namespace refhost {
namespace {

using kestrel::FileDialog;

constexpr const char* kProgram = "Kestrel";

/// Runs what may meet unreadable data; answers whether it did not.
bool TellsFailures(kestrel::Desktop& desktop, const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const kestrel::DataError& error) {
        desktop.ShowMessage(kestrel::OneLine(error.what()), kestrel::MessageButtons::Ok, kProgram);
        return false;
    }
}

bool IsPlanFile(const std::string& path) {
    const std::size_t point = path.find_last_of("./\\");
    if (point == std::string::npos) return false;
    return kestrel::Lowered(path.substr(point)) == ".kplan";
}

std::size_t Hash(std::string_view bytes) { return std::hash<std::string_view>()(bytes); }

/// What the planner is told about an imported project file; empty when there is nothing to tell.
std::string ImportText(const ImportReport& report) {
    if (report.leftOut.empty() && report.dates.compared == 0 && report.dates.failure.empty())
        return {};
    std::string text = "Compared with the project file: " + DatesLine(report.dates) + ".\n";
    if (const std::string money = MoneyLine(report.money); !money.empty())
        text += "In the project file, " + money + ".\n";
    for (const bool moving : {true, false}) {
        bool first = true;
        for (const LeftOut& kind : report.leftOut) {
            if (kind.movesFigures != moving) continue;
            if (std::exchange(first, false))
                text += moving ? "\nCan move dates or money:" : "\nNot carried over:";
            text += "\n" + std::to_string(kind.count) + " x " + kind.what;
        }
        if (!first) text += "\n";
    }
    return text;
}

}  // namespace

bool PlanDocument::HasChanges() {
    return IsOpen() && state_ && state_->HasChanges(*host_.OpenPlan());
}

std::string PlanDocument::Title() {
    if (!IsOpen()) return kProgram;
    return host_.OpenPlan()->Name() + (HasChanges() ? "*" : "") + " - " + kProgram;
}

void PlanDocument::Tell(const std::string& text) {
    desktop_.ShowMessage(text, kestrel::MessageButtons::Ok, kProgram);
}

bool PlanDocument::OpenByDialog() {
    FileDialog dialog;
    dialog.title = "Open Plan";
    dialog.filters = {{"Plans and projects (*.kplan; *.xml)", "*.kplan;*.xml"},
                      {"Plans (*.kplan)", "*.kplan"},
                      {"Projects (*.xml)", "*.xml"},
                      {"All Files (*.*)", "*.*"}};
    const std::string path = desktop_.OpenFile(dialog);
    return !path.empty() && Open(path);
}

bool PlanDocument::Open(const std::string& path) { return MayClose() && Load(path); }

bool PlanDocument::Load(const std::string& path) {
    LoadedPlan loaded;
    std::shared_ptr<HostPlan> plan;
    std::size_t hash = 0;
    const bool read = TellsFailures(desktop_, [&] {
        const std::string bytes = desktop_.ReadFile(path);
        hash = Hash(bytes);
        loaded = ParsePlan(desktop_, bytes, path);
        try {
            plan = std::make_shared<HostPlan>(std::move(loaded.plan));
            const PlanFigures datable(*plan);
            static_cast<void>(datable);  // a plan that cannot be shown is not opened
        } catch (const kestrel::DataError& error) {
            throw kestrel::DataError(path + ": " + error.what());
        }
    });
    if (!read) {
        recent_.Remove(path);
        return false;
    }
    host_.Open(plan);
    source_ = path;
    fileHash_ = hash;
    path_ = IsPlanFile(path) ? path : std::string();
    state_.emplace(*plan);
    TellsFailures(desktop_, [&] { recent_.Add(path); });
    if (!loaded.imported) return true;
    if (const std::string text = ImportText(*loaded.imported); !text.empty()) Tell(text);
    return true;
}

bool PlanDocument::Save() { return path_.empty() ? SaveAs() : Write(path_); }

bool PlanDocument::SaveAs() {
    if (!IsOpen()) return false;
    FileDialog dialog;
    dialog.title = "Save Plan As";
    dialog.defaultExtension = "kplan";
    dialog.initialFile = path_.empty() ? PathBeside(".kplan") : path_;
    dialog.filters = {{"Plans (*.kplan)", "*.kplan"}, {"All Files (*.*)", "*.*"}};
    const std::string path = desktop_.SaveFile(dialog);
    return !path.empty() && Write(path);
}

std::string PlanDocument::PathBeside(const std::string& extension) const {
    const std::size_t point = source_.find_last_of("./\\");
    return (point == std::string::npos || source_[point] != '.' ? source_
                                                                : source_.substr(0, point)) +
           extension;
}

bool PlanDocument::MayReplace(const std::string& path) {
    if (path != path_ || !desktop_.FileIsThere(path)) return true;
    try {
        if (Hash(desktop_.ReadFile(path)) == fileHash_) return true;
    } catch (const kestrel::DataError&) {
        // What cannot be read is not what was opened.
    }
    return desktop_.ShowMessage("The file '" + path +
                                    "' has been changed by another window or program since this "
                                    "plan was opened or saved. Replace it with this plan?",
                                kestrel::MessageButtons::YesNo,
                                kProgram) == kestrel::MessageAnswer::Yes;
}

bool PlanDocument::Write(const std::string& path) {
    if (!IsOpen() || !MayReplace(path)) return false;
    const LivePlan& plan = *host_.OpenPlan();
    const std::string bytes = WritePlan(plan.Snapshot());
    if (!TellsFailures(desktop_, [&] { desktop_.WriteFile(path, bytes); })) return false;
    path_ = source_ = path;
    fileHash_ = Hash(bytes);
    state_->Saved(plan);
    TellsFailures(desktop_, [&] { recent_.Add(path); });
    return true;
}

bool PlanDocument::MayClose() {
    if (!HasChanges()) return true;
    frmSaveChanges question(host_.OpenPlan()->Name());
    runner_.ShowModal(question);
    if (question.Result() == frmSaveChanges::Answer::Save) return Save();
    return question.Result() == frmSaveChanges::Answer::Discard;
}

}  // namespace refhost
