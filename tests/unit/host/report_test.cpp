// An import's report, as JSON and as a workbook.
#include <gtest/gtest.h>

#include "adapters/output/files/safe_file.h"
#include "adapters/tables/cell_reference.h"
#include "adapters/tables/open_table.h"
#include "host/bulk/report.h"
#include "tests/unit/host/temporary_folder.h"

namespace kelvane::host_test {
namespace {

using host::ImportReport;
using platform::CellKind;
using platform::Money;

ImportReport Sample() {
    ImportReport report;
    report.account = "账.kelvane";
    report.file = "期初.xlsx";
    report.time = {2004, 7, 1, 8, 30, 5};
    report.operatorName = "u1";
    report.rows = 6;
    report.added = 1;
    report.changed = 2;
    report.deleted = 0;
    report.unchanged = 1;
    report.refused = 2;
    report.sum = Money::FromText("900000000000123.45");
    report.findings.push_back({"期初!C7", 7, 3, "项目编号", Found(entries::Rule::ItemEmpty)});
    report.findings.push_back(
        {"期初", 0, 0, {}, Found(entries::Rule::FileColumnMissing, "\"摘\n要\"")});
    report.notes.push_back({"期初!A1", "没有读入列“备注”"});
    report.budgets.push_back({"P1", "一号楼", "材料", Money::FromText("1000"),
                              Money::FromText("0.05"), Money::FromText("-1234.5678")});
    report.budgets.push_back({"P2", "", "人工", {}, {}, {}});
    return report;
}

TEST(Report, IsOneJsonObject) {
    ImportReport report = Sample();
    const std::string item = report.findings[0].finding.text;
    EXPECT_EQ(host::JsonOf(report),
              "{\n  \"account\": \"账.kelvane\",\n  \"file\": \"期初.xlsx\",\n"
              "  \"time\": \"2004-07-01 08:30:05.000\",\n  \"operator\": \"u1\",\n"
              "  \"dryRun\": false,\n  \"rows\": 6,\n  \"new\": 1,\n  \"changed\": 2,\n"
              "  \"deleted\": 0,\n  \"unchanged\": 1,\n  \"refused\": 2,\n"
              "  \"sum\": \"900000000000123.45\",\n"
              "  \"findings\": [\n    {\n      \"place\": \"期初!C7\",\n      \"row\": 7,\n"
              "      \"column\": \"项目编号\",\n      \"rule\": \"item.empty\",\n"
              "      \"text\": \"" +
                  item +
                  "\"\n    },\n    {\n      \"place\": \"期初\",\n      \"row\": 0,\n"
                  "      \"column\": \"\",\n      \"rule\": \"file.column\",\n"
                  "      \"text\": \"缺少列“\\\"摘\\n要\\\"”\"\n    }\n  ],\n"
                  "  \"notes\": [\n    {\n      \"place\": \"期初!A1\",\n"
                  "      \"text\": \"没有读入列“备注”\"\n    }\n  ],\n"
                  "  \"budgets\": [\n    {\n      \"item\": \"P1\",\n"
                  "      \"itemName\": \"一号楼\",\n      \"element\": \"材料\",\n"
                  "      \"budget\": \"1000\",\n      \"before\": \"0.05\",\n"
                  "      \"after\": \"-1234.5678\"\n    },\n    {\n      \"item\": \"P2\",\n"
                  "      \"itemName\": \"\",\n      \"element\": \"人工\",\n"
                  "      \"budget\": null,\n      \"before\": \"0\",\n"
                  "      \"after\": null\n    }\n  ],\n  \"batch\": null\n}");
    report = {};
    report.batch = 7;
    report.dryRun = true;
    report.file = "\xFF";
    const std::string json = host::JsonOf(report);
    EXPECT_NE(json.find("\"dryRun\": true"), std::string::npos) << json;
    EXPECT_NE(json.find("\"file\": \"\uFFFD\""), std::string::npos) << json;
    EXPECT_TRUE(json.ends_with(
        "\"findings\": [],\n  \"notes\": [],\n  \"budgets\": [],\n  \"batch\": 7\n}"))
        << json;
}

std::string Shown(const std::string& path) {
    const auto reader = tables::OpenTable(path);
    std::string shown;
    for (std::size_t sheet = 0; sheet < reader->Sheets().size(); ++sheet) {
        shown += "[" + reader->Sheets()[sheet].name + "]\n";
        reader->Read(sheet, [&](const platform::TableRow& row) {
            for (const auto& cell : row.cells) {
                shown += tables::ColumnName(cell.column) + " " +
                         (cell.kind == CellKind::Date ? cell.date.FullText() : cell.text) + "|";
            }
            shown += "\n";
            return true;
        });
    }
    return shown;
}

TEST(Report, IsAWorkbookOfThreeSheets) {
    const TemporaryFolder folder;
    const std::string path = (folder / "a.XLSX").string();
    const ImportReport report = Sample();
    WriteReport(path, report);
    EXPECT_EQ(
        Shown(path),
        "[结果]\nA 项目|B 内容|\nA 账套|B 账.kelvane|\nA 文件|B 期初.xlsx|\n"
        "A 时间|B 2004-07-01 08:30:05.000|\nA 操作员|B u1|\nA 方式|B 导入|\nA 行数|B 6|\n"
        "A 新增|B 1|\nA 修改|B 2|\nA 删除|B 0|\nA 未变|B 1|\nA 拒绝|B 2|\n"
        "A 未结转期初合计|B 900000000000123.45|\nA 批次|B 没有写入|\n"
        "[问题]\nA 位置|B 行|C 列|D 规则|E 内容|\nA 期初!C7|B 7|C 项目编号|D item.empty|E " +
            report.findings[0].finding.text +
            "|\nA 期初|D file.column|E 缺少列“\"摘\n要\"”|\n"
            "A 期初!A1|E 没有读入列“备注”|\n"
            "[预算]\nA 项目编号|B 项目名称|C 要素|D 预算|E 导入前|F 导入后|\n"
            "A P1|B 一号楼|C 材料|D 1000|E 0.05|F -1234.5678|\nA P2|C 人工|E 0|F 超出金额范围|\n");
}

TEST(Report, IsWrittenByItsExtension) {
    const TemporaryFolder folder;
    const std::string path = (folder / "a.Json").string();
    WriteReport(path, Sample());
    EXPECT_EQ(ReadText(path), host::JsonOf(Sample()) + "\n");
    for (const char* name : {"a.xlsx", "a.JSON"}) EXPECT_TRUE(host::IsReportFile(name)) << name;
    for (const char* name : {"a.csv", "a", "json", "a.pdf"}) {
        EXPECT_FALSE(host::IsReportFile(name)) << name;
        EXPECT_THROW(WriteReport((folder / name).string(), Sample()), output::FileFailure) << name;
    }
    EXPECT_EQ(folder.FileCount(), 1U);
}

}  // namespace
}  // namespace kelvane::host_test
