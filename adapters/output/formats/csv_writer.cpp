// The grid as comma-separated values: numbers stand plain, all else in quotes.
#include <string>

#include "adapters/output/formats/csv_text.h"
#include "adapters/output/formats/table_export.h"
#include "adapters/output/layout/number_text.h"

namespace kelvane::output {

namespace {

void AppendCell(std::string& line, const platform::ColumnText& column, std::string_view cell) {
    if (const auto number = CellNumber(column, cell)) {
        line += number->digits;
    } else {
        AppendCsvText(line, cell);
    }
}

}  // namespace

void WriteCsv(const Export& data, SafeFile& file) {
    std::string line(kByteOrderMark);
    for (std::size_t place = 0; place < data.shown.size(); ++place) {
        if (place > 0) line += ',';
        AppendCsvText(line, data.Column(place).title);
    }
    file.Write(line.append(kCsvLineEnd));

    WorkMeter meter = data.Meter(data.Rows());
    for (platform::RowReader reader(data.dataText, data.columns.size()); reader.Next();) {
        line.clear();
        for (std::size_t place = 0; place < data.shown.size(); ++place) {
            if (place > 0) line += ',';
            AppendCell(line, data.Column(place), reader.Cells()[data.shown[place]]);
        }
        file.Write(line.append(kCsvLineEnd));
        meter.Step();
    }
}

}  // namespace kelvane::output
