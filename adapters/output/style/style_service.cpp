#include "adapters/output/style/style_service.h"

#include <stdexcept>
#include <utility>

#include "adapters/output/layout/table_columns.h"
#include "platform/native_path.h"

namespace kelvane::output {

using platform::PrintItem;

namespace {

// A title's height is that of its letters, in hundredths of a millimetre.
int LettersOfHeight(int hundredths) {
    constexpr int kTenthsOfPointInInch = 720;
    constexpr int kHundredthsOfMillimetreInInch = 2540;
    return hundredths * kTenthsOfPointInInch / kHundredthsOfMillimetreInInch;
}

int WidthOf(const std::vector<platform::ColumnText>& columns) {
    int twips = 0;
    for (const platform::ColumnText& column : columns) twips += column.width;
    return TenthsOfTwips(twips);
}

// The paper is turned when the table would have to be made smaller than this share of its width.
constexpr int kMinPercent = 75;

std::map<std::string, ItemPlace> PlacesOf(const std::vector<SheetItem>& items,
                                          std::map<std::string, ItemPlace> stored) {
    for (const SheetItem& item : items) stored[item.caption] = {item.position, item.width};
    return stored;
}

}  // namespace

// The first refusal is the one that is told.
void StyleService::Refuse(const std::string& text) {
    if (mErrorText.empty()) mErrorText = text;
}

void StyleService::Open(std::string_view path, std::string_view title) {
    mPath = platform::NativePath(path);
    mSheet = {};
    mSheet.title = title;
    mReplaceColumns = false;
    mErrorText.clear();
}

void StyleService::SetTitle(std::string_view position, std::string_view height) {
    const auto end = ReadPosition(position);
    const auto letters = ReadLength(height);
    if (!end || !letters || !IsLetterSize(LettersOfHeight(*letters))) {
        return Refuse("打印版式中标题的位置或高度不正确！");
    }
    mSheet.titleEnd = *end;
    mSheet.settings.titleSize = LettersOfHeight(*letters);
}

std::optional<SheetItem> StyleService::ItemOf(const PrintItem& item) {
    const auto position = ReadPosition(item.position);
    const auto width = ReadLength(item.size);
    if (position && width) return SheetItem{item.caption, item.value, *position, *width};
    Refuse("打印版式中“" + item.caption + "”的位置或宽度不正确！");
    return std::nullopt;
}

void StyleService::AddHeaderItem(const PrintItem& item) {
    if (auto placed = ItemOf(item)) mSheet.header.push_back(std::move(*placed));
}

void StyleService::AddFooterItem(const PrintItem& item) {
    if (auto placed = ItemOf(item)) mSheet.footer.push_back(std::move(*placed));
}

void StyleService::SetColumns(std::string_view position, std::string_view formatText,
                              bool replaceStored) {
    const auto corner = ReadPosition(position);
    if (!corner) return Refuse("打印版式中列的位置不正确！");
    mSheet.table = *corner;
    mReplaceColumns = replaceStored;
    try {
        mSheet.columns = platform::DecodeColumns(formatText);
    } catch (const std::invalid_argument&) {
        Refuse("表格的列格式不正确，不能打印！");
    }
}

void StyleService::SetRows(int count, std::function<std::string(int)> cells) {
    mSheet.rows = count;
    mSheet.cells = std::move(cells);
}

PageSettings StyleService::FreshSettings() const {
    PageSettings settings = mSheet.settings;
    settings.landscape = PrintableWidth(settings) * 100 < WidthOf(mSheet.columns) * kMinPercent;
    return settings;
}

void StyleService::Place(std::vector<SheetItem>& items,
                         const std::map<std::string, ItemPlace>& stored) {
    for (SheetItem& item : items) {
        const auto found = stored.find(item.caption);
        if (found == stored.end()) continue;
        item.position = found->second.position;
        item.width = found->second.width;
    }
}

std::optional<Sheet> StyleService::MakeSheet(std::string_view styleName) {
    if (!mErrorText.empty()) return std::nullopt;
    StoredStyle stored = ReadStyle(mPath, styleName);
    mFileRefusal = stored.refusal;
    Sheet sheet = mSheet;
    sheet.settings = stored.settings.value_or(FreshSettings());
    sheet.titleEnd = stored.titleEnd.value_or(sheet.titleEnd);
    sheet.table = stored.table.value_or(sheet.table);
    Place(sheet.header, stored.header);
    Place(sheet.footer, stored.footer);
    const StoredColumns* columns = FindColumns(stored, sheet.columns);
    if (columns != nullptr && !mReplaceColumns) {
        for (std::size_t col = 0; col < columns->size(); ++col) {
            sheet.columns[col].width = (*columns)[col].width;
        }
    }
    sheet.styleFile = mPath;
    if (!PlaceColumns(sheet).empty()) return sheet;
    Refuse("表格没有可打印的列！");
    return std::nullopt;
}

namespace {

// `style`: what is kept of other sheets.
StyleTexts TextsWith(StoredStyle style, const Sheet& sheet, std::string_view styleName) {
    style.settings = sheet.settings;
    style.titleEnd = sheet.titleEnd;
    style.table = sheet.table;
    style.header = PlacesOf(sheet.header, std::move(style.header));
    style.footer = PlacesOf(sheet.footer, std::move(style.footer));
    StoredColumns columns;
    for (const platform::ColumnText& column : sheet.columns) {
        columns.push_back({column.title, column.width});
    }
    if (StoredColumns* known = FindColumns(style, sheet.columns)) {
        *known = std::move(columns);
    } else {
        style.columnGroups.push_back(std::move(columns));
    }
    return WriteStyle(style, styleName);
}

}  // namespace

StyleTexts TextsOf(const Sheet& sheet, std::string_view styleName) {
    StyleTexts texts = TextsWith(ReadStyle(sheet.styleFile, styleName), sheet, styleName);
    if (IsReadableStyle(texts)) return texts;
    return TextsWith({}, sheet, styleName);
}

}  // namespace kelvane::output
