// FieldChoice: by which fields, and in which order, the account is summed up. Each field stands in
// one place at most, and no place is left out, whatever the operator chooses.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "entries/summary/summary_fields.h"

namespace kelvane::ui {

class FieldChoice {
public:
    // As many places as there are fields.
    static constexpr std::size_t kPlaces = 5;

    const std::vector<entries::SummaryField>& Fields() const { return mFields; }
    // "项目" of a place, from 0; empty for one that has no field.
    std::string_view NameAt(std::size_t place) const;
    // Puts a field into a place, or the first free one when that is before; one that stands
    // elsewhere changes places with it. No field: those behind move up.
    void Set(std::size_t place, std::optional<entries::SummaryField> field);
    // The fields' names in their order: "项目、要素".
    std::string Names() const;

private:
    std::vector<entries::SummaryField> mFields{entries::SummaryField::Item,
                                               entries::SummaryField::Element};
};

// The field that an operator chooses by that caption; nothing for a text that is none.
std::optional<entries::SummaryField> SummaryFieldNamed(std::string_view caption);

}  // namespace kelvane::ui
