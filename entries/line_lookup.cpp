#include "entries/line_lookup.h"

#include "data/login_context.h"
#include "data/sql_text.h"
#include "data/text_conversion.h"

namespace kelvane::entries {

using data::gConn;
using data::SqlText;
using platform::RecordSet;
using platform::StatementText;

namespace {

constexpr std::string_view kNoClass = "无分类";

// The inventory class that the entry's element allows; empty when the element is unknown.
std::string AllowedClass(const std::string& elementName) {
    StatementText statement("select cInvCCode from pm_itemelement where cElementName=");
    const auto element = gConn->OpenRecordSet(statement << SqlText(elementName));
    return element->EndOfFile() ? "" : element->Field(0).ToText();
}

StatementText EquipmentQuery(LineField by, const std::string& sought) {
    StatementText statement;
    if (by == LineField::Code) {
        statement << "select * from pm_equipment where cEquipCode=";
    } else {
        statement << "select * from pm_equipment where cEquipName=";
    }
    return statement << SqlText(sought) << " and bEquipEnd=1";
}

// The two differ on purpose: by code the class of the entry's element is a prefix of the
// inventory's, by name it is the same one.
StatementText InventoryQuery(LineField by, const std::string& sought, const std::string& allowed) {
    StatementText statement(
        "select a.cInvCode,a.cInvName,a.cInvStd,a.iInvRCost,b.cComUnitName from "
        "inventory a left join computationunit b on a.cSAComUnitCode=b.cComUnitCode");
    if (by == LineField::Code) {
        statement << " where a.cInvCode=" << SqlText(sought);
        if (allowed == kNoClass) return statement;
        statement << " and a.cInvCCode like '";
        return statement.Inside(allowed) << "%'";
    }
    statement << " where a.cInvName=" << SqlText(sought);
    if (allowed == kNoClass) return statement;
    return statement << " and a.cInvCCode=" << SqlText(allowed);
}

LineItem ItemOf(DetailKind kind, const RecordSet& found) {
    const auto text = [&](const char* field) { return found.Field(field).ToText(); };
    if (kind == DetailKind::Equipment) {
        return {text("cEquipCode"), text("cEquipName"), text("cEquipModel"),
                found.Field("dblTbUPrice"), std::nullopt};
    }
    return {text("cInvCode"), text("cInvName"), text("cInvStd"), found.Field("iInvRCost"),
            text("cComUnitName")};
}

}  // namespace

std::optional<LineItem> LookUpLineItem(DetailKind kind, LineField by, const std::string& sought,
                                       const std::string& elementName, const std::string& ownCode) {
    const auto found = gConn->OpenRecordSet(
        kind == DetailKind::Equipment ? EquipmentQuery(by, sought)
                                      : InventoryQuery(by, sought, AllowedClass(elementName)));
    if (found->EndOfFile()) return std::nullopt;
    LineItem item = ItemOf(kind, *found);
    for (; by == LineField::Name && !found->EndOfFile(); found->MoveNext()) {
        const LineItem candidate = ItemOf(kind, *found);
        if (candidate.code == ownCode) return candidate;
    }
    return item;
}

}  // namespace kelvane::entries
