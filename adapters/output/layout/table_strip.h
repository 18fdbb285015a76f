// TableStrip: the part of a table that stands on one page, row under row, with its lines.
#pragma once

#include "adapters/output/layout/table_columns.h"
#include "adapters/output/layout/table_rows.h"
#include "platform/page.h"

namespace kelvane::output {

class TableStrip {
public:
    // Both outlive the strip; `group` is not empty. The strip begins with a line at `top`.
    TableStrip(platform::Page& page, const ColumnGroup& group, int top);

    // The lower end of the rows so far.
    int End() const { return mEnd; }

    // The columns' titles, which `rows` has read, with so many lines.
    void AppendTitles(const TableRows& rows, int lines);
    // `lines` lines of the row that `rows` has read, from `firstLine` on, at least `height` high.
    void AppendRow(const TableRows& rows, int firstLine, int lines, int height = 0);
    // The lines between the columns.
    void Close();

private:
    int Left() const { return mGroup.front().left; }
    int Right() const { return mGroup.back().left + mGroup.back().width; }
    void Rule(int at) { mPage.lines.push_back({Left(), at, Right(), at}); }
    void AppendCells(const TableRows& rows, int firstLine, int lines, bool titles);

    platform::Page& mPage;
    const ColumnGroup& mGroup;
    int mTop;
    int mEnd;
};

}  // namespace kelvane::output
