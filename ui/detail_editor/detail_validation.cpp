// What happens while the operator edits a line, and the checks of a finished one.
#include <optional>
#include <utility>
#include <vector>

#include "data/number_format.h"
#include "ui/common/reference_pick.h"
#include "ui/detail_editor/detail_editor.h"

namespace kelvane::ui {

using controls::GridAnswer;
using platform::Value;

namespace {

std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> parts(1);
    for (const char c : text) {
        if (c == separator) {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    return parts;
}

}  // namespace

void frmQCEdit::Grid1_CellValidate(std::string& text, GridAnswer& answer, int row, int col) {
    answer = GridAnswer::Accept;
    mRefusal.clear();
    if (col == 0 || col == 1) {
        if (!ValidateItem(text, row, col)) answer = GridAnswer::Refuse;
    } else if (col == PriceColumn() || col == QuantityColumn()) {
        if (!IsValidAmount(text)) {
            Accepts(entries::Found(entries::Rule::LineNumber));
            answer = GridAnswer::Refuse;
            return;
        }
        const std::int16_t kind = col == PriceColumn() ? data::kPriceKind : data::kQuantityKind;
        text = entries::LineNumberText(text, kind);
        // RecalcAmount() reads the line's cells, so the formatted text must stand there first.
        Grid1.SetText(row, col, text);
        RecalcAmount(row);
    }
    if (answer == GridAnswer::Accept) SetNotice("");
}

bool frmQCEdit::ValidateItem(const std::string& text, int row, int col) {
    try {
        const bool filled = col == 0 ? FillByCode(text, row) : FillByName(text, row);
        if (filled) {
            mPickedItem.Forget();
        } else {
            mPickedItem.PutBack(Grid1);
        }
        return filled;
    } catch (...) {
        mPickedItem.PutBack(Grid1);
        throw;
    }
}

bool frmQCEdit::IsValidAmount(const std::string& text) {
    return !entries::LineRules::CheckNumber(text);
}

std::string frmQCEdit::AmountText(const std::string& price, int row) const {
    return entries::LineAmountText(price, CellText(row, QuantityColumn()));
}

void frmQCEdit::RecalcAmount(int row) {
    Grid1.SetText(row, AmountColumn(), AmountText(CellText(row, PriceColumn()), row));
}

void frmQCEdit::Grid1_CellReference(std::string& text, int row, int col) {
    if (col > 1) return;
    std::string code;
    std::string description;
    SelectReference(bEquipment ? kEquipmentReference : kInventoryReference, code, description,
                    text);
    if (code.empty()) return;
    std::vector<std::string> fields = Split(description, ',');
    const bool hasUnit = fields.size() == 4;
    fields.resize(4);
    entries::LineItem item{code, fields[0], fields[1], Value(fields[2]), std::nullopt};
    if (hasUnit) item.unit = fields[3];

    const std::string shown = col == 0 ? item.code : item.name;
    PickedCells picked = mPickedItem;
    picked.Picked(Grid1, row, col, shown, 0, Grid1.Cols() - 1);
    FillLine(row, col, item);
    mPickedItem = std::move(picked);
    text = shown;
    Grid1.SetRowTouched(true);
}

void frmQCEdit::Grid1_EditModeChange(bool editing) {
    const int row = Grid1.Row();
    if (editing) return mHistory.BeginEdit(row, StateOf(row));
    mPickedItem.EndEdit(Grid1);
    mHistory.EndEdit(Grid1.Col(), StateOf(row));
}

entries::LineTexts frmQCEdit::TextsOf(int row) const {
    return {.code = CellText(row, 0),
            .name = CellText(row, 1),
            .price = CellText(row, PriceColumn()),
            .quantity = CellText(row, QuantityColumn()),
            .amount = CellText(row, AmountColumn())};
}

int frmQCEdit::GridColumnOf(int lineColumn) const {
    switch (static_cast<entries::LineColumn>(lineColumn)) {
        case entries::LineColumn::Code:
            return 0;
        case entries::LineColumn::Name:
            return 1;
        case entries::LineColumn::Price:
            return PriceColumn();
        case entries::LineColumn::Quantity:
            return QuantityColumn();
        case entries::LineColumn::Amount:
            return AmountColumn();
    }
    return 0;
}

void frmQCEdit::Grid1_RowValidate(GridAnswer& answer, int row, int& col) {
    if (mHistory.WayOutOf(row) == RowHistory::WayOut::Free) {
        mHistory.Forget();
        answer = GridAnswer::Accept;
        return;
    }
    answer = GridAnswer::Refuse;
    const auto missing = entries::LineRules::CheckComplete(TextsOf(row));
    if (!Accepts(missing)) {
        col = GridColumnOf(missing->column);
        Grid1.MarkRefused(row, col);
        return;
    }
    if (!CheckDetailBudget(row)) return;
    mHistory.Forget();
    answer = GridAnswer::Accept;
    SetNotice("");
}

// The current line's part stands first: it changes with every cell.
std::string frmQCEdit::Figures() const {
    const std::string figures = FiguresOf(Grid1);
    const int row = Grid1.Row();
    if (row < 1) return figures;
    const std::string left = mLineBudgets.LeftFor(Rules(), TextsOf(row));
    return left.empty() ? figures : left + "   " + figures;
}

bool frmQCEdit::CheckDetailBudget(int row) {
    const auto beyond = Rules().CheckBudget(TextsOf(row));
    if (Accepts(beyond)) return true;
    const bool unreadable = beyond->rule == entries::Rule::BudgetFailed;
    Grid1.MarkRefused(row, unreadable ? controls::Grid::kWholeRow : GridColumnOf(beyond->column));
    return false;
}

}  // namespace kelvane::ui
