// What entries can be summed up by.
#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace kelvane::entries {

enum class SummaryField { Item, Element, Center, Keyword, Month };

struct DeclaredSummaryField {
    SummaryField field;
    std::string_view name;     // in arguments and JSON: "item"
    std::string_view caption;  // where an operator chooses it: "项目"
    std::string_view codeTitle;
    std::string_view nameTitle;  // empty: its codes have no names
};

// By their values.
std::span<const DeclaredSummaryField> DeclaredSummaryFields();
const DeclaredSummaryField& Declared(SummaryField field);

// "item,element": by the names of the fields, in their order. Throws std::invalid_argument for a
// name that is unknown or stands twice; an empty text is no field, the grand total alone.
std::vector<SummaryField> SummaryFieldsOf(std::string_view names);

}  // namespace kelvane::entries
