#include "data/reference_queries.h"

#include "data/login_context.h"
#include "data/sql_text.h"
#include "data/text_conversion.h"

namespace kelvane::data {

using platform::StatementText;

StatementText CenterItemsQuery(std::string_view centerCode) {
    StatementText statement(
        "select PM_DutycenterSub.cItemCode,Fitemss97.citemname from PM_DutycenterSub inner join "
        "Fitemss97 on PM_DutycenterSub.cItemCode = Fitemss97.citemcode  where cCenterCode = '");
    return statement.Inside(centerCode) << "'";
}

StatementText DutyCenterQuery(std::string_view centerCode) {
    if (gLogin->IsExemptFromCenterAuth()) {
        StatementText statement("select cCenterCode from PM_DutyCenter where cCenterCode = '");
        return statement.Inside(centerCode) << "'";
    }
    StatementText statement(
        "select PM_DutyCenter.cCenterCode from PM_DutyCenter inner join  PM_UserAuth on "
        "PM_DutyCenter.cCenterCode = PM_UserAuth.cCenterCode where PM_UserAuth.cUserID = '");
    statement.Inside(gLogin->UserId()) << "'and  PM_DutyCenter.cCenterCode = '";
    return statement.Inside(centerCode) << "'";
}

bool ItemInDutyCenter(std::string_view itemCode) {
    const auto items =
        gEnv->DataAccess().Query(gRefByCenter ? CenterItemsQuery(gRefCenterCode)
                                              : StatementText("select cItemCode from Fitemss97"));
    bool found = false;
    if (!items->EndOfFile()) items->MoveFirst();
    for (; !found && !items->EndOfFile(); items->MoveNext())
        found = items->Field("citemcode").ToText() == itemCode;
    items->Close();
    return found;
}

bool DutyCenterAllowed(std::string_view centerCode) try {
    const auto centers = gEnv->DataAccess().Query(DutyCenterQuery(centerCode));
    const bool allowed = centers->RecordCount() > 0;
    centers->Close();
    return allowed;
} catch (...) {
    ReportTrapped("DutyCenterAllowed");
    return false;
}

bool GetElementByName(std::string_view elementName, std::int16_t& detail) {
    StatementText statement(
        "select cElementCode,iElementDetail from PM_ItemElement where cElementName =");
    const auto elements = gConn->OpenRecordSet(statement << SqlText(elementName), kTextQuery);
    if (elements->EndOfFile()) return false;
    detail = ShortInteger(elements->Field("iElementDetail").ToInteger());
    return true;
}

}  // namespace kelvane::data
