// A summary of the entries as a table of figures, and as JSON.
#pragma once

#include <string>

#include "entries/summary/summary.h"
#include "host/bulk/figure_table.h"

namespace kelvane::host {

FigureTable FigureTableOf(const entries::Summary& summary);

// One object; amounts are texts with four decimals. Without a line break at its end.
std::string JsonOf(const entries::Summary& summary);

}  // namespace kelvane::host
