// What happens while the operator edits a line, and the checks of a finished one.
#include <optional>
#include <utility>
#include <vector>

#include "data/budget_control.h"
#include "data/login_context.h"
#include "data/messages.h"
#include "data/number_format.h"
#include "data/text_conversion.h"
#include "ui/common/reference_pick.h"
#include "ui/detail_editor/detail_editor.h"

namespace kelvane::ui {

using controls::GridAnswer;
using data::gConn;
using data::MoneyOfDisplay;
using platform::Money;
using platform::StatementText;
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
    if (col == 0 || col == 1) {
        if (!ValidateItem(text, row, col)) answer = GridAnswer::Refuse;
    } else if (col == PriceColumn() || col == QuantityColumn()) {
        if (!IsValidAmount(text)) {
            data::ShowInformation("非法金额数量", data::kModuleCaption);
            answer = GridAnswer::Refuse;
            return;
        }
        const std::int16_t kind = col == PriceColumn() ? data::kPriceKind : data::kQuantityKind;
        if (!text.empty()) text = data::NumFormatText(Value("0" + text), kind, true);
        // The amount is reckoned from what the line shows.
        Grid1.SetText(row, col, text);
        RecalcAmount(row);
    }
    if (answer == GridAnswer::Accept) SetNotice("");
}

bool frmQCEdit::ValidateItem(const std::string& text, int row, int col) {
    try {
        const bool filled = col == 0 ? FillByCode(text, row) : FillByName(text, row);
        if (filled) {
            mPickedItem.reset();
        } else {
            DropPickedItem();
        }
        return filled;
    } catch (...) {
        DropPickedItem();
        throw;
    }
}

bool frmQCEdit::IsValidAmount(const std::string& text) {
    try {
        MoneyOfDisplay(text);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

std::string frmQCEdit::AmountText(const std::string& price, int row) const {
    const Money amount = MoneyOfDisplay(price) * MoneyOfDisplay(CellText(row, QuantityColumn()));
    return data::NumFormatText(Value(amount), data::kMoneyKind, true);
}

void frmQCEdit::RecalcAmount(int row) {
    Grid1.SetText(row, AmountColumn(), AmountText(CellText(row, PriceColumn()), row));
}

void frmQCEdit::Grid1_CellReference(std::string& text, int row, int col) {
    if (col > 1) return;
    std::string code;
    std::string description;
    SelectReference(bEquipment ? kEquipmentReference : kInventoryReference, code, description);
    if (code.empty()) return;
    std::vector<std::string> fields = Split(description, ',');
    const bool hasUnit = fields.size() == 4;
    fields.resize(4);
    LineItem item{code, fields[0], fields[1], Value(fields[2]), std::nullopt};
    if (hasUnit) item.unit = fields[3];

    PickedItem picked{row, col, col == 0 ? item.code : item.name, {}};
    for (int each = 0; each < Grid1.Cols(); ++each) picked.before.push_back(CellText(row, each));
    FillLine(row, col, item);
    if (mPickedItem) picked.before = mPickedItem->before;
    text = picked.text;
    mPickedItem = std::move(picked);
    Grid1.SetRowTouched(true);
}

// The cells beside the one picked for come back.
void frmQCEdit::DropPickedItem() {
    const auto dropped = std::exchange(mPickedItem, std::nullopt);
    if (!dropped) return;
    for (int col = 0; col < Grid1.Cols(); ++col) {
        if (col == dropped->col) continue;
        Grid1.SetText(dropped->row, col, dropped->before[static_cast<std::size_t>(col)]);
    }
}

void frmQCEdit::Grid1_EditModeChange(bool editing) {
    if (editing || !mPickedItem) return;
    const bool stays = CellText(mPickedItem->row, mPickedItem->col) == mPickedItem->text;
    if (stays) {
        mPickedItem.reset();
    } else {
        DropPickedItem();
    }
}

frmQCEdit::Incomplete frmQCEdit::FindIncomplete(int row) const {
    if (data::Trim(CellText(row, 0)).empty()) return {0, "编码不能为空"};
    if (data::Trim(CellText(row, 1)).empty()) return {1, "名称不能为空"};
    if (MoneyOfDisplay(CellText(row, PriceColumn())).IsZero()) {
        return {PriceColumn(), "单价不能为空或0"};
    }
    if (MoneyOfDisplay(CellText(row, QuantityColumn())).IsZero()) {
        return {QuantityColumn(), "数量不能为空或0"};
    }
    return {};
}

void frmQCEdit::Grid1_RowValidate(GridAnswer& answer, int row, int& col) {
    answer = GridAnswer::Refuse;
    const Incomplete missing = FindIncomplete(row);
    if (!missing.message.empty()) {
        data::ShowInformation(missing.message, data::kModuleCaption);
        col = missing.col;
        return;
    }
    if (!CheckDetailBudget(row)) return;
    answer = GridAnswer::Accept;
    SetNotice("");
}

bool frmQCEdit::CheckDetailBudget(int row) {
    const data::CurrentEntry entry = data::gCurrentEntry();
    StatementText elementStatement("select cElementCode from PM_ItemElement where cElementName = ");
    const auto element = gConn->OpenRecordSet(elementStatement.Quoted(entry.elementName));
    const std::string elementCode = element->Field("cElementCode").ToText();
    const std::string detailCode = CellText(row, 0);

    bool controlled = false;
    Money budget;
    std::string error;
    float budgetQuantity = 0;
    if (!data::GetItemBudget(entry.itemCode, elementCode, controlled, budget, error, detailCode,
                             budgetQuantity)) {
        data::ShowInformation(error, data::kModuleCaption);
        return false;
    }
    if (budgetQuantity == 0 || !controlled) return true;

    StatementText sumStatement(
        "select sum(a.inum) as SumAmount,sum(a.mQc) as sumQC  from pm_itemqcsub a inner join "
        "pm_itemqc b on a.ielevid=b.ielevid  where b.citemcode=");
    sumStatement.Quoted(entry.itemCode) << " and b.celementcode=";
    sumStatement.Quoted(elementCode) << " and a.ielevid<>";
    sumStatement.Number(entry.identity) << " and a.cCodeMx=";
    const auto sums = gConn->OpenRecordSet(sumStatement.Quoted(detailCode));
    // Despite its name the field "sumamount" is the sum of quantities.
    const auto otherQuantity = static_cast<float>(sums->Field("sumamount").ToDouble());
    const Money otherAmount = sums->Field("sumQC").ToMoney();

    if (budget < otherAmount + MoneyOfDisplay(CellText(row, AmountColumn()))) {
        data::ShowInformation("金额超出项目预算中的项目期初发生额", data::kModuleCaption);
        return false;
    }
    const auto quantity =
        static_cast<float>(data::DoubleOfDisplay(CellText(row, QuantityColumn())));
    if (quantity + otherQuantity > budgetQuantity) {
        data::ShowInformation("数量超出项目预算中的项目期初数量", data::kModuleCaption);
        return false;
    }
    return true;
}

}  // namespace kelvane::ui
