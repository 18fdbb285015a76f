// EntryRecord: an entry with its detail lines as the account keeps both; how such records are read,
// and how two of them are told to be the same.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "entries/detail_line.h"
#include "entries/entry.h"

namespace kelvane::entries {

struct EntryRecord {
    Entry entry;
    std::string elementCode;
    std::vector<DetailLine> lines;
};

// The names of the account's elements by their codes, over gConn. Errors are thrown.
std::map<std::string, std::string> ReadElementNames();

using EntryRecords = std::map<std::int32_t, EntryRecord>;

// All entries of the account by their identities, over gConn. Errors are thrown.
EntryRecords ReadEntryRecords();

// The entry of that identity, without its element's name, held until the transaction on gConn ends;
// none when there is none.
std::optional<EntryRecord> ReadHeldRecord(std::int32_t identity);

// 16 hexadecimal digits that are the same for records of the same content, whatever the order of
// their lines. Blanks at the ends of texts do not count; the identity does not belong to it.
std::string CheckValueOf(const EntryRecord& record);

}  // namespace kelvane::entries
