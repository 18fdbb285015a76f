// One cell of a sheet, put together from what its element says.
#pragma once

#include <string>
#include <string_view>

#include "adapters/tables/sheet_reader.h"
#include "adapters/tables/string_items.h"
#include "platform/table.h"

namespace kelvane::tables {

// How a cell's value is to be taken.
enum class ValueKind { Number, Shared, Text, Inline, Boolean, Error, Iso8601 };

// Throws Refusal for a kind that is not known.
ValueKind FindValueKind(std::string_view name);

struct SheetCell {
    ValueKind kind = ValueKind::Number;
    int style = 0;
    bool hasFormula = false;
    bool hasValue = false;
    std::string value;

    // Makes `cell` of it; blank where there is nothing. Throws Refusal.
    void Make(const WorkbookContent& content, platform::TableCell& cell);

private:
    void MakeNumber(const WorkbookContent& content, platform::TableCell& cell);
};

}  // namespace kelvane::tables
