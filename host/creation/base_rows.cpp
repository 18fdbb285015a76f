#include "host/creation/base_rows.h"

#include "host/account/account_calendar.h"
#include "host/account/host_tables.h"
#include "host/account/item_class.h"
#include "host/sample/sample_catalog.h"
#include "host/sample/sample_company.h"

namespace kelvane::host {

namespace {

using platform::Value;

constexpr std::string_view kEmptyUnitName = "新建单位";
constexpr SampleOperator kOnlyOperator = {"admin", "管理员", true, 0};

constexpr int kFirstYear = 2003;
constexpr int kLastYear = 2006;
constexpr int kPeriods = 12;

TableRows UnitRows(const NewAccount& account) {
    return {
        "Host_Unit", {"cUnitName"}, {{Value(account.sample ? kSampleUnitName : kEmptyUnitName)}}};
}

TableRows OperatorRows(const NewAccount& account) {
    TableRows rows{"Host_Operator", {"cUserID", "cName", "bExempt"}, {}};
    const auto operators =
        account.sample ? SampleOperators() : std::span<const SampleOperator>(&kOnlyOperator, 1);
    for (const auto& user : operators) {
        rows.rows.push_back(
            {Value(user.userId), Value(user.name), Value(std::int64_t{user.exempt ? 1 : 0})});
    }
    return rows;
}

TableRows CalendarRows() {
    TableRows rows{"Host_Period", {"iYear", "iPeriod", "dStart", "dEnd"}, {}};
    for (int year = kFirstYear; year <= kLastYear; ++year) {
        for (const Period& period : MonthlyPeriods(year)) {
            rows.rows.push_back({Value(std::int64_t{period.year}),
                                 Value(std::int64_t{period.number}), Value(period.start),
                                 Value(period.end)});
        }
    }
    return rows;
}

TableRows HostSettingRows(const NewAccount& account) {
    const auto user = account.sample ? SampleOperators().front().userId : kOnlyOperator.userId;
    return {"Host_Setting",
            {"cModule", "cName", "cValue"},
            {{Value(kHostModule), Value(kUsualUser), Value(user)},
             {Value(kHostModule), Value(kUsualYear), Value(std::to_string(kSampleStart.year))}}};
}

TableRows ModuleSettingRows() {
    const std::string start = kSampleStart.DateText();
    return {"AccInformation",
            {"cSysID", "cName", "cValue"},
            {{Value("PM"), Value("dPMStartDate"), Value(start)},
             {Value("PM"), Value("dPMStartDatePeriod"), Value(start)}}};
}

TableRows ComponentSettingRows(const NewAccount& account) {
    const std::int64_t lastEntry = account.sample ? account.entries : 0;
    return {"PM_SettingInf",
            {"cName", "cValue"},
            {{Value("NumPoint_Num"), Value("3")},
             {Value("NumPoint_Price"), Value("2")},
             {Value("NumPoint_Rate"), Value("4")},
             {Value("NumMax_EleQc"), Value(std::to_string(lastEntry))}}};
}

TableRows PeriodControlRows() {
    TableRows rows{"Gl_mend", {"iperiod", "bflag_PM"}, {}};
    for (std::int64_t period = 1; period <= kPeriods; ++period) {
        rows.rows.push_back({Value(period), Value(std::int64_t{0})});
    }
    return rows;
}

TableRows ItemClassRows(const NewAccount& account) {
    TableRows rows{"fitemstructure",
                   {"citem_class", "cfield_name", "itype", "iSubItem", "bPrimaryKey", "ctext"},
                   {}};
    const auto add = [&rows](std::string_view name, FieldType type, bool sub, bool key,
                             std::string_view caption) {
        rows.rows.push_back(
            {Value(kProjectClass), Value(name), Value(static_cast<std::int64_t>(type)),
             Value(std::int64_t{sub ? 1 : 0}), Value(std::int64_t{key ? 1 : 0}), Value(caption)});
    };
    add("citemcode", FieldType::Text, false, true, "项目编码");
    add("citemname", FieldType::Text, false, false, "项目名称");
    for (const auto& field : ItemKeyFields(account.keyFields)) {
        add(field.name, field.type, true, true, field.name);
    }
    add("iclose", FieldType::Flag, true, false, "是否完工");
    add("denddate", FieldType::Date, true, false, "完工日期");
    return rows;
}

}  // namespace

std::vector<TableRows> BaseRows(const NewAccount& account) {
    return {UnitRows(account),        OperatorRows(account), CalendarRows(),
            HostSettingRows(account), ModuleSettingRows(),   ComponentSettingRows(account),
            PeriodControlRows(),      ItemClassRows(account)};
}

}  // namespace kelvane::host
