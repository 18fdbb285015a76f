// Between what an engine stores or returns and platform::Value.
#pragma once

#include "adapters/tsql/values/conversion.h"
#include "platform/value.h"

namespace kelvane::tsql {

// A stored or computed value of type `type`. Throws DatabaseError when what another program stored
// there is no such value.
platform::Value ToValue(Datum stored, Type type);

// `value` as column `column` of type `type` stores it. Throws DatabaseError when it cannot.
Datum ToStored(const platform::Value& value, Type type, std::string_view column);

}  // namespace kelvane::tsql
