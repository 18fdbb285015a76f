#include "adapters/tables/sheet_reader.h"

#include <limits>
#include <string>

#include "adapters/tables/cell_reference.h"
#include "adapters/tables/limits.h"
#include "adapters/tables/refusal.h"
#include "adapters/tables/sheet_cell.h"
#include "adapters/tables/xml_stream.h"

namespace kelvane::tables {

using platform::CellKind;
using platform::CellRange;
using platform::TableRow;

namespace {

class SheetHandler : public XmlHandler {
public:
    SheetHandler(const WorkbookContent& content, const std::function<bool(const TableRow&)>& take)
        : mContent(content), mTake(take) {}

    bool Begin(std::string_view name, const XmlAttributes& attributes) override;
    void End(std::string_view name) override;
    void Text(std::string_view text) override;

    std::vector<CellRange> merged;

private:
    // What the present element lies in.
    enum class Within { Sheet, Rows, Row, Cell, Value, Inline, Merged };

    bool BeginPart(std::string_view name, const XmlAttributes& attributes);
    void BeginRow(const XmlAttributes& attributes);
    void BeginCell(const XmlAttributes& attributes);
    bool BeginValue(std::string_view name);
    void EndCell();
    void EndRow();

    const WorkbookContent& mContent;
    const std::function<bool(const TableRow&)>& mTake;
    Within mWithin = Within::Sheet;
    bool mHidesRows = false;
    TableRow mRow;
    std::size_t mRowBytes = 0;
    int mColumn = 0;
    SheetCell mCell;
    StringItem mItem;
};

bool SheetHandler::Begin(std::string_view name, const XmlAttributes& attributes) {
    switch (mWithin) {
        case Within::Sheet:
            return BeginPart(name, attributes);
        case Within::Rows:
            if (name != "row") return false;
            BeginRow(attributes);
            return true;
        case Within::Row:
            if (name != "c") return false;
            BeginCell(attributes);
            return true;
        case Within::Cell:
            return BeginValue(name);
        case Within::Inline:
            return mItem.Begin(name, attributes);
        case Within::Merged:
            if (name != "mergeCell") return false;
            if (merged.size() == kMaxMergedRanges) throw Refusal("合并的单元格太多");
            merged.push_back(ReadRange(attributes.Find("ref")));
            return false;
        case Within::Value:
            break;
    }
    return false;
}

bool SheetHandler::BeginPart(std::string_view name, const XmlAttributes& attributes) {
    if (name == "sheetFormatPr") mHidesRows = IsTrue(attributes.Find("zeroHeight"));
    if (name == "sheetData") mWithin = Within::Rows;
    if (name == "mergeCells") mWithin = Within::Merged;
    return mWithin != Within::Sheet;
}

void SheetHandler::BeginRow(const XmlAttributes& attributes) {
    const std::string_view number = attributes.Find("r");
    const int before = mRow.number;
    mRow.number = number.empty() ? before + 1 : NumberOf(number, kMaxRow);
    if (mRow.number <= before || mRow.number > kMaxRow) throw Refusal("已损坏：行的次序不对");
    mRow.position = mRow.number;
    const std::string_view height = attributes.Find("ht");
    const bool hasNoHeight = height.empty() ? mHidesRows : height == "0";
    mRow.hidden = hasNoHeight || IsTrue(attributes.Find("hidden"));
    mRow.cells.clear();
    mRowBytes = 0;
    mColumn = 0;
    mWithin = Within::Row;
}

void SheetHandler::BeginCell(const XmlAttributes& attributes) {
    const std::string_view reference = attributes.Find("r");
    const int before = mColumn;
    ++mColumn;
    if (!reference.empty()) {
        const CellReference place = ReadReference(reference);
        if (place.row != mRow.number) throw Refusal("已损坏：单元格的位置不对");
        mColumn = place.column;
    }
    if (mColumn <= before || mColumn > kMaxColumn) throw Refusal("已损坏：单元格的次序不对");
    mCell.kind = FindValueKind(attributes.Find("t"));
    const std::string_view style = attributes.Find("s");
    mCell.style = style.empty() ? 0 : NumberOf(style, std::numeric_limits<int>::max());
    mCell.hasFormula = false;
    mCell.hasValue = false;
    mCell.value.clear();
    mWithin = Within::Cell;
}

bool SheetHandler::BeginValue(std::string_view name) {
    if (name == "f") mCell.hasFormula = true;
    if (name == "v") mWithin = Within::Value;
    if (name == "is") {
        mItem.Clear();
        mWithin = Within::Inline;
    }
    if (mWithin == Within::Cell) return false;
    mCell.hasValue = true;
    return true;
}

void SheetHandler::Text(std::string_view text) {
    if (mWithin == Within::Inline) return mItem.Append(text);
    if (mWithin != Within::Value) return;
    mCell.value += text;
    if (mCell.value.size() > kMaxCellBytes) throw Refusal("一个单元格中的文字太长");
}

void SheetHandler::End(std::string_view name) {
    switch (mWithin) {
        case Within::Value:
            mWithin = Within::Cell;
            return;
        case Within::Inline:
            if (name != "is") return mItem.End(name);
            mCell.value = mItem.Take();
            mWithin = Within::Cell;
            return;
        case Within::Cell:
            EndCell();
            mWithin = Within::Row;
            return;
        case Within::Row:
            mWithin = Within::Rows;
            EndRow();
            return;
        case Within::Rows:
        case Within::Merged:
        case Within::Sheet:
            mWithin = Within::Sheet;
            return;
    }
}

void SheetHandler::EndCell() {
    platform::TableCell& cell = mRow.cells.emplace_back();
    cell.column = mColumn;
    mCell.Make(mContent, cell);
    mRowBytes += cell.text.size();
    if (mRowBytes > kMaxRowBytes) throw Refusal("一行中的文字太长");
    if (cell.kind == CellKind::Blank) mRow.cells.pop_back();
}

void SheetHandler::EndRow() {
    if (!mRow.cells.empty() && !mTake(mRow)) throw EnoughXml();
}

}  // namespace

std::vector<CellRange> ReadSheet(ZipArchive& archive, std::string_view name,
                                 const WorkbookContent& content,
                                 const std::function<bool(const TableRow&)>& take) {
    SheetHandler handler(content, take);
    try {
        ReadXml(archive, name, "worksheet", handler);
    } catch (const EnoughXml&) {
        return {};
    }
    return std::move(handler.merged);
}

}  // namespace kelvane::tables
