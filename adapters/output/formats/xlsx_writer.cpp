// The grid as a spreadsheet: dates as dates, amounts as numbers with the money format, the header
// row frozen, widths from the grid.
#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <string>

#include "adapters/output/formats/table_export.h"
#include "adapters/output/formats/xlsx_book.h"
#include "adapters/output/layout/number_text.h"

namespace kelvane::output {

using platform::ColumnAlignment;

namespace {

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

class XlsxFile {
public:
    XlsxFile(const Export& data, SafeFile& file);

    void Write();

private:
    void Check(lxw_error error) const { mBook.Check(error); }
    void WriteHeader();
    void WriteRow(lxw_row_t row, const std::vector<std::string_view>& cells);
    void WriteCell(lxw_row_t row, std::size_t place, std::string_view cell);
    void SetUpPrinting();
    lxw_format* AlignedFormat(ColumnAlignment alignment);
    lxw_format* NumberFormat(int decimals);

    const Export& mData;
    XlsxBook mBook;
    lxw_worksheet* mSheet = nullptr;
    lxw_format* mDateFormat = nullptr;
    std::map<ColumnAlignment, lxw_format*> mAligned;
    std::map<int, lxw_format*> mNumbers;
    std::string mText;
};

XlsxFile::XlsxFile(const Export& data, SafeFile& file) : mData(data), mBook(file, data.Rows()) {
    mSheet = mBook.AddSheet(data.title);
    mDateFormat = mBook.NewFormat();
    format_set_num_format(mDateFormat, "yyyy-mm-dd");
    format_set_align(mDateFormat, LXW_ALIGN_LEFT);
}

lxw_format* XlsxFile::AlignedFormat(ColumnAlignment alignment) {
    lxw_format*& format = mAligned[alignment];
    if (format == nullptr) {
        format = mBook.NewFormat();
        format_set_align(format, kAlignments[static_cast<std::size_t>(alignment)]);
    }
    return format;
}

lxw_format* XlsxFile::NumberFormat(int decimals) {
    lxw_format*& format = mNumbers[decimals];
    if (format == nullptr) {
        format = mBook.NewFormat();
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
    lxw_format* header = mBook.HeaderFormat();
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
    mBook.Close();
}

}  // namespace

void WriteXlsx(const Export& data, SafeFile& file) {
    XlsxFile(data, file).Write();
}

}  // namespace kelvane::output
