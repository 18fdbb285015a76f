#include "adapters/tables/cell_reference.h"

#include <cstddef>

#include "adapters/tables/limits.h"
#include "adapters/tables/refusal.h"
#include "platform/ascii.h"

namespace kelvane::tables {

namespace {

constexpr int kLetters = 26;

}  // namespace

std::string ColumnName(int column) {
    std::string name;
    for (; column > 0; column = (column - 1) / kLetters) {
        name.insert(name.begin(), static_cast<char>('A' + (column - 1) % kLetters));
    }
    return name;
}

CellReference ReadReference(std::string_view text) {
    CellReference cell;
    std::size_t at = 0;
    for (; at < text.size() && cell.column <= kMaxColumn; ++at) {
        const char letter = platform::UpperAscii(text[at]);
        if (letter < 'A' || letter > 'Z') break;
        cell.column = cell.column * kLetters + (letter - 'A' + 1);
    }
    for (; at < text.size() && cell.row <= kMaxRow && text[at] >= '0' && text[at] <= '9'; ++at) {
        cell.row = cell.row * 10 + (text[at] - '0');
    }
    const bool isCell = cell.column > 0 && cell.column <= kMaxColumn && cell.row > 0 &&
                        cell.row <= kMaxRow && at == text.size();
    if (!isCell) throw Refusal("已损坏：没有单元格“" + std::string(text.substr(0, 32)) + "”");
    return cell;
}

platform::CellRange ReadRange(std::string_view text) {
    const std::size_t colon = text.find(':');
    const CellReference first = ReadReference(text.substr(0, colon));
    const CellReference last =
        colon == std::string_view::npos ? first : ReadReference(text.substr(colon + 1));
    return {first.row, first.column, last.row, last.column};
}

}  // namespace kelvane::tables
