// Brings a table's cells into the texts that an operator would type. What cannot be told for
// certain is refused: a code that went through a spreadsheet's numbers has lost its zeros, and
// nobody knows how many.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "entries/bulk/table_shape.h"
#include "entries/rules.h"
#include "platform/table.h"

namespace kelvane::entries {

// The code of a column that a number may have been, when there is one alone.
using CodeProposal = std::function<std::optional<std::string>(int column, std::string_view number)>;

// The one of `codes` that is `number` as a number; none when there are several. Of a number that is
// too long for a spreadsheet as many digits are compared as it keeps.
std::optional<std::string> OnlyCodeOf(std::string_view number, std::span<const std::string> codes);

// An amount as it is written: grouped by thousands or not, with a currency sign, in wide
// characters. Nothing for a text that is none, or is grouped or pointed in another way ("1.234,50",
// "12,34"), which may be another amount.
std::optional<std::string> AmountText(std::string_view text);

// The text of `cell`, which is blank for one that is not there, or what is wrong with it. `typed`:
// whether the table tells numbers from texts.
std::variant<std::string, Finding> TextOfCell(const platform::TableCell& cell,
                                              const TableColumn& column, Rule noNumber, bool typed,
                                              const CodeProposal& propose);

}  // namespace kelvane::entries
