#include "entries/ledger/tie_out_texts.h"

#include <algorithm>
#include <utility>

namespace kelvane::entries {

namespace {

TieOutOutcome OutcomeOf(const TieOutRow& row) {
    if (row.difference.IsZero()) return TieOutOutcome::Agrees;
    return row.ledger ? TieOutOutcome::Differs : TieOutOutcome::LedgerLacksAccount;
}

const char* NameOf(TieOutOutcome outcome) {
    switch (outcome) {
        case TieOutOutcome::Agrees:
            return "相符";
        case TieOutOutcome::Differs:
            return "不符";
        case TieOutOutcome::LedgerLacksAccount:
            return "总账没有此科目";
        case TieOutOutcome::UnmappedEntry:
            return "未对应期初";
        case TieOutOutcome::UnmappedAccount:
            break;
    }
    return "未对应科目";
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

}  // namespace

std::vector<std::string> TieOutTitles() {
    return {"科目",     "科目名称", "结果",     "可能的期初编号",
            "总账余额", "期初笔数", "期初合计", "差额"};
}

std::vector<TieOutLine> TieOutLines(const TieOut& result) {
    std::vector<TieOutLine> lines;
    for (std::size_t at = 0; at < result.rows.size(); ++at) {
        const TieOutRow& row = result.rows[at];
        const TieOutOutcome outcome = OutcomeOf(row);
        lines.push_back({outcome,
                         at,
                         {row.account, row.name, NameOf(outcome), IdentitiesOf(row.candidates),
                          row.ledger ? row.ledger->DisplayText() : std::string(),
                          std::to_string(row.identities.size()), row.entriesSum.DisplayText(),
                          row.difference.DisplayText()}});
    }
    for (std::size_t at = 0; at < result.unmapped.size(); ++at) {
        const UnmappedEntry& each = result.unmapped[at];
        const TieOutOutcome outcome = TieOutOutcome::UnmappedEntry;
        lines.push_back({outcome,
                         at,
                         {"", CodesOf(each), NameOf(outcome), std::to_string(each.identity), "",
                          "1", each.amount.DisplayText(), ""}});
    }
    for (std::size_t at = 0; at < result.unmappedAccounts.size(); ++at) {
        const TrialLine& each = result.unmappedAccounts[at];
        const TieOutOutcome outcome = TieOutOutcome::UnmappedAccount;
        lines.push_back({outcome,
                         at,
                         {each.account, each.name, NameOf(outcome), "", each.amount.DisplayText(),
                          "", "", ""}});
    }
    return lines;
}

}  // namespace kelvane::entries
