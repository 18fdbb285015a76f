#include "adapters/tables/sheet_cell.h"

#include <array>
#include <limits>
#include <utility>

#include "adapters/tables/refusal.h"

namespace kelvane::tables {

using platform::CellKind;
using platform::TableCell;

namespace {

struct KindName {
    std::string_view name;
    ValueKind kind;
};

constexpr std::array kKinds{
    KindName{"", ValueKind::Number},          KindName{"s", ValueKind::Shared},
    KindName{"n", ValueKind::Number},         KindName{"str", ValueKind::Text},
    KindName{"inlineStr", ValueKind::Inline}, KindName{"b", ValueKind::Boolean},
    KindName{"e", ValueKind::Error},          KindName{"d", ValueKind::Iso8601},
};

// Digits, perhaps with a sign, a point and an exponent, as the format has numbers.
bool IsNumber(std::string_view text) {
    std::size_t at = 0;
    const auto digits = [&] {
        const std::size_t begin = at;
        while (at < text.size() && text[at] >= '0' && text[at] <= '9') ++at;
        return at - begin;
    };
    const auto skip = [&](std::string_view any) {
        const bool there = at < text.size() && any.find(text[at]) != std::string_view::npos;
        if (there) ++at;
        return there;
    };
    skip("+-");
    std::size_t count = digits();
    if (skip(".")) count += digits();
    if (count == 0) return false;
    if (skip("eE")) {
        skip("+-");
        if (digits() == 0) return false;
    }
    return at == text.size();
}

}  // namespace

ValueKind FindValueKind(std::string_view name) {
    for (const KindName& known : kKinds) {
        if (known.name == name) return known.kind;
    }
    throw Refusal("已损坏：单元格的类型“" + std::string(name.substr(0, 32)) + "”");
}

void SheetCell::Make(const WorkbookContent& content, TableCell& cell) {
    const bool isText = kind == ValueKind::Text || kind == ValueKind::Inline;
    const std::string_view trimmed = isText ? value : WithoutXmlBlanks(value);
    if (trimmed.size() < value.size()) value = std::string(trimmed);
    if (hasFormula && (!hasValue || (value.empty() && !isText))) {
        cell.kind = CellKind::NoResult;
        return;
    }
    if (!hasValue || value.empty()) return;
    switch (kind) {
        case ValueKind::Shared:
            cell.text = content.strings.At(NumberOf(value, std::numeric_limits<int>::max()));
            cell.kind = cell.text.empty() ? CellKind::Blank : CellKind::Text;
            return;
        case ValueKind::Text:
            value = WithWrittenCharacters(value);
            break;
        case ValueKind::Boolean:
            value = IsTrue(value) ? "TRUE" : "FALSE";
            break;
        case ValueKind::Inline:
            break;
        case ValueKind::Number:
            return MakeNumber(content, cell);
        case ValueKind::Error:
            cell.kind = CellKind::Error;
            std::swap(cell.text, value);
            return;
        case ValueKind::Iso8601:
            cell.kind =
                platform::DateTime::Parse(value, cell.date) ? CellKind::Date : CellKind::Error;
            std::swap(cell.text, value);
            return;
    }
    cell.kind = CellKind::Text;
    std::swap(cell.text, value);
}

void SheetCell::MakeNumber(const WorkbookContent& content, TableCell& cell) {
    const auto at = static_cast<std::size_t>(style);
    if (at > 0 && at >= content.dateStyles.size()) throw Refusal("已损坏：缺少单元格的格式");
    cell.kind = IsNumber(value) ? CellKind::Number : CellKind::Error;
    if (cell.kind == CellKind::Number && at < content.dateStyles.size() && content.dateStyles[at]) {
        cell.kind = CellKind::Date;
        cell.date = DateOfNumber(value, content.dates);
    }
    std::swap(cell.text, value);
}

}  // namespace kelvane::tables
