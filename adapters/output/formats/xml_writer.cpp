// The grid as an XML document: the columns, then one element a row. Numbers stand without grouping,
// dates as yyyy-mm-dd.
#include <array>
#include <string>

#include "adapters/output/formats/table_export.h"
#include "adapters/output/formats/xml_text.h"
#include "adapters/output/layout/number_text.h"

namespace kelvane::output {

namespace {

constexpr std::array<std::string_view, 3> kKindNames{"文本", "数字", "日期"};

std::string PlainText(const platform::ColumnText& column, std::string_view cell) {
    if (const auto number = CellNumber(column, cell)) return number->digits;
    if (const auto date = CellDate(column, cell)) return date->DateText('-');
    return std::string(cell);
}

std::string ColumnElement(const platform::ColumnText& column) {
    return "  <列" + XmlAttribute("名称", column.title) +
           XmlAttribute("类型", kKindNames[static_cast<std::size_t>(column.kind)]) + "/>\n";
}

}  // namespace

void WriteXml(const Export& data, SafeFile& file) {
    file.Write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<表" +
               XmlAttribute("标题", data.title) + ">\n");
    for (std::size_t place = 0; place < data.shown.size(); ++place) {
        file.Write(ColumnElement(data.Column(place)));
    }
    WorkMeter meter = data.Meter(data.Rows());
    for (platform::RowReader reader(data.dataText, data.columns.size()); reader.Next();) {
        std::string row = "  <行>";
        for (std::size_t place = 0; place < data.shown.size(); ++place) {
            row += "<格>";
            row += EscapeXml(PlainText(data.Column(place), reader.Cells()[data.shown[place]]));
            row += "</格>";
        }
        file.Write(row + "</行>\n");
        meter.Step();
    }
    file.Write("</表>\n");
}

}  // namespace kelvane::output
