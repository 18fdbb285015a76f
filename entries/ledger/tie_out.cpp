#include "entries/ledger/tie_out.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

#include "data/login_context.h"
#include "data/text_conversion.h"
#include "entries/entry_record.h"
#include "entries/ledger/code_pattern.h"
#include "platform/statement_text.h"

namespace kelvane::entries {

namespace {

// What an entry is tied out by.
struct TiedEntry {
    std::int32_t identity = 0;
    ExactSum amount;
    std::optional<std::size_t> row;  // of the result; none: no line covers it
};

class TieOutMaking {
public:
    TieOutMaking(const TrialBalance& trial, const LedgerMap& map) : mMap(map) {
        std::map<std::string, std::size_t> rows;
        for (const MappedAccount& each : map) rows.emplace(each.account, 0);
        for (const TrialLine& each : trial) {
            const auto mapped = rows.find(each.account);
            if (mapped != rows.end()) {
                AddRow(each.account, each.name, each.amount);
            } else if (!each.amount.IsZero()) {
                mResult.unmappedAccounts.push_back(each);
            }
        }
        for (const MappedAccount& each : map) {
            if (!mRows.contains(each.account)) AddRow(each.account, {}, {});
        }
    }

    TieOut Run() {
        ReadEntries();
        for (TieOutRow& row : mResult.rows) {
            row.difference = row.ledger.value_or(ExactSum()) - row.entriesSum;
        }
        FindCandidates();
        std::ranges::sort(mResult.unmapped);
        return std::move(mResult);
    }

private:
    void AddRow(const std::string& account, const std::string& name,
                const std::optional<ExactSum>& ledger) {
        mRows.emplace(account, mResult.rows.size());
        TieOutRow& row = mResult.rows.emplace_back();
        row.account = account;
        row.name = name;
        row.ledger = ledger;
    }

    void ReadEntries();
    std::optional<std::size_t> RowOf(const std::string& item, const std::string& element,
                                     const std::string& center);
    void FindCandidates();

    const LedgerMap& mMap;
    TieOut mResult;
    std::map<std::string, std::size_t> mRows;  // by account
    std::map<std::string, std::string> mElements;
    std::vector<TiedEntry> mEntries;
    std::map<std::tuple<std::string, std::string, std::string>, std::optional<std::size_t>> mKnown;
};

void TieOutMaking::ReadEntries() {
    mElements = ReadElementNames();
    const auto entries = data::gConn->OpenRecordSet(platform::StatementText(
        "select iEleVid,cCenterCode,cItemCode,cElementCode,mQC from PM_ItemQC"));
    for (; !entries->EndOfFile(); entries->MoveNext()) {
        const auto text = [&](const char* field) { return entries->Field(field).ToText(); };
        const TiedEntry entry{
            .identity = static_cast<std::int32_t>(entries->Field("iEleVid").ToInteger()),
            .amount = ExactSum(entries->Field("mQC").ToMoney()),
            .row = RowOf(text("cItemCode"), text("cElementCode"), text("cCenterCode"))};
        if (entry.row) {
            TieOutRow& row = mResult.rows[*entry.row];
            row.entriesSum += entry.amount;
            ++row.entries;
        } else {
            mResult.unmapped.push_back(entry.identity);
            mResult.unmappedSum += entry.amount;
        }
        mEntries.push_back(entry);
    }
}

std::optional<std::size_t> TieOutMaking::RowOf(const std::string& item, const std::string& element,
                                               const std::string& center) {
    const auto [known, isNew] = mKnown.try_emplace({item, element, center});
    if (!isNew) return known->second;
    const auto name = mElements.find(element);
    const auto line = std::ranges::find_if(mMap, [&](const MappedAccount& each) {
        const bool isElement = Covers(each.element, element) ||
                               (name != mElements.end() && Covers(each.element, name->second));
        return isElement && Covers(each.item, item) && Covers(each.center, center);
    });
    if (line != mMap.end()) known->second = mRows.at(line->account);
    return known->second;
}

// What is missing on one side, entered twice or belongs to another account is often an entry as it
// is, whatever its sign.
void TieOutMaking::FindCandidates() {
    std::map<ExactSum, std::vector<std::size_t>> open;
    for (std::size_t row = 0; row < mResult.rows.size(); ++row) {
        const ExactSum& difference = mResult.rows[row].difference;
        if (difference.IsZero()) continue;
        open[difference].push_back(row);
        open[ExactSum() - difference].push_back(row);
    }
    for (const TiedEntry& entry : mEntries) {
        const auto found = open.find(entry.amount);
        if (found == open.end()) continue;
        for (const std::size_t row : found->second) {
            if (entry.row && *entry.row != row) continue;
            mResult.rows[row].candidates.push_back(entry.identity);
        }
    }
    for (TieOutRow& row : mResult.rows) std::ranges::sort(row.candidates);
}

}  // namespace

bool TieOut::Agrees() const {
    return unmapped.empty() && unmappedAccounts.empty() &&
           std::ranges::all_of(rows, [](const TieOutRow& row) { return row.difference.IsZero(); });
}

TieOut TieOutAccount(const TrialBalance& trial, const LedgerMap& map) {
    return TieOutMaking(trial, map).Run();
}

}  // namespace kelvane::entries
