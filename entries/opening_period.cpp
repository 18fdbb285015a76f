#include "entries/opening_period.h"

#include "data/login_context.h"
#include "data/setting_date.h"
#include "data/text_conversion.h"
#include "entries/failure_reason.h"

namespace kelvane::entries {

using data::gEnv;
using data::gLogin;
using data::gPmStartDate;
using platform::DateTime;
using platform::StatementText;

namespace {

// Dates are compared as the texts that the windows show.
std::string DottedDate(const DateTime& date) {
    return date.DateText('.');
}

bool StartedInOrAfter(const DateTime& yearStart) {
    return DottedDate(gPmStartDate) > DottedDate(yearStart);
}

void AppendKeyCondition(StatementText& statement, const std::string& field, std::int16_t type,
                        const std::string& key) {
    if (data::Trim(key).empty()) return;
    statement << " and isnull(";
    statement.Identifier(field);
    if (type == 1 || type == 2) {
        statement << ",'') = ";
        statement.NumericText(key);
    } else {
        statement << ",'') = '";
        statement.Inside(key) << "'";
    }
}

// Without names for its key fields the class's keywords cannot be asked for.
std::string TooManyKeyFields() {
    std::string names;
    for (const std::string& name : data::gSurplusKeyFields) {
        names += (names.empty() ? "" : "、") + name;
    }
    return "项目大类的关键字字段多于两个（" + names + "），不能按关键字检查。";
}

}  // namespace

bool IsPeriodClosed() {
    try {
        StatementText statement("select bflag_PM from Gl_mend where iperiod > = '");
        statement.Number(gEnv->Account().PeriodOf(gPmStartDate)) << "' and bflag_PM = '1'";
        return gEnv->DataAccess().Query(statement)->RecordCount() >= 1;
    } catch (...) {
        data::ReportTrapped("CheckPeriodClosed");
        return false;
    }
}

bool IsYearCarriedOver() {
    try {
        StatementText statement("select count(*) from PM_TranControl where  IYear = '");
        statement.Number(gLogin->Year()) << "'";
        return gEnv->DataAccess().Query(statement)->Field(0).ToInteger() > 0;
    } catch (...) {
        data::ReportTrapped("CheckYearCarriedOver");
        return false;
    }
}

Findings LocksOfList() {
    Findings found;
    const std::string year = std::to_string(gLogin->Year());
    if (IsPeriodClosed()) found.push_back(Found(Rule::PeriodClosed));
    if (IsYearCarriedOver()) found.push_back(Found(Rule::YearCarriedOver, year));
    if (!found.empty()) return found;
    const std::string start = gEnv->ModuleSetting("PM", "dPMStartDatePeriod");
    if (data::SettingDate("PM.dPMStartDatePeriod", platform::Value(start)).year != gLogin->Year()) {
        found.push_back(Found(Rule::OtherStartYear, year));
    }
    return found;
}

StatementText SettlementQuery(const std::string& itemCode, const std::string& key1,
                              const std::string& key2) {
    StatementText statement("select iclose,denddate from fitemss97sub where citemcode = '");
    statement.Inside(itemCode) << "'";
    AppendKeyCondition(statement, data::gItemKeyField1, data::gItemKeyType1, key1);
    AppendKeyCondition(statement, data::gItemKeyField2, data::gItemKeyType2, key2);
    return statement;
}

bool IsSettled(const StatementText& settlementQuery) {
    try {
        if (settlementQuery.IsMalformed() && !data::gSurplusKeyFields.empty()) {
            throw ToldFailure(TooManyKeyFields());
        }
        const auto records = gEnv->DataAccess().Query(settlementQuery);
        if (records->EndOfFile()) return false;
        if (records->Field("iclose").ToInteger() == 0) return false;
        const platform::Value endDate = records->Field("denddate");
        const std::string endText = endDate.IsNull() ? "" : DottedDate(endDate.ToDateTime());
        return endText < DottedDate(SettlementBound());
    } catch (...) {
        data::ReportTrapped("CheckItemSettled");
        return false;
    }
}

DateTime OpeningBound() {
    platform::HostAccount& calendar = gEnv->Account();
    const int year = gLogin->Year();
    if (year == data::gPmStartYear) return calendar.PeriodStart(gPmStartDate);
    const DateTime yearStart = calendar.YearStart(year);
    return StartedInOrAfter(yearStart) ? calendar.PeriodStart(gPmStartDate) : yearStart;
}

DateTime SettlementBound() {
    const DateTime startMonth{gPmStartDate.year, gPmStartDate.month, 1};
    if (gLogin->Year() == data::gPmStartYear) return startMonth;
    const DateTime yearStart = gEnv->Account().YearStart(gLogin->Year());
    return StartedInOrAfter(yearStart) ? startMonth : yearStart;
}

std::string NameOfItem(const std::string& itemCode) {
    try {
        StatementText statement("select * from Fitemss97 where citemcode = '");
        statement.Inside(itemCode) << "'";
        const auto records = gEnv->DataAccess().Query(statement);
        return records->EndOfFile() ? "" : records->Field("citemname").ToText();
    } catch (...) {
        data::ReportTrapped("GetItemName");
        return "";
    }
}

}  // namespace kelvane::entries
