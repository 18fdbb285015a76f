// Comma-separated values: UTF-8 with a byte-order mark, so that spreadsheets read the Chinese text,
// and otherwise as RFC 4180 has it.
#include <algorithm>
#include <string>

#include "adapters/output/formats/table_export.h"
#include "adapters/output/layout/number_text.h"

namespace kelvane::output {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kLineEnd = "\r\n";
// A spreadsheet takes a text that begins with one of these for a formula, the wide ones where it is
// set to an East Asian language.
constexpr std::string_view kFormulaStarts[] = {"=",  "+",  "-",  "@",  "\t", "\r",
                                               "\n", "＝", "＋", "－", "＠"};

// In quotes whatever it is: numbers alone stand plain.
void AppendText(std::string& line, std::string_view text) {
    const bool formula = std::ranges::any_of(
        kFormulaStarts, [&](std::string_view start) { return text.starts_with(start); });
    line += formula ? "\"'" : "\"";
    for (const char c : text) {
        if (c == '"') line += '"';
        line += c;
    }
    line += '"';
}

void AppendCell(std::string& line, const platform::ColumnText& column, std::string_view cell) {
    if (const auto number = CellNumber(column, cell)) {
        line += number->digits;
    } else {
        AppendText(line, cell);
    }
}

}  // namespace

void WriteCsv(const Export& data, SafeFile& file) {
    std::string line(kByteOrderMark);
    for (std::size_t place = 0; place < data.shown.size(); ++place) {
        if (place > 0) line += ',';
        AppendText(line, data.Column(place).title);
    }
    file.Write(line.append(kLineEnd));

    WorkMeter meter = data.Meter(data.Rows());
    for (platform::RowReader reader(data.dataText, data.columns.size()); reader.Next();) {
        line.clear();
        for (std::size_t place = 0; place < data.shown.size(); ++place) {
            if (place > 0) line += ',';
            AppendCell(line, data.Column(place), reader.Cells()[data.shown[place]]);
        }
        file.Write(line.append(kLineEnd));
        meter.Step();
    }
}

}  // namespace kelvane::output
