#include "ui/windows.h"

#include "ui/check/check_window.h"
#include "ui/detail_editor/detail_editor.h"
#include "ui/entry_list/entry_list.h"
#include "ui/find/find_dialog.h"
#include "ui/import/import_window.h"
#include "ui/summary/summary_window.h"

namespace kelvane::ui {

void ConnectWindows() {
    frmPeriodItem& list = GetPeriodItemForm();
    list.EditDetails = [](const DetailRequest& request) {
        return GetDetailEditorForm().Edit(request);
    };
    list.AskWhatToFind = [] { return GetFindForm().Ask(); };
    list.ImportEntries = [](const ImportRequest& request) { return frmImport().Import(request); };
    list.CheckEntries = [](const IsListed& isListed) { return GetCheckForm().Ask(isListed); };
    list.SummarizeEntries = [](const IsListed& isListed) { return GetSummaryForm().Ask(isListed); };
}

}  // namespace kelvane::ui
