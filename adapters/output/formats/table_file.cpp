#include "adapters/output/formats/table_file.h"

#include <array>
#include <stdexcept>

#include "adapters/output/formats/csv_text.h"
#include "adapters/output/layout/number_text.h"
#include "platform/ascii.h"
#include "platform/decimal.h"
#include "platform/native_path.h"

namespace kelvane::output {

using platform::CellKind;
using platform::ColumnUse;
using platform::TableCell;

namespace {

constexpr std::array kExtensions{
    std::pair<std::string_view, TableFormat>{".xlsx", TableFormat::Workbook},
    std::pair<std::string_view, TableFormat>{".csv", TableFormat::Text},
};

// A number that is written as a text is no formula, whatever its sign.
bool IsNumberText(ColumnUse use, std::string_view text) {
    return (use == ColumnUse::Amount || use == ColumnUse::Number) && ReadNumber(text).has_value();
}

// Without an exponent, which is no number of a text.
std::string PlainNumber(const std::string& digits) {
    const auto number = platform::Decimal::FromText(digits);
    return number ? number->Text() : digits;
}

void AppendCell(std::string& line, ColumnUse use, const TableCell& cell) {
    const platform::DateTime& date = cell.date;
    switch (cell.kind) {
        case CellKind::Blank:
        case CellKind::NoResult:
            break;
        case CellKind::Number:
            line += PlainNumber(cell.text);
            // Plain digits would pass for the code that they are not.
            if (use == ColumnUse::Code) line += "E+0";
            break;
        case CellKind::Date:
            if (!date.IsValid()) {
                line += PlainNumber(cell.text);
            } else if (date == platform::DateTime{date.year, date.month, date.day}) {
                line += date.DateText('-');
            } else {
                line += date.FullText();
            }
            break;
        case CellKind::Text:
        case CellKind::Error:
            if (IsNumberText(use, cell.text)) {
                line.append("\"").append(cell.text).append("\"");
            } else {
                AppendCsvText(line, cell.text);
            }
            break;
    }
}

}  // namespace

std::size_t PlaceOf(const platform::TableFileSheet& sheet, const TableCell& cell) {
    const auto place = static_cast<std::size_t>(cell.column - 1);
    if (place < sheet.columns.size()) return place;
    throw std::out_of_range("a cell beyond the sheet's columns");
}

std::optional<TableFormat> TableFormatOf(std::string_view path) {
    const std::string extension =
        platform::LowerAscii(platform::Utf8Of(platform::PathOf(path).extension()));
    for (const auto& [known, format] : kExtensions) {
        if (extension == known) return format;
    }
    return std::nullopt;
}

void WriteTableText(const platform::TableFileSheet& sheet, SafeFile& file) {
    std::string line(kByteOrderMark);
    for (std::size_t column = 0; column < sheet.columns.size(); ++column) {
        if (column > 0) line += ',';
        AppendCsvText(line, sheet.columns[column].title);
    }
    file.Write(line.append(kCsvLineEnd));
    for (const auto& row : sheet.rows) {
        line.clear();
        std::size_t column = 0;
        for (const TableCell& cell : row) {
            const std::size_t place = PlaceOf(sheet, cell);
            for (; column < place; ++column) line += ',';
            AppendCell(line, sheet.columns[place].use, cell);
        }
        for (; column + 1 < sheet.columns.size(); ++column) line += ',';
        file.Write(line.append(kCsvLineEnd));
    }
}

void WriteTableFile(const std::string& path, const platform::TableFile& file, Disk& disk) {
    const auto format = TableFormatOf(path);
    const bool isOneTable = file.sheets.size() == 1 && file.properties.empty();
    if (!format || (*format == TableFormat::Text && !isOneTable)) {
        throw FileFailure(path + ": the name must end in one of these: " +
                          (isOneTable ? ".xlsx, .csv" : ".xlsx"));
    }
    SafeFile draft(path, disk);
    if (*format == TableFormat::Text) {
        WriteTableText(file.sheets.front(), draft);
    } else {
        WriteTableWorkbook(file, draft);
    }
    draft.Finish();
}

}  // namespace kelvane::output
