#include "host/ledger/tie_out_report.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "host/bulk/finding_json.h"

namespace kelvane::host {

using entries::TieOut;
using entries::TieOutRow;
using entries::TrialLine;
using entries::UnmappedEntry;
using Json = nlohmann::ordered_json;

namespace {

constexpr const char* kTitle = "期初与总账核对";

const char* ResultOf(const TieOutRow& row) {
    if (row.difference.IsZero()) return "相符";
    return row.ledger ? "不符" : "总账没有此科目";
}

std::string IdentitiesOf(const std::vector<std::int64_t>& identities) {
    constexpr std::size_t kMost = 10;
    std::string text;
    for (std::size_t i = 0; i < std::min(identities.size(), kMost); ++i) {
        if (i > 0) text += "、";
        text += std::to_string(identities[i]);
    }
    if (identities.size() > kMost) text += " 等 " + std::to_string(identities.size()) + " 笔";
    return text;
}

std::string CodesOf(const UnmappedEntry& entry) {
    return "项目 " + entry.item + "，要素 " + entry.element + "，责任中心 " + entry.center;
}

Json RowsOf(const TieOut& result) {
    Json rows = Json::array();
    for (const TieOutRow& row : result.rows) {
        rows.push_back({{"account", row.account},
                        {"name", row.name},
                        {"ledger", row.ledger ? Json(row.ledger->FixedText()) : Json()},
                        {"entries", row.entriesSum.FixedText()},
                        {"count", row.entries},
                        {"difference", row.difference.FixedText()},
                        {"candidates", row.candidates}});
    }
    return rows;
}

Json UnmappedOf(const TieOut& result) {
    Json entries = Json::array();
    for (const UnmappedEntry& each : result.unmapped) {
        entries.push_back({{"identity", each.identity},
                           {"item", each.item},
                           {"element", each.element},
                           {"center", each.center},
                           {"amount", each.amount.FixedText()}});
    }
    return entries;
}

Json UnmappedAccountsOf(const TieOut& result) {
    Json accounts = Json::array();
    for (const TrialLine& each : result.unmappedAccounts) {
        accounts.push_back(
            {{"account", each.account}, {"name", each.name}, {"ledger", each.amount.FixedText()}});
    }
    return accounts;
}

}  // namespace

FigureTable FigureTableOf(const TieOut& result, bool open) {
    FigureTable table;
    table.title = kTitle;
    table.titles = {"科目",     "科目名称", "结果",     "可能的期初编号",
                    "总账余额", "期初笔数", "期初合计", "差额"};
    table.textColumns = 4;
    for (const TieOutRow& row : result.rows) {
        if (open && row.difference.IsZero()) continue;
        table.rows.push_back({row.account, row.name, ResultOf(row), IdentitiesOf(row.candidates),
                              row.ledger ? row.ledger->DisplayText() : std::string(),
                              std::to_string(row.entries), row.entriesSum.DisplayText(),
                              row.difference.DisplayText()});
    }
    for (const UnmappedEntry& each : result.unmapped) {
        table.rows.push_back({"", CodesOf(each), "未对应期初", std::to_string(each.identity), "",
                              "1", each.amount.DisplayText(), ""});
    }
    for (const TrialLine& each : result.unmappedAccounts) {
        table.rows.push_back(
            {each.account, each.name, "未对应科目", "", each.amount.DisplayText(), "", "", ""});
    }
    return table;
}

std::string CountsOf(const TieOut& result) {
    const std::size_t differing = result.Differing();
    return "accounts " + std::to_string(result.rows.size()) + ": agreeing " +
           std::to_string(result.rows.size() - differing) + ", differing " +
           std::to_string(differing) + ", uncovered entries " +
           std::to_string(result.unmapped.size()) + ", uncovered accounts " +
           std::to_string(result.unmappedAccounts.size());
}

std::string JsonOf(const TieOutReport& report) {
    constexpr int kIndent = 2;
    const TieOut& result = report.result;
    const Json object = {{"account", report.account},
                         {"trial", report.trialFile},
                         {"map", report.mapFile},
                         {"agrees", report.findings.empty() && result.Agrees()},
                         {"rows", RowsOf(result)},
                         {"unmapped", UnmappedOf(result)},
                         {"unmappedSum", result.unmappedSum.FixedText()},
                         {"unmappedAccounts", UnmappedAccountsOf(result)},
                         {"findings", JsonOf(report.findings)},
                         {"notes", JsonOf(report.notes)}};
    return object.dump(kIndent, ' ', false, Json::error_handler_t::replace);
}

}  // namespace kelvane::host
