// Filling a line from the code or the name that the operator typed.
#include <optional>

#include "data/login_context.h"
#include "data/messages.h"
#include "data/number_format.h"
#include "data/text_conversion.h"
#include "ui/detail_editor/detail_editor.h"
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

using data::gConn;
using platform::FixedText;
using platform::StatementText;

// The two lookups differ on purpose: by code the class of the entry's element is a prefix of the
// inventory's, by name it is the same one.
struct frmQCEdit::Lookup {
    FixedText equipment;
    FixedText inventory;
    void (*restrictClass)(StatementText& statement, const std::string& allowed);
    std::string_view equipmentUnknown;
    std::string_view inventoryUnknown;
    int column;
};

namespace {

const std::string_view kNoClass = "无分类";

std::string EntryCell(int col) {
    const controls::Grid& entries = GetPeriodItemForm().GridPeriodItem;
    return entries.Text(entries.Row(), col);
}

// The inventory class that the entry's element allows; empty when the element is unknown.
std::string AllowedClass() {
    StatementText statement("select cInvCCode from pm_itemelement where cElementName=");
    statement.Quoted(EntryCell(kElementColumn));
    const auto element = gConn->OpenRecordSet(statement);
    return element->EndOfFile() ? "" : element->Field(0).ToText();
}

}  // namespace

bool frmQCEdit::FillByCode(const std::string& code, int row) {
    static const Lookup kByCode{
        .equipment = "select * from pm_equipment where cEquipCode=",
        .inventory = " where a.cInvCode=",
        .restrictClass =
            [](StatementText& statement, const std::string& allowed) {
                statement << " and a.cInvCCode like '";
                statement.Inside(allowed) << "%'";
            },
        .equipmentUnknown = "设备编码不存在或不是末级",
        .inventoryUnknown = "存货编码不存在或所属分类不正确",
        .column = 0,
    };
    if (data::Trim(code).empty()) return true;
    const std::string own = CellText(row, 0);
    for (int other = 1; other < Grid1.Rows(); ++other) {
        if (other != row && CellText(other, 0) == own) {
            data::ShowInformation("编码不能重复", data::kModuleCaption);
            return false;
        }
    }
    return Fill(kByCode, code, row);
}

bool frmQCEdit::FillByName(const std::string& name, int row) {
    static const Lookup kByName{
        .equipment = "select * from pm_equipment where cEquipName=",
        .inventory = " where a.cInvName=",
        .restrictClass =
            [](StatementText& statement, const std::string& allowed) {
                statement << " and a.cInvCCode=";
                statement.Quoted(allowed);
            },
        .equipmentUnknown = "设备名称不存在或不是末级",
        .inventoryUnknown = "存货名称不存在或所属分类不正确",
        .column = 1,
    };
    if (data::Trim(name).empty()) return true;
    return Fill(kByName, name, row);
}

bool frmQCEdit::Fill(const Lookup& by, const std::string& sought, int row) {
    StatementText statement;
    if (bEquipment) {
        statement << by.equipment;
        statement.Quoted(sought) << " and bEquipEnd=1";
    } else {
        const std::string allowed = AllowedClass();
        statement << "select a.cInvCode,a.cInvName,a.cInvStd,a.iInvRCost,b.cComUnitName from "
                     "inventory a left join computationunit b on a.cSAComUnitCode=b.cComUnitCode";
        statement << by.inventory;
        statement.Quoted(sought);
        if (allowed != kNoClass) by.restrictClass(statement, allowed);
    }
    const auto found = gConn->OpenRecordSet(statement);
    if (found->EndOfFile()) {
        data::ShowInformation(bEquipment ? by.equipmentUnknown : by.inventoryUnknown,
                              data::kModuleCaption);
        return false;
    }
    LineItem item = ItemOf(*found);
    // Several items may bear one name: the line's own stays, or the one that was picked.
    const std::string own = data::Trim(CellText(row, 0));
    for (; by.column == 1 && !found->EndOfFile(); found->MoveNext()) {
        const LineItem candidate = ItemOf(*found);
        if (candidate.code != own) continue;
        item = candidate;
        break;
    }
    FillLine(row, by.column, item);
    return true;
}

frmQCEdit::LineItem frmQCEdit::ItemOf(const platform::RecordSet& found) const {
    const auto text = [&](const char* field) { return found.Field(field).ToText(); };
    if (bEquipment) {
        return {text("cEquipCode"), text("cEquipName"), text("cEquipModel"),
                found.Field("dblTbUPrice"), std::nullopt};
    }
    return {text("cInvCode"), text("cInvName"), text("cInvStd"), found.Field("iInvRCost"),
            text("cComUnitName")};
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
