#include "entries/ledger/tie_out.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

#include "data/login_context.h"
#include "entries/ledger/code_pattern.h"
#include "entries/summary/summed_entries.h"
#include "platform/database.h"

namespace kelvane::entries {

namespace {

// What an entry is tied out by.
struct TiedEntry {
    std::int64_t identity = 0;
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
        const platform::Snapshot snapshot(*data::gConn);
        ReadEntries();
        for (TieOutRow& row : mResult.rows) {
            row.difference = row.ledger.value_or(ExactSum()) - row.entriesSum;
        }
        FindCandidates();
        std::ranges::sort(mResult.unmapped, {}, &UnmappedEntry::identity);
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
    std::optional<std::size_t> RowOf(const SummaryValue& item, const SummaryValue& element,
                                     const SummaryValue& center) const;
    void FindCandidates();

    const LedgerMap& mMap;
    TieOut mResult;
    std::map<std::string, std::size_t> mRows;  // by account
    std::vector<TiedEntry> mEntries;
};

void TieOutMaking::ReadEntries() {
    constexpr std::array kFields{SummaryField::Item, SummaryField::Element, SummaryField::Center};
    const SummedEntries summed = ReadSummedEntries(kFields);
    // Entries of the same keys stand one behind the other.
    const std::vector<std::string>* keys = nullptr;
    std::optional<std::size_t> found;
    for (const SummedEntry& each : summed.entries) {
        const auto value = [&](std::size_t field) -> const SummaryValue& {
            return summed.values[field].at(each.keys[field]);
        };
        if (keys == nullptr || each.keys != *keys) found = RowOf(value(0), value(1), value(2));
        keys = &each.keys;
        const ExactSum amount(each.amount);
        mEntries.push_back({each.identity, amount, found});
        if (found) {
            TieOutRow& row = mResult.rows[*found];
            row.entriesSum += amount;
            row.identities.push_back(each.identity);
        } else {
            const std::string& element = value(1).name.empty() ? value(1).code : value(1).name;
            mResult.unmapped.push_back(
                {each.identity, value(0).code, element, value(2).code, amount});
            mResult.unmappedSum += amount;
        }
    }
}

std::optional<std::size_t> TieOutMaking::RowOf(const SummaryValue& item,
                                               const SummaryValue& element,
                                               const SummaryValue& center) const {
    const auto line = std::ranges::find_if(mMap, [&](const MappedAccount& each) {
        const bool isElement =
            Covers(each.element, element.code) || Covers(each.element, element.name);
        return isElement && Covers(each.item, item.code) && Covers(each.center, center.code);
    });
    return line == mMap.end() ? std::nullopt : std::optional(mRows.at(line->account));
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
    for (TieOutRow& row : mResult.rows) {
        std::ranges::sort(row.identities);
        std::ranges::sort(row.candidates);
    }
}

}  // namespace

bool TieOut::Agrees() const {
    return Differing() == 0 && unmapped.empty() && unmappedAccounts.empty();
}

std::size_t TieOut::Differing() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(rows, [](const TieOutRow& row) { return !row.difference.IsZero(); }));
}

TieOut TieOutAccount(const TrialBalance& trial, const LedgerMap& map) {
    return TieOutMaking(trial, map).Run();
}

}  // namespace kelvane::entries
