// Tables of figures in files, each by its extension: a workbook, a text, or pages.
#pragma once

#include <string>

#include "host/bulk/figure_table.h"

namespace kelvane::host {

// Whether such a table is written to a file of that name on any system: .xlsx, .csv, .pdf.
bool IsFigureFile(const std::string& path);
bool IsPdfFile(const std::string& path);

// Puts `table` in the place of `path` (UTF-8). On pages unit, year, operator and date of the login
// stand above it. Throws output::FileFailure, also where the system does not write that format.
void WriteFigureFile(const std::string& path, const FigureTable& table);

}  // namespace kelvane::host
