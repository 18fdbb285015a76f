// ImportSheet: the rows of a table that is about to be imported, as the operator sees and corrects
// them, and what is wrong with each cell. Nothing is shown and nothing is written.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "entries/bulk/bulk_entry.h"
#include "entries/bulk/import_plan.h"
#include "entries/bulk/table_reading.h"
#include "entries/master_data.h"

namespace kelvane::ui {

class ImportSheet {
public:
    // Stands for an entry where lines belong to none that is there.
    static constexpr std::size_t kNoEntry = static_cast<std::size_t>(-1);

    // Begins with the rows that were read; `lines` is null where there are none.
    void Take(const entries::BulkTable& table, const entries::BulkTable* lines);
    // More rows of entries, behind those that are there; their numbers go on.
    void Append(const entries::BulkTable& table);

    const entries::BulkEntries& File() const { return mFile; }
    const std::vector<entries::BulkEntry>& Entries() const { return mFile.entries; }
    const std::vector<entries::BulkLine>& Lines(std::size_t entry) const;
    bool HasLines() const;
    bool HasOperations() const;

    // A cell as it is shown: by its column of the table of entries or of lines.
    std::string EntryText(std::size_t entry, int column) const;
    std::string LineText(std::size_t entry, std::size_t line, int column) const;
    // What the operator made of a cell; false when it was that already. A row number brings lines
    // to another entry.
    bool SetEntryText(std::size_t entry, int column, std::string_view text);
    bool SetLineText(std::size_t entry, std::size_t line, int column, std::string_view text);
    // A blank line of the entry, which gets a row number when it has none.
    void AddLine(std::size_t entry);
    void RemoveEntry(std::size_t entry);  // its lines as well
    void RemoveLine(std::size_t entry, std::size_t line);

    // Checks all rows against `masterData` and each other. Throws as entries::PlanImport().
    void Check(entries::MasterData& masterData, const entries::ImportProgress& progress);
    // Takes what was found elsewhere in place of what the last check found.
    void TakeFindings(const entries::ImportPlan& plan);

    // Rows in or below which something is wrong; lines without an entry count as a row.
    std::size_t RefusedRows() const { return mRefusedRows; }
    bool IsRefused(std::size_t entry) const;
    // What is wrong with a cell; with column 0 what is wrong with the row as a whole.
    std::vector<std::string> EntryReasons(std::size_t entry, int column) const;
    std::vector<std::string> LineReasons(std::size_t entry, std::size_t line, int column) const;

private:
    using Kind = entries::BulkTableKind;
    using Row = std::pair<Kind, int>;
    struct Reason {
        int column = 0;
        std::string text;
    };
    // A cell that could not be read, until the operator fills it.
    struct Unread {
        entries::Finding finding;
        std::string given;
    };
    using Cell = std::pair<Row, int>;

    void TakeUnread(Kind kind, const entries::BulkTable& table,
                    const std::function<int(int row)>& numberOf);
    void Rejoin();
    bool Forget(Kind kind, int row, int column, entries::ColumnSet& unread);
    std::string Given(Kind kind, int row, int column) const;
    void Find(Kind kind, int row, int column, const entries::Finding& finding);
    std::vector<std::string> Reasons(Kind kind, int row, int column) const;
    bool HasReasons(Kind kind, int row) const { return mReasons.contains({kind, row}); }
    void CountRefused();

    entries::BulkEntries mFile;
    std::map<Cell, Unread> mUnread;
    std::map<Row, std::vector<Reason>> mReasons;
    std::size_t mRefusedRows = 0;
};

}  // namespace kelvane::ui
