// The statements that write an entry, for whoever opens the transaction around them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "entries/entry.h"
#include "platform/database.h"
#include "platform/statement_text.h"

namespace kelvane::entries {

platform::StatementText InsertionOf(const Entry& entry, const std::string& elementCode);
platform::StatementText DeletionOf(std::int32_t identity);
platform::StatementText LinesDeletionOf(std::int32_t identity);

// The stored entry, held until the transaction ends, for reading and changing; at its end when
// there is none. Over gConn; errors are thrown.
std::unique_ptr<platform::RecordSet> OpenHeldEntry(std::int32_t identity);
// Sets the fields of such an entry; the database sees them at Update().
void SetFields(platform::RecordSet& stored, const Entry& entry, const std::string& elementCode);

}  // namespace kelvane::entries
