#include "entries/ledger/ledger_reading.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "entries/bulk/account_choices.h"

namespace kelvane::entries {

namespace {

template <typename Lines>
std::vector<std::string> AccountsOf(const Lines& lines) {
    std::vector<std::string> accounts;
    accounts.reserve(lines.size());
    for (const auto& line : lines) accounts.push_back(line.account);
    std::ranges::sort(accounts);
    accounts.erase(std::unique(accounts.begin(), accounts.end()), accounts.end());
    return accounts;
}

// `first`, then `second`.
template <typename Each>
std::vector<Each> Joined(std::vector<Each> first, std::vector<Each> second) {
    std::ranges::move(second, std::back_inserter(first));
    return first;
}

}  // namespace

LedgerTables ReadLedgerTables(platform::TableReader& trial, platform::TableReader& map) {
    TrialReading ledger = ReadTrialBalance(trial, {});
    const auto accounts = AccountsOf(ledger.trial);
    AccountProposals proposals;
    const auto ofEntries = proposals.ForEntries();
    MapReading mapping = ReadLedgerMap(map, [&](int column, std::string_view number) {
        return column == kLedgerAccountColumn ? OnlyCodeOf(number, accounts)
                                              : ofEntries(column, number);
    });
    // The mapping knows accounts that the trial balance has as numbers.
    if (!ledger.findings.empty()) ledger = ReadTrialBalance(trial, AccountsOf(mapping.map));
    return {.trial = std::move(ledger.trial),
            .map = std::move(mapping.map),
            .findings = Joined(std::move(ledger.findings), std::move(mapping.findings)),
            .notes = Joined(std::move(ledger.notes), std::move(mapping.notes))};
}

}  // namespace kelvane::entries
