// The values of a record set as the object library types them.
#pragma once

#include "adapters/tsql/language/type.h"
#include "platform/value.h"
#include "tests/windows/ado_server/ado_error.h"
#include "tests/windows/automation/variant.h"

namespace kelvane::ado_server {

// How a provider gives amounts of the account: as currency, or as decimals with four places.
enum class MoneyForm { Currency, Decimal };

// A field's value as a host reads it: money VT_CY or VT_DECIMAL, datetime VT_DATE, bit VT_BOOL,
// tinyint VT_UI1, smallint VT_I2, int VT_I4, bigint VT_DECIMAL, float VT_R8, texts VT_BSTR.
Variant FieldVariant(const platform::Value& value, const tsql::Type& type, MoneyForm money);

// The data type number of such a field.
long DataTypeOf(const tsql::Type& type, MoneyForm money);

// What a host assigns to a field. Throws AutomationError 3421 for what no column takes.
platform::Value ValueOf(const VARIANT& variant);

}  // namespace kelvane::ado_server
