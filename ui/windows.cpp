#include "ui/windows.h"

#include "ui/detail_editor/detail_editor.h"
#include "ui/entry_list/entry_list.h"
#include "ui/find/find_dialog.h"
#include "ui/import/import_window.h"

namespace kelvane::ui {

void ConnectWindows() {
    frmPeriodItem& list = GetPeriodItemForm();
    list.EditDetails = [](const DetailRequest& request) {
        return GetDetailEditorForm().Edit(request);
    };
    list.AskWhatToFind = [] { return GetFindForm().Ask(); };
    list.ImportEntries = [](const ImportRequest& request) { return frmImport().Import(request); };
}

}  // namespace kelvane::ui
