#include "ui/import/import_reading.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "data/login_context.h"
#include "data/messages.h"
#include "entries/bulk/title_row.h"
#include "ui/import/kept_columns.h"

namespace kelvane::ui {

using entries::BulkTable;
using entries::GivenColumns;
using entries::HiddenRows;
using entries::PlacedFinding;
using entries::Rule;
using entries::TableReading;
using entries::TableShape;
using platform::TableRow;

namespace {

// Whether the titles do not say what stands where.
bool LacksTitles(const BulkTable& table) {
    return std::ranges::any_of(table.findings, [&](const PlacedFinding& each) {
        const Rule rule = each.finding.rule;
        return rule == Rule::FileNoTitles || rule == Rule::FileColumnMissing ||
               rule == Rule::FileColumnTwice ||
               (rule == Rule::CellMerged && each.row == table.titleRow);
    });
}

int HiddenRowsOf(const ImportTables& tables) {
    return tables.table.hiddenRows + (tables.lines ? tables.lines->hiddenRows : 0);
}

HiddenRows AskForHidden(int rows) {
    const bool take = data::AskQuestion(
        "有 " + std::to_string(rows) + " 个隐藏行，要读入吗？选择“否”则略过这些行。",
        data::kPromptCaption);
    return take ? HiddenRows::Take : HiddenRows::Skip;
}

// The list's columns as they stand side by side, those of keywords only where the class has them.
GivenColumns InListOrder(const TableShape& shape) {
    GivenColumns given;
    given.places.resize(static_cast<std::size_t>(shape.columnCount));
    std::vector<int> columns;
    for (const entries::TableColumn& each : shape.columns) {
        if (each.column <= entries::kRowNumberColumn) columns.push_back(each.column);
    }
    std::ranges::sort(columns);
    int place = 0;
    for (const int column : columns) {
        given.places[static_cast<std::size_t>(column)].column = ++place;
    }
    return given;
}

}  // namespace

std::optional<ImportTables> ImportReading::Read(bool byHand) {
    auto tables = ReadAll(byHand, HiddenRows::Refuse);
    if (!tables || HiddenRowsOf(*tables) == 0) return tables;
    return ReadAll(false, AskForHidden(HiddenRowsOf(*tables)));
}

std::optional<ImportTables> ImportReading::ReadAll(bool byHand, HiddenRows hidden) {
    ImportTables tables;
    const TableReading how{.hidden = hidden, .propose = mProposals.ForEntries()};
    TableReading howLines = how;
    howLines.propose = mProposals.ForLines();
    // Whether rows need a number depends on the lines, but which sheet has the entries does not.
    const auto shapeOf = [this](bool withLines) {
        return entries::EntryTableShape(mTitles.itemName, mTitles.keywords, withLines);
    };
    tables.lines = entries::ReadLineSheet(
        mReader, entries::ChooseSheet(mReader, shapeOf(false), {}), howLines);
    if (tables.lines) {
        const TableShape shape = entries::LineTableShape();
        tables.lines = ReadTable(shape, howLines, *std::move(tables.lines), false);
        if (!tables.lines) return std::nullopt;
    }
    const bool hasLines =
        tables.lines && (entries::HasContent(*tables.lines) || !tables.lines->rows.empty());
    const TableShape shape = shapeOf(hasLines);
    auto table = ReadTable(shape, how, entries::ReadBulkTable(mReader, shape, how), byHand);
    if (!table) return std::nullopt;
    tables.table = *std::move(table);
    // A sheet cannot be both.
    if (tables.lines && tables.lines->sheet == tables.table.sheet) tables.lines.reset();
    tables.totals = entries::ReadTotals(mReader, tables.table.sheet);
    std::ranges::move(tables.totals.notes, std::back_inserter(tables.table.notes));
    return tables;
}

// `table` is what was read by its titles.
std::optional<BulkTable> ImportReading::ReadTable(const TableShape& shape, TableReading how,
                                                  BulkTable table, bool byHand) {
    auto& known = shape.sheet == entries::LineTableShape().sheet ? mLineColumns : mColumns;
    if (!byHand && !known && !LacksTitles(table)) return table;
    if (byHand || !known) {
        auto found = FindColumns(shape, table, byHand, known);
        if (!found) return std::nullopt;
        known = std::move(found);
    }
    how.sheet = mReader.Sheets().at(known->sheet).name;
    how.columns = known->columns;
    return entries::ReadBulkTable(mReader, shape, how);
}

std::optional<ChosenColumns> ImportReading::FindColumns(const TableShape& shape,
                                                        const BulkTable& table, bool byHand,
                                                        const std::optional<ChosenColumns>& known) {
    if (!byHand && mIsCopied && table.titleRow == 0) return ChosenColumns{0, InListOrder(shape)};
    KeptColumns kept(data::gServices->userSettings);
    std::optional<ChosenColumns> former = known;
    for (std::size_t sheet = 0; !former && sheet < mReader.Sheets().size(); ++sheet) {
        auto columns = kept.Find(FirstRows(sheet), shape);
        if (columns) former = {sheet, *std::move(columns)};
    }
    if (former && !byHand) return former;
    const auto firstRows = [this](std::size_t sheet) { return FirstRows(sheet); };
    auto chosen = frmImportColumns(mReader.Sheets(), firstRows, shape).Ask(table.sheet, former);
    if (!chosen) return std::nullopt;
    const std::vector<TableRow> rows = FirstRows(chosen->sheet);
    const auto titles = std::ranges::find(rows, chosen->columns.titleRow, &TableRow::number);
    if (titles != rows.end()) kept.Keep(*titles, shape, chosen->columns);
    return chosen;
}

std::vector<TableRow> ImportReading::FirstRows(std::size_t sheet) {
    std::vector<TableRow> rows;
    mReader.Read(sheet, [&rows](const TableRow& row) {
        if (row.position > entries::kLastTitleRow) return false;
        rows.push_back(row);
        return true;
    });
    return rows;
}

}  // namespace kelvane::ui
