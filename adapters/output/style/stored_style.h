// StoredStyle: what the style file keeps of a page's layout, and the two XML texts that it is
// written as.
//
//   <页面设置 纸张="A4" 方向="纵向" 左边距="150" … 每页表头="是" 适合纸宽="是"/>
//   <版式 名称="Default">
//     <标题 位置="0,200"/> <列区 位置="0,260"/>
//     <页眉项 名称="年度" 位置="0,0" 宽度="500"/> …  <页脚项 …/> …
//     <列组><列 名称="日期" 宽度="1300"/> …</列组> …
//   </版式>
//
// Lengths are tenths of a millimetre, letter sizes tenths of a point, column widths twips. Several
// windows share a style: items are known by their names, a group of columns by its columns' names.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/output/layout/page_settings.h"
#include "adapters/output/layout/sheet.h"

namespace kelvane::output {

struct ItemPlace {
    Position position;
    int width = 0;
};

struct StoredColumn {
    std::string name;
    int width = 0;
};
using StoredColumns = std::vector<StoredColumn>;

struct StoredStyle {
    std::optional<PageSettings> settings;
    std::optional<Position> titleEnd;
    std::optional<Position> table;
    std::map<std::string, ItemPlace> header;
    std::map<std::string, ItemPlace> footer;
    std::vector<StoredColumns> columnGroups;
    std::string refusal;  // the file and why nothing of it was taken; empty when it could be read
};

struct StyleTexts {
    std::string settings;
    std::string layout;
};

// "LEFT,TOP"; nothing when it is not two whole numbers within a page.
std::optional<Position> ReadPosition(std::string_view text);
// A whole number from 0 to a page's length; nothing for anything else.
std::optional<int> ReadLength(std::string_view text);

// The style `name` of the file `path`; what is missing, damaged or beyond its limits is not in it.
// Throws nothing for a file that cannot be read, but leaves a refusal.
StoredStyle ReadStyle(const std::string& path, std::string_view name);

// The texts of `style`, whose settings are there.
StyleTexts WriteStyle(const StoredStyle& style, std::string_view name);

// Whether a file of these texts would be read again.
bool IsReadableStyle(const StyleTexts& texts);

// The group that has the names of `columns`; null when none has.
StoredColumns* FindColumns(StoredStyle& style, const std::vector<platform::ColumnText>& columns);

}  // namespace kelvane::output
