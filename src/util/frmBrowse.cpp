#include "util/frmBrowse.h"

#include "util/modToolBox.h"

namespace kestrel::ui {

FileDialog frmBrowse::Dialog() const {
    FileDialog dialog;
    dialog.title = DialogTitle;
    dialog.defaultExtension = DefaultExt;
    dialog.initialFolder = InitDir;
    const int pieces = CountListItems(Filter, "|");
    for (int i = 1; i + 1 <= pieces; i += 2)
        dialog.filters.emplace_back(GetListItem(Filter, i, "|"), GetListItem(Filter, i + 1, "|"));
    return dialog;
}

}  // namespace kestrel::ui
