#include "ui/import/kept_columns.h"

#include <algorithm>
#include <cstdint>
#include <sstream>

namespace kelvane::ui {

using entries::GivenColumns;
using entries::TableShape;
using platform::TableRow;

namespace {

// The titles are told apart by 64 bits of them: a name of settings has to be short.
std::string NameOf(const TableRow& titles, const TableShape& shape) {
    constexpr std::uint64_t kStart = 14695981039346656037U;
    constexpr std::uint64_t kPrime = 1099511628211U;
    std::uint64_t hash = kStart;
    const auto add = [&hash](std::string_view text) {
        for (const char byte : text) hash = (hash ^ static_cast<unsigned char>(byte)) * kPrime;
        hash = (hash ^ 0xFFU) * kPrime;
    };
    add(shape.sheet);
    for (const platform::TableCell& cell : titles.cells) {
        add(std::to_string(cell.column));
        add(entries::PlainTitle(cell.text));
    }
    std::ostringstream name;
    name << "import.columns." << std::hex << hash;
    return name.str();
}

bool IsIn(const TableShape& shape, int column) {
    return std::ranges::any_of(shape.columns,
                               [column](const auto& each) { return each.column == column; });
}

}  // namespace

std::optional<GivenColumns> KeptColumns::Find(const std::vector<TableRow>& rows,
                                              const TableShape& shape) const {
    if (mSettings == nullptr) return std::nullopt;
    for (const TableRow& row : rows) {
        const std::string kept = mSettings->Kept(NameOf(row, shape));
        if (kept.empty()) continue;
        GivenColumns given{row.number, {}};
        given.places.resize(static_cast<std::size_t>(shape.columnCount));
        std::istringstream text(kept);
        char equals = 0;
        for (int column = 0, place = 0; text >> column >> equals >> place;) {
            if (!IsIn(shape, column) || place < 1) continue;
            given.places[static_cast<std::size_t>(column)] = {
                place, entries::PlainTitle(row.At(place).text)};
        }
        return given;
    }
    return std::nullopt;
}

void KeptColumns::Keep(const TableRow& titles, const TableShape& shape,
                       const GivenColumns& columns) {
    if (mSettings == nullptr) return;
    std::string text;
    for (std::size_t column = 0; column < columns.places.size(); ++column) {
        const int place = columns.places[column].column;
        if (place == 0) continue;
        if (!text.empty()) text += ' ';
        text += std::to_string(column) + "=" + std::to_string(place);
    }
    mSettings->Keep(NameOf(titles, shape), text);
}

}  // namespace kelvane::ui
