// What happens while the operator edits a line, and the checks of a finished one.
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
        const bool filled = col == 0 ? FillByCode(text, row) : FillByName(text, row);
        if (!filled) answer = GridAnswer::Refuse;
        return;
    }
    if (col != PriceColumn() && col != QuantityColumn()) return;
    if (!IsValidAmount(text)) {
        data::ShowInformation("非法金额数量", data::kModuleCaption);
        answer = GridAnswer::Refuse;
        return;
    }
    const std::int16_t kind = col == PriceColumn() ? data::kPriceKind : data::kQuantityKind;
    text = data::NumFormatText(Value(text), kind, true);
    // The amount is reckoned from what the line shows.
    Grid1.SetText(row, col, text);
    RecalcAmount(row);
}

bool frmQCEdit::IsValidAmount(const std::string& text) {
    try {
        MoneyOfDisplay(text);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

void frmQCEdit::RecalcAmount(int row) {
    const Money amount = MoneyOfDisplay(CellText(row, PriceColumn())) *
                         MoneyOfDisplay(CellText(row, QuantityColumn()));
    Grid1.SetText(row, AmountColumn(), data::NumFormatText(Value(amount), data::kMoneyKind, true));
}

void frmQCEdit::Grid1_CellReference(std::string& text, int row, int col) {
    if (col > 1) return;
    std::string code;
    std::string description;
    SelectReference(bEquipment ? kEquipmentReference : kInventoryReference, code, description);
    if (code.empty()) return;
    std::vector<std::string> fields = Split(description, ',');
    fields.resize(std::max<std::size_t>(fields.size(), 3));
    const std::string& name = fields[0];
    text = col == 0 ? code : name;
    Grid1.SetText(row, col == 0 ? 1 : 0, col == 0 ? name : code);
    Grid1.SetText(row, 2, fields[1]);
    SetPrice(row, Value(fields[2]));
    if (fields.size() == 4) Grid1.SetText(row, UnitColumn(), fields[3]);
    RecalcAmount(row);
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
    if (CheckDetailBudget(row)) answer = GridAnswer::Accept;
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
    const auto otherQuantity =
        static_cast<float>(data::DoubleOfDisplay(sums->Field("sumamount").ToText()));
    const Money otherAmount = MoneyOfDisplay(sums->Field("sumQC").ToText());

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
