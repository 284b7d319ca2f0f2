#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/Desktop.h"
#include "refhost/engine/ReferenceHost.h"
#include "refhost/workbench/DocumentState.h"
#include "refhost/workbench/RecentFiles.h"
#include "ui/controls/Form.h"

namespace refhost {

/// The file behind the host's open plan: what opening, saving and closing ask and tell the user.
/// Nothing that was not saved is given up without a question.
class PlanDocument {
 public:
    PlanDocument(ReferenceHost& host, Settings& settings, kestrel::Desktop& desktop,
                 kestrel::ui::FormRunner& runner)
        : host_(host), desktop_(desktop), runner_(runner), recent_(settings) {}

    bool IsOpen() const { return host_.OpenPlan() != nullptr; }
    /// Empty for a plan that no plan file holds yet, such as one from a project file.
    const std::string& Path() const { return path_; }
    bool HasChanges();
    /// "Harbour crane* - Kestrel", the mark only with unsaved changes; "Kestrel" without a plan.
    std::string Title();
    RecentFiles& Recent() { return recent_; }
    /// Where a file about the plan is proposed: beside the plan, named after it, `extension` with
    /// its point.
    std::string PathBeside(const std::string& extension) const;

    /// Each answers whether it came to its end: not when the user cancels or the file cannot be
    /// read or written, which the user has been told then.
    ///@{
    bool Open(const std::string& path);
    bool OpenByDialog();
    bool Save();
    bool SaveAs();
    /// Saves or gives up unsaved changes, as the user chooses.
    bool MayClose();
    ///@}

 private:
    bool Load(const std::string& path);
    /// Another window or program may have written the file meanwhile: then the user decides.
    bool MayReplace(const std::string& path);
    bool Write(const std::string& path);
    void Tell(const std::string& text);

    ReferenceHost& host_;
    kestrel::Desktop& desktop_;
    kestrel::ui::FormRunner& runner_;
    RecentFiles recent_;
    std::string path_;
    std::string source_;        ///< that the plan was read from, project files included
    std::size_t fileHash_ = 0;  ///< of the file's bytes when it was last read or written
    std::optional<DocumentState> state_;
};

}  // namespace refhost
