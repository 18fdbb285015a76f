#include "host/bulk/check_report.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

#include "adapters/output/formats/table_file.h"
#include "platform/table_file.h"

namespace kelvane::host {

using entries::CheckFinding;
using entries::CheckRule;
using platform::ColumnUse;
using platform::NumberCell;
using platform::TableFileSheet;
using platform::TextCell;
using Json = nlohmann::ordered_json;

namespace {

constexpr int kNarrow = 10;
constexpr int kMiddle = 24;
constexpr int kWide = 80;

Json JsonOf(const CheckFinding& each) {
    return {{"place", PlaceOf(each)},
            {"row", each.identity},
            {"column", each.title},
            {"rule", each.finding.id},
            {"text", each.finding.text},
            {"severity", entries::IsWarning(each.finding.rule) ? "warning" : "error"}};
}

std::ptrdiff_t CountOf(const CheckReport& report, const CheckRule& rule) {
    return std::ranges::count_if(report.result.findings, [&](const CheckFinding& each) {
        return each.finding.id == rule.id;
    });
}

TableFileSheet CountSheet(const CheckReport& report) {
    TableFileSheet sheet;
    sheet.name = "检查";
    sheet.columns = {{.title = "项目", .width = kMiddle, .choices = {}},
                     {.title = "内容", .use = ColumnUse::Anything, .width = kWide, .choices = {}},
                     {.title = "级别", .width = kNarrow, .choices = {}},
                     {.title = "数量", .use = ColumnUse::Number, .width = kNarrow, .choices = {}}};
    const auto add = [&sheet](std::string title, platform::TableCell content) {
        sheet.rows.push_back({TextCell(1, std::move(title)), std::move(content)});
    };
    const auto count = [](std::size_t number) { return NumberCell(2, std::to_string(number)); };
    add("账套", TextCell(2, report.account));
    add("时间", platform::DateCell(2, report.time));
    add("操作员", TextCell(2, report.operatorName));
    add("期初", count(report.result.entries));
    add("错误", count(report.result.errors));
    add("警告", count(report.result.warnings));
    for (const CheckRule& rule : entries::CheckRules()) {
        sheet.rows.push_back({TextCell(1, std::string(rule.id)),
                              TextCell(2, std::string(rule.title)),
                              TextCell(3, rule.warning ? "警告" : "错误"),
                              NumberCell(4, std::to_string(CountOf(report, rule)))});
    }
    return sheet;
}

TableFileSheet SheetOf(const CheckReport& report, const CheckRule& rule) {
    TableFileSheet sheet;
    sheet.name = rule.id;
    constexpr int kWidths[] = {kNarrow, kNarrow, kMiddle, kMiddle, kWide};
    for (const std::string& title : entries::CheckTitles()) {
        sheet.columns.push_back(
            {.title = title, .width = kWidths[sheet.columns.size()], .choices = {}});
    }
    sheet.columns.front().use = ColumnUse::Number;
    for (const CheckFinding& each : report.result.findings) {
        if (each.finding.id != rule.id) continue;
        auto& row = sheet.rows.emplace_back();
        for (std::string& text : entries::CheckTexts(each)) {
            const int column = static_cast<int>(row.size()) + 1;
            row.push_back(column == 1 && !text.empty() ? NumberCell(column, std::move(text))
                                                       : TextCell(column, std::move(text)));
        }
    }
    return sheet;
}

}  // namespace

std::string PlaceOf(const CheckFinding& finding) {
    return "entry " + std::to_string(finding.identity);
}

std::string JsonOf(const CheckReport& report) {
    constexpr int kIndent = 2;
    Json findings = Json::array();
    for (const CheckFinding& each : report.result.findings) findings.push_back(JsonOf(each));
    const Json object = {{"account", report.account},       {"time", report.time.FullText()},
                         {"operator", report.operatorName}, {"entries", report.result.entries},
                         {"errors", report.result.errors},  {"warnings", report.result.warnings},
                         {"findings", std::move(findings)}};
    return object.dump(kIndent, ' ', false, Json::error_handler_t::replace);
}

bool IsCheckFile(const std::string& path) {
    return output::TableFormatOf(path) == output::TableFormat::Workbook;
}

void WriteCheck(const std::string& path, const CheckReport& report) {
    if (!IsCheckFile(path)) {
        throw output::FileFailure(path + ": the name must end in .xlsx");
    }
    platform::TableFile file;
    file.sheets.push_back(CountSheet(report));
    for (const CheckRule& rule : entries::CheckRules()) {
        if (CountOf(report, rule) > 0) file.sheets.push_back(SheetOf(report, rule));
    }
    output::WriteTableFile(path, file);
}

}  // namespace kelvane::host
