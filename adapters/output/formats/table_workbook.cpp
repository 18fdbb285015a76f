// A file of tables as a workbook. Whole columns have the format of what is to be typed into them,
// so that a code stays the text that it is; what the lists offer stands in a sheet of its own that
// is not shown, because a list within a cell's rule has little room.
#include <algorithm>
#include <charconv>
#include <map>
#include <string>

#include "adapters/output/formats/table_file.h"
#include "adapters/output/formats/xlsx_book.h"
#include "platform/decimal.h"

namespace kelvane::output {

using platform::CellKind;
using platform::ColumnUse;
using platform::TableCell;
using platform::TableFile;
using platform::TableFileColumn;
using platform::TableFileSheet;

namespace {

constexpr const char* kListSheet = "选项";
constexpr const char* kListTitle = "选项";
constexpr const char* kListMessage = "列表中没有这一项。";
constexpr const char* kTextFormat = "@";
constexpr const char* kDateFormat = "yyyy-mm-dd";
constexpr const char* kTimeFormat = "yyyy-mm-dd hh:mm:ss";
constexpr const char* kAmountFormat = "#,##0.00##";
constexpr const char* kPlainFormat = "General";

const char* FormatOf(ColumnUse use) {
    switch (use) {
        case ColumnUse::Text:
        case ColumnUse::Code:
            return kTextFormat;
        case ColumnUse::Date:
            return kDateFormat;
        case ColumnUse::Amount:
            return kAmountFormat;
        case ColumnUse::Number:
        case ColumnUse::Anything:
            break;
    }
    return kPlainFormat;
}

// How many digits it has between the first and the last that are not 0.
int SignificantDigits(std::string_view digits) {
    std::string all;
    std::copy_if(digits.begin(), digits.end(), std::back_inserter(all),
                 [](char c) { return c >= '0' && c <= '9'; });
    const std::size_t first = all.find_first_not_of('0');
    if (first == std::string::npos) return 0;
    return static_cast<int>(all.find_last_not_of('0') - first + 1);
}

// `text` in which nothing looks like a character that is written by its number ("_x000D_").
std::string WithoutWrittenCharacters(const std::string& text) {
    constexpr std::string_view kMark = "_x";
    constexpr std::size_t kDigits = 4;
    std::string written;
    std::size_t from = 0;
    for (std::size_t at = text.find(kMark); at != std::string::npos;
         at = text.find(kMark, at + 1)) {
        const std::size_t end = at + kMark.size() + kDigits;
        const std::size_t other = text.find_first_not_of("0123456789abcdefABCDEF", at + 2);
        if (other != end || text[end] != '_') continue;
        written.append(text, from, at - from).append("_x005F");
        from = at;
    }
    return written.append(text, from);
}

class Workbook {
public:
    Workbook(const TableFile& tables, SafeFile& file)
        : mTables(tables), mBook(file, LongestOf(tables)) {}

    void Write();

private:
    static std::size_t LongestOf(const TableFile& tables);

    void WriteSheet(const TableFileSheet& sheet);
    void SetUpColumn(lxw_worksheet* sheet, lxw_col_t place, const TableFileColumn& column);
    void KeepCodesTexts(const TableFileSheet& sheet);
    void OfferChoices(lxw_worksheet* sheet, lxw_col_t place, const TableFileColumn& column);
    void WriteCell(const TableFileColumn& column, const TableCell& cell);
    void WriteNumber(const TableFileColumn& column, const std::string& digits, const char* format);
    void WriteDate(const TableFileColumn& column, const TableCell& cell);
    void WriteText(const std::string& text, const char* format);
    void WriteLists();
    lxw_format* Format(const char* format);
    void Check(lxw_error error) const { mBook.Check(error); }

    const TableFile& mTables;
    XlsxBook mBook;
    std::map<std::string_view, lxw_format*> mFormats;
    std::vector<const TableFileColumn*> mLists;
    // Where the next cell is written.
    lxw_worksheet* mSheet = nullptr;
    lxw_row_t mRow = 0;
    lxw_col_t mPlace = 0;
};

std::size_t Workbook::LongestOf(const TableFile& tables) {
    std::size_t longest = 0;
    for (const TableFileSheet& sheet : tables.sheets) {
        longest = std::max(longest, sheet.rows.size());
        for (const TableFileColumn& column : sheet.columns) {
            longest = std::max(longest, column.choices.size());
        }
    }
    return longest;
}

lxw_format* Workbook::Format(const char* format) {
    lxw_format*& known = mFormats[format];
    if (known != nullptr) return known;
    known = mBook.NewFormat();
    if (format != std::string_view(kPlainFormat)) format_set_num_format(known, format);
    return known;
}

// The sheet of lists has a column for each; it is written when all are known.
void Workbook::OfferChoices(lxw_worksheet* sheet, lxw_col_t place, const TableFileColumn& column) {
    mLists.push_back(&column);
    char name[LXW_MAX_COL_NAME_LENGTH];
    lxw_col_to_name(name, static_cast<lxw_col_t>(mLists.size() - 1), 1);
    std::string source = std::string("='") + kListSheet + "'!" + name + "$1:" + name + "$" +
                         std::to_string(column.choices.size());
    std::string title = kListTitle;
    std::string message = kListMessage;
    lxw_data_validation rule{};
    rule.validate = LXW_VALIDATION_TYPE_LIST_FORMULA;
    rule.value_formula = source.data();
    // What came into the account after the file was written can be typed all the same.
    rule.error_type = LXW_VALIDATION_ERROR_TYPE_WARNING;
    rule.error_title = title.data();
    rule.error_message = message.data();
    Check(worksheet_data_validation_range(sheet, 1, place, LXW_ROW_MAX - 1, place, &rule));
}

void Workbook::SetUpColumn(lxw_worksheet* sheet, lxw_col_t place, const TableFileColumn& column) {
    lxw_row_col_options options{};
    options.hidden = column.hidden ? LXW_TRUE : LXW_FALSE;
    const char* format = FormatOf(column.use);
    Check(worksheet_set_column_opt(sheet, place, place, column.width,
                                   format == kPlainFormat ? nullptr : Format(format), &options));
    if (!column.choices.empty()) OfferChoices(sheet, place, column);
}

// A spreadsheet marks texts of digits as faults and offers to make numbers of them.
void Workbook::KeepCodesTexts(const TableFileSheet& sheet) {
    std::string ranges;
    for (std::size_t column = 0; column < sheet.columns.size(); ++column) {
        if (FormatOf(sheet.columns[column].use) != kTextFormat) continue;
        char name[LXW_MAX_COL_NAME_LENGTH];
        lxw_col_to_name(name, static_cast<lxw_col_t>(column), 0);
        if (!ranges.empty()) ranges += ' ';
        ranges.append(name).append("2:").append(name) += std::to_string(LXW_ROW_MAX);
    }
    if (ranges.empty()) return;
    Check(worksheet_ignore_errors(mSheet, LXW_IGNORE_NUMBER_STORED_AS_TEXT, ranges.c_str()));
}

void Workbook::WriteText(const std::string& text, const char* format) {
    const std::string written = WithoutWrittenCharacters(text);
    Check(worksheet_write_string(mSheet, mRow, mPlace, written.c_str(),
                                 format == nullptr ? nullptr : Format(format)));
}

void Workbook::WriteNumber(const TableFileColumn& column, const std::string& digits,
                           const char* format) {
    const auto number = platform::Decimal::FromText(digits);
    const std::string plain = number ? number->Text() : std::string();
    double value = 0;
    const bool isNumber =
        number && SignificantDigits(plain) <= kExactDigits &&
        std::from_chars(plain.data(), plain.data() + plain.size(), value).ec == std::errc();
    if (!isNumber) return WriteText(digits, nullptr);
    // A bare number in a column of dates is none.
    if (format == nullptr && column.use == ColumnUse::Date) format = kPlainFormat;
    Check(worksheet_write_number(mSheet, mRow, mPlace, value,
                                 format == nullptr ? nullptr : Format(format)));
}

void Workbook::WriteDate(const TableFileColumn& column, const TableCell& cell) {
    const platform::DateTime& date = cell.date;
    if (!date.IsValid()) return WriteNumber(column, cell.text, kDateFormat);
    const bool isDay = date == platform::DateTime{date.year, date.month, date.day};
    if (date.year < kFirstYear) {
        return WriteText(isDay ? date.DateText('-') : date.FullText(), nullptr);
    }
    lxw_datetime day{};
    day.year = date.year;
    day.month = date.month;
    day.day = date.day;
    day.hour = date.hour;
    day.min = date.minute;
    day.sec = date.second + date.millisecond / 1000.0;
    Check(worksheet_write_datetime(mSheet, mRow, mPlace, &day,
                                   Format(isDay ? kDateFormat : kTimeFormat)));
}

void Workbook::WriteCell(const TableFileColumn& column, const TableCell& cell) {
    switch (cell.kind) {
        case CellKind::Blank:
        case CellKind::NoResult:
            break;
        case CellKind::Text:
        case CellKind::Error:
            WriteText(cell.text, nullptr);
            break;
        case CellKind::Number:
            WriteNumber(column, cell.text, nullptr);
            break;
        case CellKind::Date:
            WriteDate(column, cell);
            break;
    }
}

void Workbook::WriteSheet(const TableFileSheet& sheet) {
    mSheet = mBook.AddSheet(sheet.name);
    if (sheet.hidden) worksheet_hide(mSheet);
    if (sheet.frozenTitles) worksheet_freeze_panes(mSheet, 1, 0);
    for (std::size_t column = 0; column < sheet.columns.size(); ++column) {
        const auto place = static_cast<lxw_col_t>(column);
        SetUpColumn(mSheet, place, sheet.columns[column]);
        Check(worksheet_write_string(mSheet, 0, place,
                                     WithoutWrittenCharacters(sheet.columns[column].title).c_str(),
                                     mBook.HeaderFormat()));
    }
    KeepCodesTexts(sheet);
    mRow = 0;
    for (const auto& row : sheet.rows) {
        ++mRow;
        for (const TableCell& cell : row) {
            const std::size_t column = PlaceOf(sheet, cell);
            mPlace = static_cast<lxw_col_t>(column);
            WriteCell(sheet.columns[column], cell);
        }
    }
}

void Workbook::WriteLists() {
    if (mLists.empty()) return;
    mSheet = mBook.AddSheet(kListSheet);
    worksheet_hide(mSheet);
    std::size_t rows = 0;
    for (const TableFileColumn* list : mLists) rows = std::max(rows, list->choices.size());
    for (std::size_t row = 0; row < rows; ++row) {
        mRow = static_cast<lxw_row_t>(row);
        for (std::size_t list = 0; list < mLists.size(); ++list) {
            if (row >= mLists[list]->choices.size()) continue;
            mPlace = static_cast<lxw_col_t>(list);
            WriteText(mLists[list]->choices[row], kTextFormat);
        }
    }
}

void Workbook::Write() {
    for (const TableFileSheet& sheet : mTables.sheets) WriteSheet(sheet);
    WriteLists();
    for (const auto& [name, text] : mTables.properties) {
        Check(workbook_set_custom_property_string(mBook.Get(), name.c_str(), text.c_str()));
    }
    mBook.Close();
}

}  // namespace

void WriteTableWorkbook(const TableFile& tables, SafeFile& file) {
    Workbook(tables, file).Write();
}

}  // namespace kelvane::output
