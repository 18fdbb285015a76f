// Workbooks of which a test writes the part that it is about, and the words in which it looks at
// what was read.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/table.h"
#include "tests/unit/tables/sample_zip.h"

namespace kelvane::tables_test {

struct SampleWorkbook {
    std::string sheet;    // what is in <worksheet>
    std::string strings;  // what is in <sst>; none when empty
    std::string styles;   // what is in <styleSheet>
    std::string properties = "<workbookPr/>";
    std::string sheetName = "期初";

    // The parts, for a test to change.
    std::vector<ZipPart> Parts() const;
    std::string Bytes() const { return MakeZip(Parts()); }
};

// The part `name`, which is there.
ZipPart& PartOf(std::vector<ZipPart>& parts, std::string_view name);

// A sheet's rows, for SampleWorkbook::sheet.
std::string SheetData(const std::string& rows);

// All of a sheet, a row a line: its number, "h" where it is hidden, and each cell with its column
// and its kind: "3 A:t text|B:n 1.5".
std::string Shown(platform::TableReader& reader, std::size_t sheet = 0);
// The same of a file's content, or why it cannot be read.
std::string ShownBytes(const std::string& bytes);

}  // namespace kelvane::tables_test
