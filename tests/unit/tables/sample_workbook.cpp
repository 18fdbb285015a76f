#include "tests/unit/tables/sample_workbook.h"

#include <algorithm>

#include "adapters/tables/cell_reference.h"
#include "adapters/tables/open_table.h"

namespace kelvane::tables_test {

using platform::CellKind;
using platform::TableCell;
using platform::TableRow;

namespace {

const std::string kHead = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";
const std::string kMain = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
const std::string kLinks = "http://schemas.openxmlformats.org/package/2006/relationships";
const std::string kKinds = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";

std::string Part(const std::string& root, const std::string& content) {
    return kHead + "<" + root + " xmlns=\"" + kMain + "\" xmlns:r=\"" + kKinds + "\">" + content +
           "</" + root + ">";
}

std::string Link(const std::string& id, const std::string& kind, const std::string& target) {
    return "<Relationship Id=\"" + id + "\" Type=\"" + kKinds + "/" + kind + "\" Target=\"" +
           target + "\"/>";
}

std::string Links(const std::string& links) {
    return kHead + "<Relationships xmlns=\"" + kLinks + "\">" + links + "</Relationships>";
}

char Letter(CellKind kind) {
    return std::string_view("-tndef").at(static_cast<std::size_t>(kind));
}

std::string ShownCell(const TableCell& cell) {
    std::string text = tables::ColumnName(cell.column) + ":" + Letter(cell.kind) + " ";
    if (cell.kind != CellKind::Date) return text + cell.text;
    return text + (cell.date.IsValid() ? cell.date.FullText() : "none") + " " + cell.text;
}

}  // namespace

// The parts lie elsewhere than a program would put them: they are found by what refers to them.
std::vector<ZipPart> SampleWorkbook::Parts() const {
    std::vector<ZipPart> parts{
        {"_rels/.rels", Links(Link("a", "officeDocument", "/book/main.xml"))},
        {"book/_rels/main.xml.rels",
         Links(Link("s", "worksheet", "tables/one.xml") + Link("y", "styles", "../looks.xml") +
               (strings.empty() ? "" : Link("t", "sharedStrings", "./texts.xml")))},
        {"book/main.xml", Part("workbook", properties + "<sheets><sheet name=\"" + sheetName +
                                               "\" sheetId=\"7\" r:id=\"s\"/></sheets>")},
        {"book/tables/one.xml", Part("worksheet", sheet)},
        {"looks.xml", Part("styleSheet", styles)}};
    if (!strings.empty()) {
        parts.push_back({"book/texts.xml", Part("sst", strings), strings.size() < 1'000'000});
    }
    return parts;
}

ZipPart& PartOf(std::vector<ZipPart>& parts, std::string_view name) {
    return *std::find_if(parts.begin(), parts.end(),
                         [name](const ZipPart& part) { return part.name == name; });
}

std::string SheetData(const std::string& rows) {
    return "<sheetData>" + rows + "</sheetData>";
}

std::string Shown(platform::TableReader& reader, std::size_t sheet) {
    std::string text;
    const auto merged = reader.Read(sheet, [&](const TableRow& row) {
        text += std::to_string(row.number) + (row.hidden ? "h" : "");
        char before = ' ';
        for (const TableCell& cell : row.cells) {
            text += before + ShownCell(cell);
            before = '|';
        }
        text += "\n";
        return true;
    });
    for (const platform::CellRange& range : merged) {
        text += "merged " + reader.Place(sheet, range.firstRow, range.firstColumn, {}) + " " +
                reader.Place(sheet, range.lastRow, range.lastColumn, {}) + "\n";
    }
    return text;
}

std::string ShownBytes(const std::string& bytes) {
    try {
        return Shown(*tables::OpenTableBytes(bytes, "a.file"));
    } catch (const platform::TableRefused& refused) {
        return refused.what();
    }
}

}  // namespace kelvane::tables_test
