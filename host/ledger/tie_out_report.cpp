#include "host/ledger/tie_out_report.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "entries/ledger/tie_out_texts.h"
#include "host/bulk/finding_json.h"

namespace kelvane::host {

using entries::TieOut;
using entries::TieOutRow;
using entries::TrialLine;
using entries::UnmappedEntry;
using Json = nlohmann::ordered_json;

namespace {

Json RowsOf(const TieOut& result) {
    Json rows = Json::array();
    for (const TieOutRow& row : result.rows) {
        rows.push_back({{"account", row.account},
                        {"name", row.name},
                        {"ledger", row.ledger ? Json(row.ledger->FixedText()) : Json()},
                        {"entries", row.entriesSum.FixedText()},
                        {"count", row.identities.size()},
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
    table.title = entries::kTieOutTitle;
    table.titles = entries::TieOutTitles();
    table.textColumns = entries::kTieOutTextColumns;
    for (entries::TieOutLine& line : entries::TieOutLines(result)) {
        if (open && line.outcome == entries::TieOutOutcome::Agrees) continue;
        table.rows.push_back(std::move(line.texts));
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
