// Filling a line from the code or the name that the operator typed.
#include <array>

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
    FixedText classBefore;
    FixedText classAfter;
    std::string_view equipmentUnknown;
    std::string_view inventoryUnknown;
    // The cell that the lookup fills beside the one it goes by.
    int otherColumn;
    const char* otherEquipmentField;
    const char* otherInventoryField;
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
        .classBefore = " and a.cInvCCode like '",
        .classAfter = "%'",
        .equipmentUnknown = "设备编码不存在或不是末级",
        .inventoryUnknown = "存货编码不存在或所属分类不正确",
        .otherColumn = 1,
        .otherEquipmentField = "cEquipName",
        .otherInventoryField = "cInvName",
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
        .classBefore = " and a.cInvCCode='",
        .classAfter = "'",
        .equipmentUnknown = "设备名称不存在或不是末级",
        .inventoryUnknown = "存货名称不存在或所属分类不正确",
        .otherColumn = 0,
        .otherEquipmentField = "cEquipCode",
        .otherInventoryField = "cInvCode",
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
        if (allowed != kNoClass) {
            statement << by.classBefore;
            statement.Inside(data::Trim(allowed)) << by.classAfter;
        }
    }
    const auto found = gConn->OpenRecordSet(statement);
    if (found->EndOfFile()) {
        data::ShowInformation(bEquipment ? by.equipmentUnknown : by.inventoryUnknown,
                              data::kModuleCaption);
        return false;
    }
    const auto fill = [&](int col, const char* field) {
        Grid1.SetText(row, col, found->Field(field).ToText());
    };
    if (bEquipment) {
        fill(by.otherColumn, by.otherEquipmentField);
        fill(2, "cEquipModel");
        SetPrice(row, found->Field("dblTbUPrice"));
    } else {
        fill(by.otherColumn, by.otherInventoryField);
        fill(2, "cInvStd");
        fill(3, "cComUnitName");
        SetPrice(row, found->Field("iInvRCost"));
    }
    RecalcAmount(row);
    return true;
}

void frmQCEdit::SetPrice(int row, const platform::Value& price) {
    Grid1.SetText(row, PriceColumn(), data::NumFormatText(price, data::kPriceKind, true));
}

}  // namespace kelvane::ui
