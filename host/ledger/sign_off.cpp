#include "host/ledger/sign_off.h"

#include <array>
#include <map>
#include <utility>

#include "adapters/output/files/safe_file.h"
#include "adapters/output/formats/table_export.h"
#include "adapters/output/layout/ruled_measurer.h"
#include "data/login_context.h"
#include "platform/native_path.h"

namespace kelvane::host {

using output::Document;
using output::DocumentPart;
using platform::Batch;
using platform::BatchOutcome;
using platform::ColumnAlignment;

namespace {

constexpr const char* kTitle = "期初核对签字表";
constexpr int kMargin = 120;
constexpr int kBodySize = 75;
constexpr int kSignatureHeight = 130;

// `width`: in tenths of a millimetre.
platform::ColumnText Column(std::string title, int width,
                            ColumnAlignment alignment = ColumnAlignment::Left) {
    constexpr int kTwipsPerInch = 1440;
    constexpr int kTenthsPerInch = 254;
    return {.title = std::move(title),
            .width = width * kTwipsPerInch / kTenthsPerInch,
            .alignment = alignment};
}

DocumentPart HeadPart(const SignOff& content) {
    DocumentPart part;
    part.hasTitles = false;
    part.columns = {Column("", 180), Column("", 830), Column("", 250), Column("", 600)};
    part.rows = {
        {"单位", data::gUnitName, "年度", data::gAccountYear},
        {"操作员", data::gOperatorName, "日期", content.time.DateText('-')},
        {"账套", content.account, "", ""},
        {"期初笔数", std::to_string(content.entries), "未结转期初合计", content.sum.DisplayText()},
    };
    return part;
}

std::string StateOf(const Batch& batch) {
    if (batch.running) return "正在进行";
    if (batch.neverBegun) return "没有开始";
    if (!batch.problem.empty()) return "已损坏";
    if (!batch.outcome) return "没有完成";
    switch (*batch.outcome) {
        case BatchOutcome::Written:
            return "已写入";
        case BatchOutcome::NotWritten:
            return "没有写入";
        case BatchOutcome::InDoubt:
            break;
    }
    return "不能确定";
}

std::string FileNameOf(const std::string& path) {
    return platform::Utf8Of(platform::PathOf(path).filename());
}

void AddBatch(DocumentPart& part, const Batch& batch) {
    constexpr std::size_t kToTheSecond = 19;
    const auto& intent = batch.intent;
    const bool isUndo = intent.undoes != 0;
    const std::string number = std::to_string(batch.number);
    const std::string time =
        intent.kind.empty() ? std::string() : intent.time.FullText().substr(0, kToTheSecond);
    part.rows.push_back(
        {number, time, intent.user,
         isUndo ? "撤销批次 " + std::to_string(intent.undoes) : FileNameOf(intent.file),
         intent.hash, std::to_string(batch.counts.created), std::to_string(batch.counts.changed),
         std::to_string(batch.counts.deleted), StateOf(batch)});
    if (intent.linesFile.empty()) return;
    part.rows.push_back(
        {number, "", "", FileNameOf(intent.linesFile), intent.linesHash, "", "", "", ""});
}

DocumentPart BatchPart(const std::vector<Batch>& batches) {
    DocumentPart part;
    part.heading = "导入批次";
    if (batches.empty()) part.heading += "：没有";
    part.columns = {Column("批次", 80),
                    Column("时间", 170),
                    Column("操作员", 105),
                    Column("文件", 150),
                    Column("文件校验值（SHA-256）", 1000),
                    Column("新增", 75, ColumnAlignment::Right),
                    Column("修改", 75, ColumnAlignment::Right),
                    Column("删除", 75, ColumnAlignment::Right),
                    Column("结果", 130)};
    for (const Batch& batch : batches) AddBatch(part, batch);
    return part;
}

DocumentPart LedgerPart(const TieOutReport* report) {
    DocumentPart part;
    part.heading = "与总账的未结差异";
    part.columns = {Column("科目", 150),
                    Column("科目名称", 360),
                    Column("结果", 210),
                    Column("可能的期初编号", 210),
                    Column("总账余额", 270, ColumnAlignment::Right),
                    Column("期初笔数", 130, ColumnAlignment::Right),
                    Column("期初合计", 270, ColumnAlignment::Right),
                    Column("差额", 260, ColumnAlignment::Right)};
    if (report == nullptr) {
        part.heading += "：没有与总账核对";
        return part;
    }
    const entries::TieOut& result = report->result;
    part.rows = FigureTableOf(result, true).rows;
    part.heading += "（余额表 " + FileNameOf(report->trialFile) + "，科目 " +
                    std::to_string(result.rows.size()) + " 个，不符 " +
                    std::to_string(result.Differing()) + " 个，未对应期初 " +
                    std::to_string(result.unmapped.size()) + " 笔，未对应科目 " +
                    std::to_string(result.unmappedAccounts.size()) + " 个）";
    if (part.rows.empty()) part.heading += "：没有";
    return part;
}

DocumentPart RulePart(const entries::CheckResult& check) {
    DocumentPart part;
    part.heading = "检查结果：错误 " + std::to_string(check.errors) + "，警告 " +
                   std::to_string(check.warnings);
    part.columns = {Column("规则", 400), Column("级别", 160), Column("内容", 1100),
                    Column("个数", 200, ColumnAlignment::Right)};
    std::map<std::string_view, std::size_t> counts;
    for (const entries::CheckFinding& each : check.findings) ++counts[each.finding.id];
    for (const entries::CheckRule& rule : entries::CheckRules()) {
        const auto count = counts.find(rule.id);
        if (count == counts.end()) continue;
        part.rows.push_back({std::string(rule.id), rule.warning ? "警告" : "错误",
                             std::string(rule.title), std::to_string(count->second)});
    }
    return part;
}

DocumentPart ErrorPart(const entries::CheckResult& check) {
    DocumentPart part;
    part.heading = "检查发现的错误";
    constexpr std::array kWidths{150, 130, 330, 220, 1030};
    const auto titles = entries::CheckTitles();
    for (std::size_t column = 0; column < titles.size(); ++column) {
        part.columns.push_back(Column(titles[column], kWidths.at(column)));
    }
    for (const entries::CheckFinding& each : check.findings) {
        if (!entries::IsWarning(each.finding.rule)) part.rows.push_back(CheckTexts(each));
    }
    return part;
}

DocumentPart SignaturePart() {
    DocumentPart part;
    part.heading = "签字";
    part.columns = {Column("", 260), Column("签字", 1000), Column("日期", 600)};
    part.rows = {{"编制", "", ""}, {"复核", "", ""}, {"批准", "", ""}};
    part.rowHeight = kSignatureHeight;
    part.whole = true;
    return part;
}

}  // namespace

Document SignOffDocument(const SignOff& content) {
    Document document;
    document.title = kTitle;
    auto& settings = document.settings;
    settings.marginLeft = settings.marginRight = kMargin;
    settings.headSize = settings.bodySize = kBodySize;
    document.parts = {HeadPart(content), BatchPart(content.batches), LedgerPart(content.tieOut),
                      RulePart(content.check)};
    if (content.check.errors > 0) document.parts.push_back(ErrorPart(content.check));
    document.parts.push_back(SignaturePart());
    // What there is nothing of is said by its heading.
    for (DocumentPart& part : document.parts) part.hasTitles = part.hasTitles && !part.rows.empty();
    return document;
}

void WriteSignOff(const std::string& path, const SignOff& content) {
    output::RuledMeasurer measurer;
    const output::DocumentPages pages(SignOffDocument(content), measurer);
    output::Export data;
    data.title = pages.Title();
    data.pages = [&]() -> const platform::PageSource& { return pages; };
    output::SafeFile file(path);
    output::WritePdf(data, file);
    file.Finish();
}

}  // namespace kelvane::host
