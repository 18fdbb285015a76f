// The grid as a spreadsheet: dates as dates, amounts as numbers with the money format, the header
// row frozen, widths from the grid.
#include <xlsxwriter.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <map>
#include <string>
#include <system_error>

#include "adapters/output/formats/table_export.h"
#include "adapters/output/formats/xlsx_check.h"
#include "adapters/output/layout/number_text.h"
#include "platform/native_path.h"
#include "platform/utf8.h"

namespace kelvane::output {

using platform::ColumnAlignment;

namespace {

constexpr std::size_t kMaxRows = LXW_ROW_MAX - 1;
// Longer lists are written row by row and not kept in memory.
constexpr std::size_t kLongList = 5'000;
// A spreadsheet's numbers have no more exact digits; a longer amount stays a text.
constexpr int kExactDigits = 15;
constexpr int kFirstYear = 1900;

constexpr std::array kAlignments{LXW_ALIGN_LEFT, LXW_ALIGN_CENTER, LXW_ALIGN_RIGHT};

struct PaperNumber {
    std::string_view name;
    std::uint8_t number;
};
constexpr std::array kPaperNumbers{
    PaperNumber{"A4", 9},  PaperNumber{"A3", 8},     PaperNumber{"A5", 11},
    PaperNumber{"B5", 34}, PaperNumber{"Letter", 1},
};

// Widths count digits of the usual font, which are 7 pixels wide, without 5 pixels of padding.
double WidthOfTwips(int twips) {
    constexpr double kTwipsPerPixel = 15;
    constexpr double kMaxWidth = 255;
    return std::clamp((twips / kTwipsPerPixel - 5) / 7, 0.5, kMaxWidth);
}

// What a sheet may be called.
std::string SheetName(std::string_view title) {
    std::string name(platform::FirstCharacters(title, LXW_SHEETNAME_MAX));
    for (char& c : name) {
        if (std::string_view("[]:*?/\\'").find(c) != std::string_view::npos) c = ' ';
    }
    return name.empty() ? "Sheet1" : name;
}

class XlsxFile {
public:
    XlsxFile(const Export& data, SafeFile& file);
    ~XlsxFile() {
        if (mBook != nullptr) lxw_workbook_free(mBook);
    }
    XlsxFile(const XlsxFile&) = delete;
    XlsxFile& operator=(const XlsxFile&) = delete;

    void Write();

private:
    void Check(lxw_error error) const {
        if (error != LXW_NO_ERROR) mFile.Fail(lxw_strerror(error));
    }
    void WriteHeader();
    void WriteRow(lxw_row_t row, const std::vector<std::string_view>& cells);
    void WriteCell(lxw_row_t row, std::size_t place, std::string_view cell);
    void SetUpPrinting();
    lxw_format* AlignedFormat(ColumnAlignment alignment);
    lxw_format* NumberFormat(int decimals);
    lxw_format* NewFormat();

    const Export& mData;
    SafeFile& mFile;
    lxw_workbook* mBook = nullptr;
    lxw_worksheet* mSheet = nullptr;
    lxw_format* mDateFormat = nullptr;
    std::map<ColumnAlignment, lxw_format*> mAligned;
    std::map<int, lxw_format*> mNumbers;
    std::string mText;
};

// Where the library keeps what it has not packed yet, in files that nobody else sees. Killed
// between making one and hiding it, the program would leave it there: not among the operator's
// files.
std::string ScratchFolder() {
    std::error_code none;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(none);
    return none ? std::string() : platform::Utf8Of(folder);
}

XlsxFile::XlsxFile(const Export& data, SafeFile& file) : mData(data), mFile(file) {
    std::string folder = ScratchFolder();
    lxw_workbook_options options{};
    options.constant_memory = data.Rows() > kLongList ? LXW_TRUE : LXW_FALSE;
    options.tmpdir = folder.empty() ? nullptr : folder.data();
    mBook = workbook_new_opt(file.Draft().c_str(), &options);
    if (mBook == nullptr) file.Fail("the spreadsheet cannot be begun");
    mSheet = workbook_add_worksheet(mBook, SheetName(data.title).c_str());
    if (mSheet == nullptr) mSheet = workbook_add_worksheet(mBook, nullptr);
    if (mSheet == nullptr) file.Fail("the spreadsheet cannot be begun");
    mDateFormat = NewFormat();
    format_set_num_format(mDateFormat, "yyyy-mm-dd");
    format_set_align(mDateFormat, LXW_ALIGN_LEFT);
}

lxw_format* XlsxFile::NewFormat() {
    lxw_format* format = workbook_add_format(mBook);
    if (format == nullptr) mFile.Fail("out of memory");
    return format;
}

lxw_format* XlsxFile::AlignedFormat(ColumnAlignment alignment) {
    lxw_format*& format = mAligned[alignment];
    if (format == nullptr) {
        format = NewFormat();
        format_set_align(format, kAlignments[static_cast<std::size_t>(alignment)]);
    }
    return format;
}

lxw_format* XlsxFile::NumberFormat(int decimals) {
    lxw_format*& format = mNumbers[decimals];
    if (format == nullptr) {
        format = NewFormat();
        const std::string fraction(static_cast<std::size_t>(decimals), '0');
        format_set_num_format(format, ("#,##0" + (decimals > 0 ? "." + fraction : "")).c_str());
    }
    return format;
}

void XlsxFile::SetUpPrinting() {
    const PageSettings& settings = mData.settings;
    const auto* paper = std::find_if(kPaperNumbers.begin(), kPaperNumbers.end(),
                                     [&](const auto& each) { return each.name == settings.paper; });
    if (paper != kPaperNumbers.end()) worksheet_set_paper(mSheet, paper->number);
    if (settings.landscape) worksheet_set_landscape(mSheet);
    if (settings.fitWidth) worksheet_fit_to_pages(mSheet, 1, 0);
    if (settings.repeatHead) Check(worksheet_repeat_rows(mSheet, 0, 0));
    Check(worksheet_set_footer(mSheet, "&C第 &P 页 共 &N 页"));
}

void XlsxFile::WriteHeader() {
    lxw_format* header = NewFormat();
    format_set_bold(header);
    format_set_align(header, LXW_ALIGN_CENTER);
    format_set_bg_color(header, 0xEDEDED);
    format_set_border(header, LXW_BORDER_THIN);
    for (std::size_t place = 0; place < mData.shown.size(); ++place) {
        const platform::ColumnText& column = mData.Column(place);
        const auto col = static_cast<lxw_col_t>(place);
        Check(worksheet_set_column(mSheet, col, col, WidthOfTwips(column.width), nullptr));
        Check(worksheet_write_string(mSheet, 0, col, column.title.c_str(), header));
    }
    worksheet_freeze_panes(mSheet, 1, 0);
}

void XlsxFile::WriteCell(lxw_row_t row, std::size_t place, std::string_view cell) {
    const platform::ColumnText& column = mData.Column(place);
    const auto col = static_cast<lxw_col_t>(place);
    if (cell.empty()) return;
    const auto number = CellNumber(column, cell);
    if (number && number->significant <= kExactDigits) {
        double value = 0;
        std::from_chars(number->digits.data(), number->digits.data() + number->digits.size(),
                        value);
        lxw_format* format = NumberFormat(std::max(column.decimals, number->decimals));
        return Check(worksheet_write_number(mSheet, row, col, value, format));
    }
    const auto date = CellDate(column, cell);
    if (date && date->year >= kFirstYear) {
        lxw_datetime day{};
        day.year = date->year;
        day.month = date->month;
        day.day = date->day;
        return Check(worksheet_write_datetime(mSheet, row, col, &day, mDateFormat));
    }
    mText = cell;
    Check(worksheet_write_string(mSheet, row, col, mText.c_str(), AlignedFormat(column.alignment)));
}

void XlsxFile::Write() {
    if (mData.Rows() > kMaxRows) mFile.Fail("a spreadsheet has no room for so many rows");
    WriteHeader();
    SetUpPrinting();
    WorkMeter meter = mData.Meter(mData.Rows());
    lxw_row_t row = 0;
    for (platform::RowReader reader(mData.dataText, mData.columns.size()); reader.Next();) {
        ++row;
        for (std::size_t place = 0; place < mData.shown.size(); ++place) {
            WriteCell(row, place, reader.Cells()[mData.shown[place]]);
        }
        meter.Step();
    }
    lxw_workbook* book = mBook;
    mBook = nullptr;
    Check(workbook_close(book));
    CheckXlsx(mFile);
}

}  // namespace

void WriteXlsx(const Export& data, SafeFile& file) {
    XlsxFile(data, file).Write();
}

}  // namespace kelvane::output
