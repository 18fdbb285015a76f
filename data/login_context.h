// The login context: the module-level values that every part of the component reads. Init and Show
// of PeriodItem and the loaders below set them; nothing clears them, a later Init overwrites them.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database.h"
#include "platform/date_time.h"
#include "platform/host.h"
#include "platform/services.h"

namespace kelvane::data {

// Colours as the platform writes them: 0xBBGGRR.
using Color = std::uint32_t;

// The host's two objects and the services the component runs on; not owned, set before anything
// else is called.
extern platform::HostLogin* gLogin;
extern platform::HostEnvironment* gEnv;
extern platform::Services* gServices;

// The component's own connection to the account database.
extern std::shared_ptr<platform::Connection> gConn;

// Printed in headers: unit, operator, account year, and today as "yyyy.mm.dd".
extern std::string gUnitName;
extern std::string gOperatorName;
extern std::string gAccountYear;
extern std::string gToday;
// The folder of the print styles, with its trailing separator.
extern std::string gPrintStylePath;

extern Color gColorWhite;
extern Color gColorLocked;
extern Color gColorPink;
extern Color gColorCream;

// Decimal places of quantities, prices, rates and money; money always has 2.
extern std::int16_t gNumPointQty;
extern std::int16_t gNumPointPrice;
extern std::int16_t gNumPointRate;
extern std::int16_t gNumPointMoney;
// Whether the last reading of the decimal places failed.
extern bool gNumPointsFailed;

// Key fields of the project item class: how many, their column names and type codes.
extern std::int16_t gItemKeyCount;
extern std::string gItemKeyField1;
extern std::string gItemKeyField2;
extern std::int16_t gItemKeyType1;
extern std::int16_t gItemKeyType2;
// The names of all key fields when there are more than the two that can be used; empty otherwise.
extern std::vector<std::string> gSurplusKeyFields;

// Start date of project management, and the year of its start period.
extern platform::DateTime gPmStartDate;
extern std::int16_t gPmStartYear;

// Non-zero: the plain toolbar; 0: the suite's.
extern std::int16_t gToolbarStyle;

// The duty centre whose items alone the item pick list and the item check take, and whether they
// are restricted to it at all.
extern std::string gRefCenterCode;
extern bool gRefByCenter;

// Reads the decimal places from the settings, over gConn. Traps every error and sets
// gNumPointsFailed then: values not reached keep their content.
void LoadNumPoints();

// Reads count, names and types of the item class's key fields, over gEnv. Traps every error.
void LoadItemKeyFields();

// Reads the start date and the start period's year, over gEnv. Traps every error.
void LoadPmStartDate();

// Reports the exception being handled as trapped in `place`, to the diagnostics service and to
// gTrapListener, unless platform::Aside is active. For use in a catch block.
void ReportTrapped(std::string_view place) noexcept;
// The same for an error whose text is known.
void ReportTrapped(std::string_view place, std::string_view detail) noexcept;

// Told of every trapped error by the routine that trapped it; the entry list sets it.
extern std::function<void(std::string_view place)> gTrapListener;

}  // namespace kelvane::data
