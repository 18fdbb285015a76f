#include "bench/row_leaving.h"

#include <stdexcept>

#include "data/login_context.h"

namespace kelvane::bench {

using ui::frmPeriodItem;

double Leave(frmPeriodItem& form, const EntryWindows& windows, int next) {
    const int messages = windows.messages;
    const double start = Now();
    const bool left = form.GridPeriodItem.MoveTo(next, ui::kDigestColumn);
    const double seconds = Now() - start;
    if (!left || windows.messages != messages) throw std::runtime_error("the row was not saved");
    return seconds;
}

int PlainRow(const frmPeriodItem& form) {
    const controls::Grid& grid = form.GridPeriodItem;
    int row = 1;
    while (form.ElementDetailFlag(row) != 0 || grid.IsLocked(row, ui::kDigestColumn)) ++row;
    return row;
}

void SetAmount(frmPeriodItem& form, int row, std::int64_t amount) {
    form.GridPeriodItem.SetText(row, ui::kAmountColumn, std::to_string(amount) + ".00");
}

double LeaveChanged(frmPeriodItem& form, const EntryWindows& windows, int row,
                    std::int64_t amount) {
    form.GridPeriodItem.SetRow(row);
    SetAmount(form, row, amount);
    return Leave(form, windows, row + 1);
}

std::string ElementCode(const std::string& elementName) {
    platform::StatementText statement(
        "select cElementCode from PM_ItemElement where cElementName = ");
    statement.Quoted(elementName);
    return data::gConn->OpenRecordSet(statement)->Field(0).ToText();
}

}  // namespace kelvane::bench
