#include "host/ledger/ledger_files.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "adapters/tables/open_table.h"
#include "entries/bulk/account_choices.h"
#include "host/surroundings/batch_folder.h"
#include "host/surroundings/translation.h"
#include "platform/native_path.h"

namespace kelvane::host {

namespace fs = std::filesystem;
using entries::MapReading;
using entries::TrialReading;

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

std::string MapFileOf(const AccountPlace& account) {
    const fs::path place = account.IsOnServer() ? MapPlaceOfServer(account.ConnectionString())
                                                : MapPlaceOfFile(account.Name());
    fs::path workbook = place;
    workbook += ".xlsx";
    fs::path text = place;
    text += ".csv";
    std::error_code unknown;
    const bool isText = !fs::exists(workbook, unknown) && fs::exists(text, unknown);
    return platform::Utf8Of(isText ? text : workbook);
}

LedgerFiles ReadLedgerFiles(const std::string& trial, const std::string& map) {
    const auto trialTable = tables::OpenTable(trial);
    std::error_code unknown;
    if (!fs::exists(platform::PathOf(map), unknown)) {
        throw std::runtime_error(
            Told("there is no mapping %1: a table with the columns 科目, 项目编号, 要素 and "
                 "责任中心 that says which account of the ledger stands for which entries",
                 {map}));
    }
    const auto mapTable = tables::OpenTable(map);
    TrialReading ledger = entries::ReadTrialBalance(*trialTable, {});
    const auto accounts = AccountsOf(ledger.trial);
    entries::AccountProposals proposals;
    const auto ofEntries = proposals.ForEntries();
    MapReading mapping =
        entries::ReadLedgerMap(*mapTable, [&](int column, std::string_view number) {
            return column == entries::kLedgerAccountColumn ? entries::OnlyCodeOf(number, accounts)
                                                           : ofEntries(column, number);
        });
    // The mapping knows accounts that the trial balance has as numbers.
    if (!ledger.findings.empty()) {
        ledger = entries::ReadTrialBalance(*trialTable, AccountsOf(mapping.map));
    }
    return {.trial = std::move(ledger.trial),
            .map = std::move(mapping.map),
            .findings = Joined(std::move(ledger.findings), std::move(mapping.findings)),
            .notes = Joined(std::move(ledger.notes), std::move(mapping.notes))};
}

}  // namespace kelvane::host
