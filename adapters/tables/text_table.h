// A text of separated fields as a table: a file that was written as csv, or the clipboard's text.
// Every cell is a text; rows are told by the line of the text in which they begin.
#pragma once

#include <memory>
#include <string>

#include "adapters/tables/byte_source.h"
#include "adapters/tables/text_decoder.h"
#include "platform/table.h"

namespace kelvane::tables {

// `name` is what places call the table by. Throws Refusal.
std::unique_ptr<platform::TableReader> ReadTextTable(std::unique_ptr<ByteSource> source,
                                                     std::string name, TextEncoding encoding);

// The same of what was copied: with a tab in it the tab parts its fields.
std::unique_ptr<platform::TableReader> ReadCopiedTable(std::unique_ptr<ByteSource> source,
                                                       std::string name);

}  // namespace kelvane::tables
