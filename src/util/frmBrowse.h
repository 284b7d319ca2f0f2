#pragma once

#include <string>

#include "platform/Desktop.h"

namespace kestrel::ui {

/// The hidden form that holds the common file dialog. Fill in the fields, show one of the two
/// dialogs and read FileName.
class frmBrowse {
 public:
    explicit frmBrowse(Desktop& desktop) : desktop_(desktop) {}

    std::string DialogTitle;
    std::string DefaultExt;  ///< appended to a name typed without one
    std::string Filter;      ///< descriptions and patterns in turn: "Text (*.txt)|*.txt"
    std::string InitDir;     ///< empty: the system's choice
    std::string FileName;    ///< the chosen path; empty after a cancelled dialog

    void ShowOpen() { FileName = desktop_.OpenFile(Dialog()); }
    void ShowSave() { FileName = desktop_.SaveFile(Dialog()); }

 private:
    FileDialog Dialog() const;

    Desktop& desktop_;
};

}  // namespace kestrel::ui
