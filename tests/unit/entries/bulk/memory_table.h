// A table in memory, as a workbook would give it.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/table.h"

namespace kelvane::entries_test {

using platform::CellKind;
using platform::TableCell;

inline TableCell Text(std::string text) {
    const CellKind kind = text.empty() ? CellKind::Blank : CellKind::Text;
    return {0, kind, std::move(text), {}};
}
inline TableCell Number(std::string digits) {
    return {0, CellKind::Number, std::move(digits), {}};
}
inline TableCell Date(platform::DateTime date, std::string number = "1") {
    return {0, CellKind::Date, std::move(number), date};
}

class MemoryTable : public platform::TableReader {
public:
    struct Sheet {
        std::vector<platform::TableRow> rows;
        std::vector<platform::CellRange> merged;
    };

    MemoryTable() = default;
    explicit MemoryTable(const std::string& sheet) { AddSheet(sheet); }

    // The sheet that is added last gets the rows.
    MemoryTable& AddSheet(const std::string& name, bool hidden = false) {
        mNames.push_back({name, hidden});
        mSheets.emplace_back();
        return *this;
    }

    // The next row; `number` leaves rows out.
    MemoryTable& Add(std::vector<TableCell> cells, int number = 0, bool hidden = false) {
        auto& rows = mSheets.back().rows;
        if (number == 0) number = rows.empty() ? 1 : rows.back().number + 1;
        platform::TableRow row{number, number, hidden, {}};
        int column = 0;
        for (TableCell& cell : cells) {
            cell.column = ++column;
            if (cell.kind != CellKind::Blank) row.cells.push_back(std::move(cell));
        }
        rows.push_back(std::move(row));
        return *this;
    }

    MemoryTable& AddTexts(const std::vector<std::string>& texts, int number = 0) {
        std::vector<TableCell> cells;
        for (const std::string& text : texts) cells.push_back(Text(text));
        return Add(std::move(cells), number);
    }

    MemoryTable& Merge(const platform::CellRange& range) {
        mSheets.back().merged.push_back(range);
        return *this;
    }

    const std::vector<platform::TableSheet>& Sheets() const override { return mNames; }
    bool HasTypedCells() const override { return typed; }

    std::vector<platform::CellRange> Read(
        std::size_t sheet, const std::function<bool(const platform::TableRow&)>& take) override {
        for (const auto& row : mSheets.at(sheet).rows) {
            if (!row.cells.empty() && !take(row)) return {};
        }
        return mSheets.at(sheet).merged;
    }

    std::string Place(std::size_t sheet, int row, int column,
                      std::string_view title) const override {
        return mNames.at(sheet).name + "!" + std::to_string(row) + ":" + std::to_string(column) +
               ":" + std::string(title);
    }

    bool typed = true;

private:
    std::vector<platform::TableSheet> mNames;
    std::vector<Sheet> mSheets;
};

}  // namespace kelvane::entries_test
