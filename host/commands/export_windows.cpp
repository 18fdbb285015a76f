#include "host/commands/export_windows.h"

#include "host/surroundings/translation.h"

namespace kelvane::host {

namespace {

// The row of the entry with this identity; 0 when the list has none.
int RowOf(const controls::Grid& grid, int entry) {
    for (int row = 1; row < grid.Rows(); ++row) {
        if (grid.RowData(row) == entry) return row;
    }
    return 0;
}

}  // namespace

void ExportWindows::ShowModal(platform::Window& window) {
    controls::Form& form = window.AsForm();
    form.Load();
    form.Activate();
    // A notice says that something could not be read: half a list is not what was asked for.
    if (!form.Notice().empty()) {
        mOpenedDetails = true;
        mTask.failed(form.Notice());
    } else if (auto* list = dynamic_cast<ui::frmPeriodItem*>(&form)) {
        Export(*list);
    } else if (auto* editor = dynamic_cast<ui::frmQCEdit*>(&form)) {
        mOpenedDetails = true;
        editor->Toolbar1.Click("Output");
    }
    mDone = mDone || dynamic_cast<ui::frmPeriodItem*>(&form) != nullptr;
    form.Unload();
}

platform::MessageAnswer ExportWindows::ShowMessage(const platform::Message& message) {
    if (!mDone) mTask.message(message.text);
    return message.buttons == platform::MessageButtons::Ok ? platform::MessageAnswer::Ok
                                                           : platform::MessageAnswer::No;
}

void ExportWindows::Export(ui::frmPeriodItem& list) {
    if (mTask.details) {
        OpenDetails(list, *mTask.details);
    } else {
        list.Toolbar1.Click("DataOut");
    }
}

void ExportWindows::OpenDetails(ui::frmPeriodItem& list, int entry) {
    controls::Grid& grid = list.GridPeriodItem;
    const std::string identity = std::to_string(entry);
    const int row = RowOf(grid, entry);
    if (row == 0) return mTask.failed(Told("there is no entry %1", {identity}));
    grid.MoveTo(row, ui::kAmountColumn);
    // Lines that can only be looked at have a button of their own.
    if (list.cmdRef.Visible()) {
        list.cmdRef.Press();
    } else {
        grid.PressReference();
    }
    if (!mOpenedDetails) mTask.failed(Told("entry %1 has no detail lines", {identity}));
}

}  // namespace kelvane::host
