#include "ui/summary/field_choice.h"

#include <algorithm>
#include <utility>

namespace kelvane::ui {

using entries::SummaryField;

std::optional<SummaryField> SummaryFieldNamed(std::string_view caption) {
    const auto& fields = entries::DeclaredSummaryFields();
    const auto named = std::ranges::find(fields, caption, &entries::DeclaredSummaryField::caption);
    if (named == fields.end()) return std::nullopt;
    return named->field;
}

std::string_view FieldChoice::NameAt(std::size_t place) const {
    return place < mFields.size() ? entries::Declared(mFields[place]).caption : std::string_view();
}

void FieldChoice::Set(std::size_t place, std::optional<SummaryField> field) {
    const bool isFree = place >= mFields.size();
    const auto at = mFields.begin() + static_cast<std::ptrdiff_t>(std::min(place, mFields.size()));
    if (!field) {
        if (!isFree) mFields.erase(at);
        return;
    }
    const auto elsewhere = std::ranges::find(mFields, *field);
    if (isFree) {
        if (elsewhere != mFields.end()) mFields.erase(elsewhere);
        mFields.push_back(*field);
    } else if (elsewhere != mFields.end()) {
        std::swap(*at, *elsewhere);
    } else {
        *at = *field;
    }
}

std::string FieldChoice::Names() const {
    std::string names;
    for (const SummaryField field : mFields) {
        if (!names.empty()) names += "、";
        names += entries::Declared(field).caption;
    }
    return names;
}

}  // namespace kelvane::ui
