// The login context as a program that has just started finds it. It is module-level: what one test
// leaves in it would be there for the next.
#pragma once

#include "data/login_context.h"

namespace kelvane::support {

// Sets every value of the login context to what it is before the first login. Who hears of trapped
// errors stays: the windows outlive a test.
inline void ResetLoginContext() {
    using namespace data;
    gConn.reset();
    gEnv = nullptr;
    gLogin = nullptr;
    gServices = nullptr;
    gUnitName = gOperatorName = gAccountYear = gToday = gPrintStylePath = "";
    gColorWhite = gColorLocked = gColorPink = gColorCream = 0;
    gNumPointQty = gNumPointPrice = gNumPointRate = 0;
    gNumPointMoney = 2;
    gNumPointsFailed = false;
    gItemKeyCount = gItemKeyType1 = gItemKeyType2 = 0;
    gItemKeyField1 = gItemKeyField2 = "";
    gSurplusKeyFields.clear();
    gPmStartDate = {1899, 12, 30};
    gPmStartYear = 0;
    gToolbarStyle = 0;
    gRefCenterCode.clear();
    gRefByCenter = false;
}

}  // namespace kelvane::support
