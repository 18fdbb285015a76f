// What the measurements of leaving a row do in the entry list.
#pragma once

#include <cstdint>
#include <string>

#include "bench/entry_windows.h"

namespace kelvane::bench {

// Leaves the current row for `next`; the seconds it took. Throws unless the row was saved without
// a message.
double Leave(ui::frmPeriodItem& form, const EntryWindows& windows, int next);

// The first row that has no detail lines and is not locked.
int PlainRow(const ui::frmPeriodItem& form);

void SetAmount(ui::frmPeriodItem& form, int row, std::int64_t amount);

// Goes to `row` and leaves it with another amount.
double LeaveChanged(ui::frmPeriodItem& form, const EntryWindows& windows, int row,
                    std::int64_t amount);

// The code of the element with that name, in the account of the login.
std::string ElementCode(const std::string& elementName);

}  // namespace kelvane::bench
