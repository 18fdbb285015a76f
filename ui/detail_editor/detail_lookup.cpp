// Filling a line from the code or the name that the operator typed.
#include <string>
#include <variant>
#include <vector>

#include "data/number_format.h"
#include "data/text_conversion.h"
#include "ui/common/findings.h"
#include "ui/detail_editor/detail_editor.h"

namespace kelvane::ui {

using entries::LineField;
using entries::LineItem;
using entries::LineRules;

LineRules frmQCEdit::Rules() const {
    return {mMasterData,
            bEquipment ? entries::DetailKind::Equipment : entries::DetailKind::Inventory, mEntry};
}

bool frmQCEdit::Accepts(const std::optional<entries::Finding>& finding) {
    if (!finding) return true;
    ShowFinding(*finding);
    mRefusal = RefusalText(*finding);
    return false;
}

bool frmQCEdit::FillByCode(const std::string& code, int row) {
    if (data::Trim(code).empty()) return true;
    std::vector<std::string> others;
    for (int other = 1; other < Grid1.Rows(); ++other) {
        if (other != row) others.push_back(CellText(other, 0));
    }
    return Accepts(LineRules::CheckCodeOnce(CellText(row, 0), others)) &&
           Fill(LineField::Code, code, row);
}

bool frmQCEdit::FillByName(const std::string& name, int row) {
    return data::Trim(name).empty() || Fill(LineField::Name, name, row);
}

bool frmQCEdit::Fill(LineField by, const std::string& sought, int row) {
    // Several items may have one name: the line's code tells which of them stands there or was
    // picked.
    const auto found = Rules().Find(by, sought, data::Trim(CellText(row, 0)));
    if (const auto* unknown = std::get_if<entries::Finding>(&found)) return Accepts(*unknown);
    FillLine(row, by == LineField::Code ? 0 : 1, std::get<LineItem>(found));
    return true;
}

void frmQCEdit::FillLine(int row, int kept, const LineItem& item) {
    const std::string price = data::NumFormatText(item.price, data::kPriceKind, true);
    const std::string amount = AmountText(price, row);
    if (kept != 0) Grid1.SetText(row, 0, item.code);
    if (kept != 1) Grid1.SetText(row, 1, item.name);
    Grid1.SetText(row, 2, item.model);
    if (item.unit) Grid1.SetText(row, UnitColumn(), *item.unit);
    Grid1.SetText(row, PriceColumn(), price);
    Grid1.SetText(row, AmountColumn(), amount);
}

}  // namespace kelvane::ui
