// Whether the period is closed, the year carried over, an item settled: what locks the list.
#include "data/date_text.h"
#include "data/login_context.h"
#include "data/text_conversion.h"
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

using data::gEnv;
using data::gLogin;
using data::gPmStartDate;
using platform::DateTime;
using platform::StatementText;

namespace {

std::string DottedDate(const DateTime& date) {
    return date.DateText('.');
}

// Before this day a closed item counts as settled: the first day of the month in which project
// management starts, or of the login's account year when it started before that.
DateTime SettlementBound() {
    const DateTime startMonth{gPmStartDate.year, gPmStartDate.month, 1};
    if (gLogin->Year() == data::gPmStartYear) return startMonth;
    const DateTime yearStart = gEnv->Account().YearStart(gLogin->Year());
    return DottedDate(gPmStartDate) > DottedDate(yearStart) ? startMonth : yearStart;
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

}  // namespace

bool frmPeriodItem::CheckPeriodClosed() {
    try {
        StatementText statement("select bflag_PM from Gl_mend where iperiod > = '");
        statement.Number(gEnv->Account().PeriodOf(gPmStartDate)) << "' and bflag_PM = '1'";
        return gEnv->DataAccess().Query(statement)->RecordCount() >= 1;
    } catch (...) {
        data::ReportTrapped("CheckPeriodClosed");
        return false;
    }
}

bool frmPeriodItem::CheckYearCarriedOver() {
    try {
        StatementText statement("select count(*) from PM_TranControl where  IYear = '");
        statement.Number(gLogin->Year()) << "'";
        return gEnv->DataAccess().Query(statement)->Field(0).ToInteger() > 0;
    } catch (...) {
        data::ReportTrapped("CheckYearCarriedOver");
        return false;
    }
}

StatementText frmPeriodItem::SettlementOf(const std::string& item, const std::string& key1,
                                          const std::string& key2) {
    StatementText statement("select iclose,denddate from fitemss97sub where citemcode = '");
    statement.Inside(item) << "'";
    AppendKeyCondition(statement, data::gItemKeyField1, data::gItemKeyType1, key1);
    AppendKeyCondition(statement, data::gItemKeyField2, data::gItemKeyType2, key2);
    return statement;
}

bool frmPeriodItem::CheckItemSettled(const std::string& item, const std::string& key1,
                                     const std::string& key2) {
    return IsSettled(SettlementOf(item, key1, key2));
}

bool frmPeriodItem::IsSettled(const StatementText& settlementQuery) {
    try {
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

std::string frmPeriodItem::GetItemName(const std::string& item) {
    try {
        StatementText statement("select * from Fitemss97 where citemcode = '");
        statement.Inside(item) << "'";
        const auto records = gEnv->DataAccess().Query(statement);
        return records->EndOfFile() ? "" : records->Field("citemname").ToText();
    } catch (...) {
        data::ReportTrapped("GetItemName");
        return "";
    }
}

}  // namespace kelvane::ui
