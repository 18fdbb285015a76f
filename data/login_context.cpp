#include "data/login_context.h"

#include "data/setting_date.h"
#include "data/sql_text.h"
#include "data/text_conversion.h"
#include "platform/aside.h"

namespace kelvane::data {

using platform::StatementText;

platform::HostLogin* gLogin = nullptr;
platform::HostEnvironment* gEnv = nullptr;
platform::Services* gServices = nullptr;
std::shared_ptr<platform::Connection> gConn;

std::string gUnitName;
std::string gOperatorName;
std::string gAccountYear;
std::string gToday;
std::string gPrintStylePath;

Color gColorWhite = 0;
Color gColorLocked = 0;
Color gColorPink = 0;
Color gColorCream = 0;

std::int16_t gNumPointQty = 0;
std::int16_t gNumPointPrice = 0;
std::int16_t gNumPointRate = 0;
std::int16_t gNumPointMoney = 2;
bool gNumPointsFailed = false;

std::int16_t gItemKeyCount = 0;
std::string gItemKeyField1;
std::string gItemKeyField2;
std::int16_t gItemKeyType1 = 0;
std::int16_t gItemKeyType2 = 0;
std::vector<std::string> gSurplusKeyFields;

platform::DateTime gPmStartDate = {1899, 12, 30};
std::int16_t gPmStartYear = 0;

std::int16_t gToolbarStyle = 0;

std::string gRefCenterCode;
bool gRefByCenter = false;

std::function<void(std::string_view place)> gTrapListener;

namespace {

struct NumPoint {
    std::string_view name;
    std::int16_t& value;
};

const NumPoint kNumPoints[] = {
    {"NumPoint_Num", gNumPointQty},
    {"NumPoint_Price", gNumPointPrice},
    {"NumPoint_Rate", gNumPointRate},
};

void TakeItemKeyField(const platform::RecordSet& fields, std::string& name, std::int16_t& type) {
    name = fields.Field("cfield_name").ToText();
    type = ShortIntegerOf(fields.Field("itype").ToText());
}

}  // namespace

void LoadNumPoints() try {
    const auto settings = gConn->OpenRecordSet(
        StatementText("select cname, cValue from PM_SettingInf  where cName like 'NumPoint%' "),
        kTextQuery);
    for (; !settings->EndOfFile(); settings->MoveNext()) {
        const std::string name = settings->Field(0).ToText();
        for (const NumPoint& point : kNumPoints) {
            if (name == point.name) point.value = ShortInteger(settings->Field(1).ToInteger());
        }
    }
    gNumPointMoney = 2;
    gNumPointsFailed = false;
} catch (...) {
    gNumPointsFailed = true;
    ReportTrapped("LoadNumPoints");
}

void LoadItemKeyFields() try {
    const auto fields = gEnv->DataAccess().Query(StatementText(
        " SELECT * From fitemstructure WHERE (citem_class = '97') AND (iSubItem = '1') AND "
        "(bPrimaryKey = '1')"));
    gItemKeyCount = ShortInteger(fields->RecordCount());
    gSurplusKeyFields.clear();
    if (gItemKeyCount == 1) {
        TakeItemKeyField(*fields, gItemKeyField1, gItemKeyType1);
    } else if (gItemKeyCount == 2) {
        fields->MoveFirst();
        TakeItemKeyField(*fields, gItemKeyField1, gItemKeyType1);
        fields->MoveNext();
        TakeItemKeyField(*fields, gItemKeyField2, gItemKeyType2);
    } else {
        for (; !fields->EndOfFile(); fields->MoveNext()) {
            gSurplusKeyFields.push_back(fields->Field("cfield_name").ToText());
        }
    }
    fields->Close();
} catch (...) {
    ReportTrapped("LoadItemKeyFields");
}

void LoadPmStartDate() try {
    auto values = gEnv->DataAccess().Query(StatementText(
        "SELECT cValue From AccInformation WHERE cSysID = 'PM' and cName = 'dPMStartDate'"));
    if (!values->EndOfFile())
        gPmStartDate = SettingDate("PM.dPMStartDate", values->Field("cValue"));
    values = gEnv->DataAccess().Query(StatementText(
        "SELECT cValue From AccInformation WHERE cSysID = 'PM' and cName = 'dPMStartDatePeriod'"));
    if (!values->EndOfFile())
        gPmStartYear =
            ShortInteger(SettingDate("PM.dPMStartDatePeriod", values->Field("cValue")).year);
    values->Close();
} catch (...) {
    ReportTrapped("LoadPmStartDate");
}

void ReportTrapped(std::string_view place) noexcept {
    try {
        throw;
    } catch (const std::exception& error) {
        ReportTrapped(place, error.what());
    } catch (...) {
        ReportTrapped(place, "unknown error");
    }
}

void ReportTrapped(std::string_view place, std::string_view detail) noexcept {
    if (gServices && gServices->diagnostics) gServices->diagnostics->Trapped(place, detail);
    if (gTrapListener && !platform::Aside::IsActive()) gTrapListener(place);
}

}  // namespace kelvane::data
