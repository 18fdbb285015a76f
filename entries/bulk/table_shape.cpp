#include "entries/bulk/table_shape.h"

#include <algorithm>
#include <cstddef>

#include "platform/full_width.h"
#include "platform/utf8.h"

namespace kelvane::entries {

void IndexTitles(TableShape& shape) {
    for (std::size_t at = 0; at < shape.columns.size(); ++at) {
        for (const std::string& title : shape.columns[at].titles) {
            shape.byTitle.emplace(PlainTitle(title), at);
        }
    }
}

TableShape EntryTableShape(std::string_view itemName, std::span<const KeywordField> keywords,
                           bool withLines) {
    TableShape shape;
    shape.sheet = "期初";
    shape.columnCount = kEntryTableColumnCount;
    shape.firstMark = kDateColumn;
    shape.secondMark = kAmountColumn;
    shape.noNumber = Rule::AmountNumber;
    // There are no more identities.
    shape.mostRows = 65536;
    shape.columns = {
        {kDateColumn, CellUse::Date, true, {"日期"}},
        {kCenterColumn, CellUse::Code, true, {"责任中心"}},
        {kItemColumn, CellUse::Code, true, {"项目编号"}},
        {kItemNameColumn, CellUse::Text, false, {"项目名称"}},
        {kElementColumn, CellUse::Text, true, {"要素"}},
        {kDigestColumn, CellUse::Text, true, {"摘要"}},
        {kAmountColumn, CellUse::Number, true, {"未结转期初"}},
        {kRowNumberColumn, CellUse::Label, withLines, {"行号"}},
        {kOperationColumn, CellUse::Label, false, {"操作"}},
        {kIdentityColumn, CellUse::Label, false, {"编号"}},
        {kCheckColumn, CellUse::Label, false, {"校验"}},
    };
    const auto itemNameColumn =
        std::find_if(shape.columns.begin(), shape.columns.end(),
                     [](const TableColumn& column) { return column.column == kItemNameColumn; });
    if (!itemName.empty()) itemNameColumn->titles.emplace_back(itemName);
    constexpr int kMostKeywords = 2;
    int column = kKey1Column;
    for (const auto& [name, isNumber] : keywords) {
        if (column == kKey1Column + kMostKeywords) break;
        const CellUse use = isNumber ? CellUse::Label : CellUse::Code;
        shape.columns.push_back({column++, use, true, {name + " (关键字)", name}});
    }
    IndexTitles(shape);
    return shape;
}

TableShape LineTableShape() {
    TableShape shape;
    shape.sheet = "明细";
    shape.columnCount = kLineTableColumnCount;
    shape.firstMark = kLineRowNumberColumn;
    shape.secondMark = kLineQuantityColumn;
    shape.noNumber = Rule::LineNumber;
    shape.columns = {
        {kLineRowNumberColumn, CellUse::Label, true, {"行号"}},
        {kLineCodeColumn, CellUse::Code, true, {"编码", "设备编码", "存货编码"}},
        {kLineNameColumn, CellUse::Text, false, {"名称", "设备名称", "存货名称"}},
        {kLineModelColumn, CellUse::Text, false, {"规格"}},
        {kLineUnitColumn, CellUse::Text, false, {"单位"}},
        {kLinePriceColumn, CellUse::Number, true, {"单价", "台班单价"}},
        {kLineQuantityColumn, CellUse::Number, true, {"数量"}},
        {kLineAmountColumn, CellUse::Number, false, {"余额"}},
    };
    IndexTitles(shape);
    return shape;
}

std::string PlainTitle(std::string_view title) {
    constexpr char32_t kHardBlank = 0xA0;
    std::string plain;
    while (!title.empty()) {
        const char32_t character = platform::PlainForm(platform::TakeCharacter(title).value);
        const bool isBlank = character <= U' ' || character == kHardBlank;
        if (!isBlank) platform::AppendCharacter(plain, character);
    }
    return plain;
}

const TableColumn* FindColumn(const TableShape& shape, std::string_view title) {
    // Anything longer is a text.
    constexpr std::size_t kLongest = 256;
    if (title.size() > kLongest) return nullptr;
    const auto found = shape.byTitle.find(PlainTitle(title));
    return found == shape.byTitle.end() ? nullptr : &shape.columns[found->second];
}

}  // namespace kelvane::entries
