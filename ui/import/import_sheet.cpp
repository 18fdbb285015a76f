#include "ui/import/import_sheet.h"

#include <algorithm>
#include <iterator>

#include "data/date_text.h"
#include "data/text_conversion.h"
#include "ui/common/findings.h"
#include "ui/import/sheet_cells.h"

namespace kelvane::ui {

using entries::BulkEntry;
using entries::BulkLine;
using entries::BulkTable;
using entries::ColumnSet;

namespace {

// The one that stands for the table's own column; 0 for none.
int ColumnOf(const BulkTable& table, int tableColumn) {
    int column = 0;
    for (std::size_t at = 0; at < table.places.size(); ++at) {
        if (table.places[at].column == tableColumn) column = static_cast<int>(at);
    }
    return tableColumn == 0 ? 0 : column;
}

}  // namespace

void ImportSheet::Take(const BulkTable& table, const BulkTable* lines) {
    *this = {};
    mFile =
        entries::JoinRows(entries::EntriesOf(table),
                          lines == nullptr ? std::vector<BulkLine>() : entries::LinesOf(*lines));
    const auto same = [](int row) { return row; };
    TakeUnread(Kind::Entries, table, same);
    if (lines != nullptr) TakeUnread(Kind::Lines, *lines, same);
}

void ImportSheet::Append(const BulkTable& table) {
    int last = 0;
    for (const BulkEntry& entry : mFile.entries) last = std::max(last, entry.row);
    std::map<int, int> numbers;
    for (BulkEntry& entry : entries::EntriesOf(table)) {
        numbers[entry.row] = ++last;
        entry.row = last;
        mFile.entries.push_back(std::move(entry));
    }
    TakeUnread(Kind::Entries, table, [&](int row) { return numbers[row]; });
    Rejoin();
}

void ImportSheet::TakeUnread(Kind kind, const BulkTable& table,
                             const std::function<int(int row)>& numberOf) {
    for (const entries::PlacedFinding& found : table.findings) {
        const int column = ColumnOf(table, found.column);
        mUnread.insert_or_assign(Cell({kind, numberOf(found.row)}, column),
                                 Unread{found.finding, found.given});
    }
    mFile.isRefused = !mUnread.empty();
}

void ImportSheet::Rejoin() {
    std::vector<BulkLine> lines = std::move(mFile.strayLines);
    for (BulkEntry& entry : mFile.entries) {
        std::move(entry.lines.begin(), entry.lines.end(), std::back_inserter(lines));
        entry.lines.clear();
    }
    std::ranges::sort(lines, {}, &BulkLine::row);
    mFile = entries::JoinRows(std::move(mFile.entries), std::move(lines));
    mFile.isRefused = !mUnread.empty();
}

const std::vector<BulkLine>& ImportSheet::Lines(std::size_t entry) const {
    return entry == kNoEntry ? mFile.strayLines : mFile.entries.at(entry).lines;
}

bool ImportSheet::HasLines() const {
    return !mFile.strayLines.empty() ||
           std::ranges::any_of(mFile.entries, [](const auto& each) { return !each.lines.empty(); });
}

bool ImportSheet::HasOperations() const {
    return std::ranges::any_of(mFile.entries, [](const BulkEntry& each) {
        return !each.operation.empty() || !each.identity.empty();
    });
}

std::string ImportSheet::Given(Kind kind, int row, int column) const {
    const auto unread = mUnread.find(Cell({kind, row}, column));
    return unread == mUnread.end() ? std::string() : unread->second.given;
}

std::string ImportSheet::EntryText(std::size_t entry, int column) const {
    const BulkEntry& of = mFile.entries.at(entry);
    if (of.unread.Has(column)) return Given(Kind::Entries, of.row, column);
    const std::string* cell = CellOf(of, column);
    if (cell == nullptr) return {};
    return column == entries::kAmountColumn ? ShownAmount(*cell) : *cell;
}

std::string ImportSheet::LineText(std::size_t entry, std::size_t line, int column) const {
    const BulkLine& of = Lines(entry).at(line);
    if (of.unread.Has(column)) return Given(Kind::Lines, of.row, column);
    const std::string* cell = CellOf(of, column);
    return cell == nullptr ? std::string() : *cell;
}

// True when the cell was one that could not be read.
bool ImportSheet::Forget(Kind kind, int row, int column, ColumnSet& unread) {
    const bool known = unread.Has(column);
    unread.Remove(column);
    mUnread.erase(Cell({kind, row}, column));
    mFile.isRefused = !mUnread.empty();
    return known;
}

bool ImportSheet::SetEntryText(std::size_t entry, int column, std::string_view text) {
    BulkEntry& of = mFile.entries.at(entry);
    std::string* cell = CellOf(of, column);
    if (cell == nullptr || text == EntryText(entry, column)) return false;
    Forget(Kind::Entries, of.row, column, of.unread);
    if (column == entries::kAmountColumn) {
        *cell = PlainAmount(text);
    } else {
        *cell = text;
    }
    if (column == entries::kDateColumn && data::CheckDateText(*cell)) {
        *cell = data::DateTextToDate(*cell).DateText('-');
    }
    if (column == entries::kRowNumberColumn) Rejoin();
    return true;
}

bool ImportSheet::SetLineText(std::size_t entry, std::size_t line, int column,
                              std::string_view text) {
    auto& lines = entry == kNoEntry ? mFile.strayLines : mFile.entries.at(entry).lines;
    BulkLine& of = lines.at(line);
    std::string* cell = CellOf(of, column);
    if (cell == nullptr || text == LineText(entry, line, column)) return false;
    Forget(Kind::Lines, of.row, column, of.unread);
    *cell = column >= entries::kLinePriceColumn ? PlainAmount(text) : data::Trim(text);
    if (column == entries::kLineRowNumberColumn) Rejoin();
    return true;
}

void ImportSheet::AddLine(std::size_t entry) {
    BulkEntry& of = mFile.entries.at(entry);
    const auto isTaken = [this](const std::string& number) {
        return std::ranges::find(mFile.entries, number, &BulkEntry::rowNumber) !=
               mFile.entries.end();
    };
    for (int number = of.row; of.rowNumber.empty(); ++number) {
        std::string label = std::to_string(number);
        if (!isTaken(label)) of.rowNumber = std::move(label);
    }
    BulkLine line;
    const auto lastOf = [&line](const std::vector<BulkLine>& lines) {
        for (const BulkLine& each : lines) line.row = std::max(line.row, each.row);
    };
    lastOf(mFile.strayLines);
    for (const BulkEntry& each : mFile.entries) lastOf(each.lines);
    ++line.row;
    line.rowNumber = of.rowNumber;
    of.lines.push_back(std::move(line));
}

void ImportSheet::RemoveEntry(std::size_t entry) {
    for (; !mFile.entries.at(entry).lines.empty();) RemoveLine(entry, 0);
    const int row = mFile.entries[entry].row;
    std::erase_if(mUnread,
                  [row](const auto& each) { return each.first.first == Row(Kind::Entries, row); });
    mFile.entries.erase(mFile.entries.begin() + static_cast<std::ptrdiff_t>(entry));
    Rejoin();
}

void ImportSheet::RemoveLine(std::size_t entry, std::size_t line) {
    auto& lines = entry == kNoEntry ? mFile.strayLines : mFile.entries.at(entry).lines;
    const int row = lines.at(line).row;
    std::erase_if(mUnread,
                  [row](const auto& each) { return each.first.first == Row(Kind::Lines, row); });
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(line));
    Rejoin();
}

void ImportSheet::Check(entries::MasterData& masterData, const entries::ImportProgress& progress) {
    entries::ImportPlan plan = entries::PlanImport(mFile, masterData, false, progress);
    plan.findings.insert(plan.findings.begin(), mFile.findings.begin(), mFile.findings.end());
    TakeFindings(plan);
}

void ImportSheet::TakeFindings(const entries::ImportPlan& plan) {
    mReasons.clear();
    for (const auto& [cell, unread] : mUnread) {
        Find(cell.first.first, cell.first.second, cell.second, unread.finding);
    }
    for (const entries::BulkFinding& each : plan.findings) {
        Find(each.table, each.row, each.column, each.finding);
    }
    CountRefused();
}

// What stands in a column that is not shown is the row's.
void ImportSheet::Find(Kind kind, int row, int column, const entries::Finding& finding) {
    const bool shown = kind == Kind::Lines || column <= entries::kOperationColumn;
    mReasons[{kind, row}].push_back({shown ? column : 0, RefusalText(finding)});
}

void ImportSheet::CountRefused() {
    mRefusedRows = mFile.strayLines.empty() ? 0 : 1;
    for (std::size_t entry = 0; entry < mFile.entries.size(); ++entry) {
        if (IsRefused(entry)) ++mRefusedRows;
    }
}

bool ImportSheet::IsRefused(std::size_t entry) const {
    if (entry == kNoEntry) return !mFile.strayLines.empty();
    const BulkEntry& of = mFile.entries.at(entry);
    return HasReasons(Kind::Entries, of.row) ||
           std::ranges::any_of(of.lines, [this](const BulkLine& line) {
               return HasReasons(Kind::Lines, line.row);
           });
}

std::vector<std::string> ImportSheet::Reasons(Kind kind, int row, int column) const {
    std::vector<std::string> texts;
    const auto found = mReasons.find({kind, row});
    if (found == mReasons.end()) return texts;
    for (const Reason& reason : found->second) {
        if (reason.column == column) texts.push_back(reason.text);
    }
    return texts;
}

std::vector<std::string> ImportSheet::EntryReasons(std::size_t entry, int column) const {
    if (entry == kNoEntry) return {};
    return Reasons(Kind::Entries, mFile.entries.at(entry).row, column);
}

std::vector<std::string> ImportSheet::LineReasons(std::size_t entry, std::size_t line,
                                                  int column) const {
    return Reasons(Kind::Lines, Lines(entry).at(line).row, column);
}

}  // namespace kelvane::ui
