// Reads the tables that are to be imported, and asks the operator what only he can say: what
// becomes of hidden rows, and which column is which.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "entries/bulk/account_choices.h"
#include "entries/bulk/account_titles.h"
#include "entries/bulk/table_reading.h"
#include "entries/bulk/table_shape.h"
#include "entries/bulk/workbook_sheets.h"
#include "platform/table.h"
#include "ui/import/columns_dialog.h"

namespace kelvane::ui {

struct ImportTables {
    entries::BulkTable table;
    std::optional<entries::BulkTable> lines;
    entries::TableTotals totals;
};

class ImportReading {
public:
    // `isCopied`: without titles its columns are those of the list, in their order.
    ImportReading(platform::TableReader& reader, entries::AccountTitles titles, bool isCopied)
        : mReader(reader), mTitles(std::move(titles)), mIsCopied(isCopied) {}

    // `byHand`: which column is which is asked though the titles say it. Nothing when the operator
    // cancelled. Throws platform::TableRefused.
    std::optional<ImportTables> Read(bool byHand);

private:
    std::optional<ImportTables> ReadAll(bool byHand, entries::HiddenRows hidden);
    std::optional<entries::BulkTable> ReadTable(const entries::TableShape& shape,
                                                entries::TableReading how, entries::BulkTable table,
                                                bool byHand);
    std::optional<ChosenColumns> FindColumns(const entries::TableShape& shape,
                                             const entries::BulkTable& table, bool byHand,
                                             const std::optional<ChosenColumns>& known);
    std::vector<platform::TableRow> FirstRows(std::size_t sheet);

    platform::TableReader& mReader;
    entries::AccountTitles mTitles;
    entries::AccountProposals mProposals;
    bool mIsCopied;
    // Answers that are not asked for twice.
    std::optional<ChosenColumns> mColumns;
    std::optional<ChosenColumns> mLineColumns;
};

}  // namespace kelvane::ui
