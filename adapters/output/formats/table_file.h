// Writes a file of tables, whole or not at all: a workbook (.xlsx), or one table as text (.csv).
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "adapters/output/files/safe_file.h"
#include "platform/table_file.h"

namespace kelvane::output {

enum class TableFormat { Workbook, Text };

// The format of a file (UTF-8) by its extension, whatever the case; none when it is not written.
std::optional<TableFormat> TableFormatOf(std::string_view path);

// Puts `file` in the place of `path` (UTF-8). A text has room for one sheet alone, without
// properties. Numbers of more digits than a spreadsheet keeps are written as texts; in a
// text a number among codes has an exponent, by which it is told from one. Throws
// FileFailure, also for an extension that is not written or has no room for the file.
void WriteTableFile(const std::string& path, const platform::TableFile& file,
                    Disk& disk = SystemDisk());

// The place among the sheet's columns, from 0. Throws std::out_of_range.
std::size_t PlaceOf(const platform::TableFileSheet& sheet, const platform::TableCell& cell);

// The draft of it, without SafeFile::Finish().
void WriteTableWorkbook(const platform::TableFile& tables, SafeFile& file);
void WriteTableText(const platform::TableFileSheet& sheet, SafeFile& file);

}  // namespace kelvane::output
