#include "entries/summary/summary_fields.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <stdexcept>
#include <string>

namespace kelvane::entries {

namespace {

constexpr std::array kFields{
    DeclaredSummaryField{SummaryField::Item, "item", "项目", "项目编号", "项目名称"},
    DeclaredSummaryField{SummaryField::Element, "element", "要素", "要素编码", "要素"},
    DeclaredSummaryField{SummaryField::Center, "center", "责任中心", "责任中心", "责任中心名称"},
    DeclaredSummaryField{SummaryField::Keyword, "keyword", "关键字", "关键字", ""},
    DeclaredSummaryField{SummaryField::Month, "month", "月份", "月份", ""},
};

SummaryField FieldOf(std::string_view name) {
    const auto found = std::ranges::find(kFields, name, &DeclaredSummaryField::name);
    if (found == kFields.end()) throw std::invalid_argument(std::string(name));
    return found->field;
}

}  // namespace

std::span<const DeclaredSummaryField> DeclaredSummaryFields() {
    return kFields;
}

const DeclaredSummaryField& Declared(SummaryField field) {
    return kFields.at(static_cast<std::size_t>(field));
}

std::vector<SummaryField> SummaryFieldsOf(std::string_view names) {
    std::vector<SummaryField> fields;
    if (names.empty()) return fields;
    while (true) {
        const std::size_t end = names.find(',');
        const std::string_view name = names.substr(0, end);
        const SummaryField field = FieldOf(name);
        if (std::ranges::count(fields, field) > 0) throw std::invalid_argument(std::string(name));
        fields.push_back(field);
        if (end == std::string_view::npos) return fields;
        names.remove_prefix(end + 1);
    }
}

}  // namespace kelvane::entries
