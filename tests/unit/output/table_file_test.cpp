// Files of tables, read again by the readers of tables.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "adapters/output/formats/table_file.h"
#include "adapters/tables/cell_reference.h"
#include "adapters/tables/open_table.h"
#include "tests/unit/host/temporary_folder.h"
#include "tests/unit/output/failing_disk.h"

namespace kelvane::output_test {

using host_test::ReadText;
using host_test::TemporaryFolder;
using host_test::WriteText;
using output::FileFailure;
using output::WriteTableFile;
using platform::CellKind;
using platform::ColumnUse;
using platform::DateCell;
using platform::DateTime;
using platform::NumberCell;
using platform::TableCell;
using platform::TableFile;
using platform::TableFileSheet;
using platform::TextCell;

namespace {

std::string Shown(const platform::TableCell& cell) {
    constexpr std::string_view kKinds = "-tndef";
    std::string text =
        tables::ColumnName(cell.column) + ":" + kKinds[static_cast<std::size_t>(cell.kind)] + " ";
    if (cell.kind != CellKind::Date) return text + cell.text;
    return text + (cell.date.IsValid() ? cell.date.FullText() : "none");
}

// What the readers find in the file: "[hidden] NAME", then its rows.
std::string Shown(const std::filesystem::path& path) {
    const auto reader = tables::OpenTable(path.string());
    std::string shown;
    for (std::size_t sheet = 0; sheet < reader->Sheets().size(); ++sheet) {
        if (!reader->Sheets()[sheet].name.empty()) {
            shown += (reader->Sheets()[sheet].hidden ? "hidden " : "") +
                     reader->Sheets()[sheet].name + "\n";
        }
        reader->Read(sheet, [&](const platform::TableRow& row) {
            shown += std::to_string(row.number);
            for (const auto& cell : row.cells) shown += " " + Shown(cell);
            shown += "\n";
            return true;
        });
    }
    return shown;
}

// One column of `use` with these cells.
TableFile Column(ColumnUse use, std::vector<TableCell> cells) {
    TableFileSheet sheet;
    sheet.name = "表";
    sheet.columns.push_back({.title = "列", .use = use, .choices = {}});
    for (TableCell& cell : cells) sheet.rows.push_back({std::move(cell)});
    return {{std::move(sheet)}, {}};
}

// The rows that a file of that column reads as.
std::string ReadAgain(const std::string& name, ColumnUse use, std::vector<TableCell> cells) {
    const TemporaryFolder folder;
    WriteTableFile((folder / name).string(), Column(use, std::move(cells)));
    const std::string shown = Shown(folder / name);
    return shown.substr(shown.find("A:t 列\n") + std::string("A:t 列\n").size());
}

TEST(TableFileWorkbook, CellsAreWhatTheyAreInAnyColumn) {
    for (const ColumnUse use : {ColumnUse::Anything, ColumnUse::Text, ColumnUse::Code,
                                ColumnUse::Date, ColumnUse::Amount, ColumnUse::Number}) {
        EXPECT_EQ(ReadAgain("a.xlsx", use,
                            {TextCell(1, "007"),
                             NumberCell(1, "38169"),
                             DateCell(1, {2004, 7, 1}),
                             DateCell(1, {2004, 7, 1, 12, 30, 15}),
                             TextCell(1, ""),
                             NumberCell(1, "-0.5"),
                             {1, CellKind::Error, "#DIV/0!", {}},
                             {1, CellKind::NoResult, "", {}},
                             {1, CellKind::Date, "-1", {0, 0, 0}}}),
                  "2 A:t 007\n3 A:n 38169\n4 A:d 2004-07-01 00:00:00.000\n"
                  "5 A:d 2004-07-01 12:30:15.000\n7 A:n -0.5\n8 A:t #DIV/0!\n10 A:d none\n")
            << static_cast<int>(use);
    }
}

TEST(TableFileWorkbook, TextsStayTheTextsThatTheyAre) {
    for (const std::string text : {"=1+1", "+49", "-7", "@SUM(A1)", "＝1", " 留白 ", "两行\n摘要",
                                   "_x0041_", "_x004_ _x00411", "_x_x0041_x0042_",
                                   "a\x01"
                                   "b",
                                   "<b>&amp;\"</b>", "1,234.50", "'=1"}) {
        EXPECT_EQ(ReadAgain("a.xlsx", ColumnUse::Text, {TextCell(1, text)}),
                  "2 A:t " + text + "\n");
        EXPECT_EQ(ReadAgain("a.csv", ColumnUse::Text, {TextCell(1, text)}), "2 A:t " + text + "\n");
    }
}

TEST(TableFileWorkbook, NumbersOfMoreDigitsThanASpreadsheetKeepsAreTexts) {
    EXPECT_EQ(
        ReadAgain("a.xlsx", ColumnUse::Amount,
                  {NumberCell(1, "123456789012345"), NumberCell(1, "900000000000123.4500"),
                   NumberCell(1, "1E+20"), NumberCell(1, "0.0000000000000012"),
                   NumberCell(1, "1234567890.12345"), NumberCell(1, "-922337203685477.5808")}),
        "2 A:n 123456789012345\n3 A:t 900000000000123.4500\n4 A:n 1E+20\n5 A:n 1.2E-15\n"
        "6 A:n 1234567890.12345\n7 A:t -922337203685477.5808\n");
}

TEST(TableFileWorkbook, DaysThatASpreadsheetDoesNotHaveAreTexts) {
    EXPECT_EQ(ReadAgain("a.xlsx", ColumnUse::Date,
                        {DateCell(1, {1899, 12, 31}), DateCell(1, {1900, 2, 28}),
                         DateCell(1, {1900, 3, 1}), DateCell(1, {9999, 12, 31})}),
              "2 A:t 1899-12-31\n3 A:d 1900-02-28 00:00:00.000\n4 A:d 1900-03-01 00:00:00.000\n"
              "5 A:d 9999-12-31 00:00:00.000\n");
}

TEST(TableFileWorkbook, ListsStandInASheetThatIsNotShown) {
    TableFile file = Column(ColumnUse::Code, {TextCell(1, "02")});
    file.sheets[0].columns.push_back({.title = "无", .choices = {}});
    file.sheets[0].columns.push_back({.title = "要素", .choices = {"材料", "人工"}});
    file.sheets[0].columns[0].choices = {"01", "02", "03"};
    file.sheets.push_back({.name = "合计", .columns = {}, .rows = {}});
    const TemporaryFolder folder;
    WriteTableFile((folder / "a.xlsx").string(), file);
    EXPECT_EQ(Shown(folder / "a.xlsx"),
              "表\n1 A:t 列 B:t 无 C:t 要素\n2 A:t 02\n合计\nhidden 选项\n1 A:t 01 B:t 材料\n"
              "2 A:t 02 B:t 人工\n3 A:t 03\n");
}

// Written row by row, it is the same file.
TEST(TableFileWorkbook, LongTablesAreTheSame) {
    constexpr int kRows = 6'000;
    TableFile file = Column(ColumnUse::Code, {});
    for (int row = 0; row < kRows; ++row) {
        file.sheets[0].rows.push_back({TextCell(1, "_x0041_\x01" + std::to_string(row))});
    }
    file.sheets[0].columns[0].choices = {"01"};
    const TemporaryFolder folder;
    WriteTableFile((folder / "a.xlsx").string(), file);
    const std::string shown = Shown(folder / "a.xlsx");
    EXPECT_TRUE(
        shown.starts_with("表\n1 A:t 列\n2 A:t _x0041_\x01"
                          "0\n3 A:t _x0041_\x01"
                          "1\n"))
        << shown.substr(0, 100);
    EXPECT_TRUE(
        shown.ends_with("6001 A:t _x0041_\x01"
                        "5999\nhidden 选项\n1 A:t 01\n"));
}

TEST(TableFileText, IsCsvThatSpreadsheetsRead) {
    TableFile file = Column(ColumnUse::Date, {DateCell(1, {2004, 7, 1})});
    file.sheets[0].columns.push_back({.title = "金额", .use = ColumnUse::Amount, .choices = {}});
    file.sheets[0].columns.push_back({.title = "摘要", .choices = {}});
    file.sheets[0].rows[0].push_back(NumberCell(2, "-1.50E2"));
    file.sheets[0].rows[0].push_back(TextCell(3, "=1\"2"));
    file.sheets[0].rows.push_back({DateCell(1, {2004, 7, 1, 8}), TextCell(2, "-1,234.50")});
    const TemporaryFolder folder;
    WriteTableFile((folder / "A.CSV").string(), file);
    EXPECT_EQ(ReadText(folder / "A.CSV"),
              "\xEF\xBB\xBF\"列\",\"金额\",\"摘要\"\r\n2004-07-01,-150,\"'=1\"\"2\"\r\n"
              "2004-07-01 08:00:00.000,\"-1,234.50\",\r\n");
}

std::string FailureOf(const std::string& path, const TableFile& file,
                      output::Disk& disk = output::SystemDisk()) try {
    WriteTableFile(path, file, disk);
    return "written";
} catch (const FileFailure& failure) {
    return failure.what();
}

TEST(TableFileText, TellsANumberFromACode) {
    EXPECT_EQ(ReadAgain("a.csv", ColumnUse::Code, {NumberCell(1, "101"), TextCell(1, "101")}),
              "2 A:t 101E+0\n3 A:t 101\n");
}

TEST(TableFileText, HasRoomForOneTableAlone) {
    const TemporaryFolder folder;
    const std::string path = (folder / "a.csv").string();
    const std::string refused = path + ": the name must end in one of these: .xlsx";
    TableFile file = Column(ColumnUse::Text, {});
    file.properties["a"] = "b";
    EXPECT_EQ(FailureOf(path, file), refused);
    file.properties.clear();
    file.sheets.push_back(file.sheets.front());
    EXPECT_EQ(FailureOf(path, file), refused);
    EXPECT_EQ(folder.FileCount(), 0U);
}

TEST(TableFile, OtherExtensionsAreRefused) {
    const TemporaryFolder folder;
    for (const char* name : {"a.xls", "a", "a.xlsx.pdf", ".xlsx", "a.json"}) {
        const std::string path = (folder / name).string();
        EXPECT_EQ(FailureOf(path, Column(ColumnUse::Text, {})),
                  path + ": the name must end in one of these: .xlsx, .csv");
    }
    EXPECT_EQ(folder.FileCount(), 0U);
}

TEST(TableFile, IsWrittenWholeOrNotAtAll) {
    for (const char* name : {"a.xlsx", "a.csv"}) {
        const TemporaryFolder folder;
        const std::string path = (folder / name).string();
        WriteText(path, "old");
        const TableFile file = Column(ColumnUse::Text, {TextCell(1, "a")});
        FailingDisk disk(FailingDisk::Call::Rename);
        EXPECT_EQ(FailureOf(path, file, disk), path + ": No space left on device");
        EXPECT_EQ(ReadText(path), "old");
        EXPECT_EQ(folder.FileCount(), 1U);
        EXPECT_EQ(FailureOf(path, file), "written");
        EXPECT_NE(ReadText(path), "old");
        EXPECT_EQ(folder.FileCount(), 1U);
    }
}

TEST(TableFile, ATextThatNoCellHoldsIsAFailure) {
    const TemporaryFolder folder;
    const std::string path = (folder / "a.xlsx").string();
    EXPECT_THROW(
        WriteTableFile(path, Column(ColumnUse::Text, {TextCell(1, std::string(40'000, 'a'))})),
        FileFailure);
    EXPECT_EQ(folder.FileCount(), 0U);
}

}  // namespace
}  // namespace kelvane::output_test
