#include "ui/common/reference_pick.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <memory>

#include "data/login_context.h"

namespace kelvane::ui {

using data::gEnv;
using data::gLogin;
using platform::RecordSet;
using platform::ReferenceList;
using platform::StatementText;

namespace {

using ChosenRow = std::unique_ptr<RecordSet>;

ChosenRow PickCenter(ReferenceList& service) {
    StatementText statement("select * from PM_DutyCenter");
    if (!gLogin->IsExemptFromCenterAuth()) {
        statement = StatementText(
            "select * from PM_DutyCenter inner join  PM_UserAuth on PM_DutyCenter.cCenterCode = "
            "PM_UserAuth.cCenterCode where PM_UserAuth.cUserID = '");
        statement.Inside(gLogin->UserId()) << "'";
    }
    return service.ListByKey(*gLogin, statement, "Pm_Dutyref", {});
}

ChosenRow PickItem(ReferenceList& service) {
    std::string caption;
    try {
        const auto field = gEnv->DataAccess().Query(StatementText(
            "select ctext  from fitemstructure where citem_class = '97' and cfield_name = "
            "'citemname' and isubitem = '0'"));
        if (!field->EndOfFile()) caption = field->Field(0).ToText();
    } catch (...) {
        data::ReportTrapped("SelectReference");
    }
    // Restricted to a duty centre, the statement names no table: the pick-list service completes
    // it.
    const StatementText statement =
        data::gRefByCenter
            ? StatementText("select distinct PM_DutycenterSub.cItemCode,Fitemss97.citemname")
            : StatementText("select cItemCode,citemname from  Fitemss97 ");
    return service.ListByStatement(*gLogin, statement, "项目编码," + caption, "2500,3000", {});
}

ChosenRow PickElement(ReferenceList& service) {
    return service.ListByKey(*gLogin, StatementText("select * from pm_itemelement"), "Pm_Eleref",
                             {});
}

ChosenRow PickEquipment(ReferenceList& service) {
    return service.ListByName(*gLogin, "PM_Equipment", {});
}

ChosenRow PickInventory(ReferenceList& service) {
    return service.ListByStatement(
        *gLogin,
        StatementText("select a.cInvCode,a.cInvName,a.cInvStd,a.iInvRCost,b.cComUnitName from "
                      "inventory a left "
                      "join computationunit b on a.cSAComUnitCode=b.cComUnitCode"),
        "存货编码,存货名称,存货规格,存货单价,存货单位", "1000,1000,1000,1000,1000", {});
}

// What a kind shows, and the columns that its code and description come from; no columns means the
// first and the second.
struct Kind {
    std::int16_t number;
    ChosenRow (*pick)(ReferenceList&);
    const char* code;
    std::array<const char*, 4> description;
};

constexpr std::array kKinds{
    Kind{kCenterReference, PickCenter, "cCenterCode", {"cCenterName"}},
    Kind{kItemReference, PickItem, nullptr, {}},
    Kind{kElementReference, PickElement, "cElementCode", {"cElementName"}},
    Kind{kEquipmentReference,
         PickEquipment,
         "cEquipCode",
         {"cEquipName", "cEquipModel", "dblTbUPrice"}},
    Kind{kInventoryReference,
         PickInventory,
         "cInvCode",
         {"cInvName", "cInvStd", "iInvRCost", "cComUnitName"}},
};

std::string CodeOf(const Kind& kind, const RecordSet& row) {
    return (kind.code != nullptr ? row.Field(kind.code) : row.Field(0)).ToText();
}

std::string Describe(const Kind& kind, const RecordSet& row) {
    if (kind.description[0] == nullptr) return row.Field(1).ToText();
    std::string text;
    for (const char* field : kind.description) {
        if (field == nullptr) break;
        if (!text.empty() || field != kind.description[0]) text += ',';
        text += row.Field(field).ToText();
    }
    return text;
}

// Sets `output` to what `read` gives; when that fails, `output` stays and the caller goes on.
template <typename Read>
void Take(std::string& output, const Read& read) {
    try {
        output = read();
    } catch (...) {
        data::ReportTrapped("SelectReference");
    }
}

}  // namespace

void SelectReference(std::int16_t kind, std::string& code, std::string& description,
                     std::string_view present) {
    const auto* entry = std::find_if(kKinds.begin(), kKinds.end(), [&](const Kind& candidate) {
        return candidate.number == kind;
    });
    if (entry == kKinds.end()) return;
    ChosenRow row;
    try {
        const auto service = data::gServices->createReferenceList();
        service->OpenOn(present);
        row = entry->pick(*service);
        if (row == nullptr || row->EndOfFile()) return;
    } catch (...) {
        data::ReportTrapped("SelectReference");
        return;
    }
    Take(code, [&] { return CodeOf(*entry, *row); });
    Take(description, [&] { return Describe(*entry, *row); });
}

}  // namespace kelvane::ui
