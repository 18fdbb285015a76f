#include "host/bulk/report.h"

#include <array>
#include <nlohmann/json.hpp>
#include <utility>

#include "adapters/output/files/safe_file.h"
#include "adapters/output/formats/table_file.h"
#include "host/bulk/finding_json.h"
#include "platform/ascii.h"
#include "platform/native_path.h"
#include "platform/table_file.h"

namespace kelvane::host {

using platform::ColumnUse;
using platform::NumberCell;
using platform::TableCell;
using platform::TableFileSheet;
using platform::TextCell;
using Json = nlohmann::ordered_json;

namespace {

constexpr std::string_view kJsonExtension = ".json";
constexpr int kNarrow = 16;
constexpr int kMiddle = 24;
constexpr int kWide = 60;

struct Count {
    const char* key;
    const char* title;
    std::size_t ImportReport::*count;
};
constexpr std::array kCounts{
    Count{"rows", "行数", &ImportReport::rows},
    Count{"new", "新增", &ImportReport::added},
    Count{"changed", "修改", &ImportReport::changed},
    Count{"deleted", "删除", &ImportReport::deleted},
    Count{"unchanged", "未变", &ImportReport::unchanged},
    Count{"refused", "拒绝", &ImportReport::refused},
};

Json JsonOf(const std::optional<platform::Money>& amount) {
    return amount ? Json(amount->ToText()) : Json();
}

Json BudgetsOf(const ImportReport& report) {
    Json all = Json::array();
    for (const entries::BudgetUse& each : report.budgets) {
        all.push_back({{"item", each.itemCode},
                       {"itemName", each.itemName},
                       {"element", each.elementName},
                       {"budget", JsonOf(each.budget)},
                       {"before", each.before.ToText()},
                       {"after", JsonOf(each.after)}});
    }
    return all;
}

TableCell AmountCell(int column, const std::optional<platform::Money>& amount) {
    return amount ? NumberCell(column, amount->ToText()) : TextCell(column, "超出金额范围");
}

TableFileSheet ResultSheet(const ImportReport& report) {
    TableFileSheet sheet;
    sheet.name = "结果";
    sheet.columns = {{.title = "项目", .width = kNarrow, .choices = {}},
                     {.title = "内容", .use = ColumnUse::Anything, .width = kWide, .choices = {}}};
    const auto add = [&sheet](const char* title, TableCell content) {
        sheet.rows.push_back({TextCell(1, title), std::move(content)});
    };
    add("账套", TextCell(2, report.account));
    add("文件", TextCell(2, report.file));
    add("时间", platform::DateCell(2, report.time));
    add("操作员", TextCell(2, report.operatorName));
    add("方式", TextCell(2, report.dryRun ? "试导入" : "导入"));
    for (const Count& each : kCounts) {
        add(each.title, NumberCell(2, std::to_string(report.*each.count)));
    }
    add("未结转期初合计", AmountCell(2, report.sum));
    add("批次",
        report.batch ? NumberCell(2, std::to_string(*report.batch)) : TextCell(2, "没有写入"));
    return sheet;
}

// What was found, and below it what is no fault, which has no rule.
TableFileSheet FindingSheet(const ImportReport& report) {
    TableFileSheet sheet;
    sheet.name = "问题";
    sheet.columns = {
        {.title = "位置", .width = kMiddle, .choices = {}},
        {.title = "行", .use = ColumnUse::Number, .width = kNarrow, .choices = {}},
        {.title = "列", .width = kNarrow, .choices = {}},
        {.title = "规则", .width = kMiddle, .choices = {}},
        {.title = "内容", .width = kWide, .choices = {}},
    };
    for (const entries::PlacedFinding& each : report.findings) {
        auto& row = sheet.rows.emplace_back();
        row.push_back(TextCell(1, each.place));
        if (each.row > 0) row.push_back(NumberCell(2, std::to_string(each.row)));
        row.push_back(TextCell(3, each.title));
        row.push_back(TextCell(4, std::string(each.finding.id)));
        row.push_back(TextCell(5, each.finding.text));
    }
    for (const entries::TableNote& each : report.notes) {
        sheet.rows.push_back({TextCell(1, each.place), TextCell(5, each.text)});
    }
    return sheet;
}

TableFileSheet BudgetSheet(const ImportReport& report) {
    TableFileSheet sheet;
    sheet.name = "预算";
    for (const char* title : {"项目编号", "项目名称", "要素"}) {
        sheet.columns.push_back({.title = title, .width = kMiddle, .choices = {}});
    }
    for (const char* title : {"预算", "导入前", "导入后"}) {
        sheet.columns.push_back(
            {.title = title, .use = ColumnUse::Amount, .width = kNarrow, .choices = {}});
    }
    for (const entries::BudgetUse& each : report.budgets) {
        auto& row = sheet.rows.emplace_back();
        row.push_back(TextCell(1, each.itemCode));
        row.push_back(TextCell(2, each.itemName));
        row.push_back(TextCell(3, each.elementName));
        if (each.budget) row.push_back(NumberCell(4, each.budget->ToText()));
        row.push_back(NumberCell(5, each.before.ToText()));
        row.push_back(AmountCell(6, each.after));
    }
    return sheet;
}

bool IsJsonFile(const std::string& path) {
    const auto extension = platform::PathOf(path).extension();
    return platform::LowerAscii(platform::Utf8Of(extension)) == kJsonExtension;
}

}  // namespace

std::string JsonOf(const ImportReport& report) {
    constexpr int kIndent = 2;
    Json object = {{"account", report.account},
                   {"file", report.file},
                   {"time", report.time.FullText()},
                   {"operator", report.operatorName},
                   {"dryRun", report.dryRun}};
    for (const Count& each : kCounts) object[each.key] = report.*each.count;
    object["sum"] = JsonOf(report.sum);
    object["findings"] = JsonOf(report.findings);
    object["notes"] = JsonOf(report.notes);
    object["budgets"] = BudgetsOf(report);
    object["batch"] = report.batch ? Json(*report.batch) : Json();
    return object.dump(kIndent, ' ', false, Json::error_handler_t::replace);
}

bool IsReportFile(const std::string& path) {
    return IsJsonFile(path) || output::TableFormatOf(path) == output::TableFormat::Workbook;
}

void WriteReport(const std::string& path, const ImportReport& report) {
    if (!IsReportFile(path)) {
        throw output::FileFailure(path + ": the name must end in one of these: .xlsx, .json");
    }
    if (!IsJsonFile(path)) {
        output::WriteTableFile(
            path, {{ResultSheet(report), FindingSheet(report), BudgetSheet(report)}, {}});
        return;
    }
    output::SafeFile file(path);
    file.Write(JsonOf(report) + "\n");
    file.Finish();
}

}  // namespace kelvane::host
