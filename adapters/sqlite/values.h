// Between what the engine stores and platform::Value.
#pragma once

#include "adapters/tsql/conversion.h"
#include "platform/value.h"

namespace kelvane::sqlite {

// A stored or computed value of type `type`. Throws DatabaseError when what another program stored
// there is no such value.
platform::Value ToValue(tsql::Datum stored, tsql::Type type);

// `value` as column `column` of type `type` stores it. Throws DatabaseError when it cannot.
tsql::Datum ToStored(const platform::Value& value, tsql::Type type, std::string_view column);

}  // namespace kelvane::sqlite
