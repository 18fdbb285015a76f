// Checks of codes and names against the account's master data and the operator's authorisation.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/statement_text.h"

namespace kelvane::data {

// Whether project item `itemCode` exists; when gRefByCenter is set, whether it is assigned to the
// duty centre gRefCenterCode. Letter case counts. Over gEnv; passes errors on.
bool ItemInDutyCenter(std::string_view itemCode);

// Whether duty centre `centerCode` exists and the operator may use it. Over gEnv; traps every
// error and answers False.
bool DutyCenterAllowed(std::string_view centerCode);

// What DutyCenterAllowed() asks, and ItemInDutyCenter() for the items of a centre.
platform::StatementText DutyCenterQuery(std::string_view centerCode);
platform::StatementText CenterItemsQuery(std::string_view centerCode);

// Whether an element of that name exists; then `detail` becomes its element-detail flag, otherwise
// it keeps its value. Over gConn; passes errors on.
bool GetElementByName(std::string_view elementName, std::int16_t& detail);

}  // namespace kelvane::data
