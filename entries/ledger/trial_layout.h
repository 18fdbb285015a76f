// In which columns a trial balance has its amounts: ledgers write them in one, with or without a
// column that says on which side they stand, or in two.
#pragma once

#include <optional>
#include <string>

#include "entries/bulk/table_shape.h"
#include "entries/rules.h"
#include "platform/table.h"

namespace kelvane::entries {

enum TrialColumn {
    kTrialAccountColumn = 1,
    kTrialNameColumn,
    kTrialDirectionColumn,
    kTrialAmountColumn,
    kTrialDebitColumn,
    kTrialCreditColumn,
    kTrialColumnCount,
};

// Of a trial balance whose columns are not known yet: has the titles that any layout begins with.
TableShape AnyTrialShape();

// The shape of the trial balance with these titles: it has only the amounts that are to be read.
struct TrialLayout {
    TableShape shape;
    std::optional<Finding> refusal;  // two of the layouts that may be meant, none of them whole
};

TrialLayout TrialLayoutOf(const platform::TableRow& titles);

}  // namespace kelvane::entries
