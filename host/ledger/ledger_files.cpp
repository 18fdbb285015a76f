#include "host/ledger/ledger_files.h"

#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "adapters/tables/open_table.h"
#include "host/surroundings/translation.h"
#include "platform/native_path.h"

namespace kelvane::host {

entries::LedgerTables ReadLedgerFiles(const std::string& trial, const std::string& map) {
    const auto trialTable = tables::OpenTable(trial);
    std::error_code unknown;
    if (!std::filesystem::exists(platform::PathOf(map), unknown)) {
        throw std::runtime_error(
            Told("there is no mapping %1: a table with the columns 科目, 项目编号, 要素 and "
                 "责任中心 that says which account of the ledger stands for which entries",
                 {map}));
    }
    const auto mapTable = tables::OpenTable(map);
    return entries::ReadLedgerTables(*trialTable, *mapTable);
}

}  // namespace kelvane::host
