// Dates of the account's settings, which people and programs have written in more forms than the
// database gives its own dates.
#pragma once

#include <string_view>

#include "platform/date_time.h"
#include "platform/value.h"

namespace kelvane::data {

// The date of a date value or of a text: every form of platform::DateTime::Parse, "2004年7月1日",
// the month alone ("2004-07", "2004/7", "2004年7月": its first day), and "Jul  1 2004 12:00AM" with
// or without the time. Throws std::invalid_argument for anything else, with `setting`, the
// setting's module and name ("PM.dPMStartDate").
platform::DateTime SettingDate(std::string_view setting, const platform::Value& value);

}  // namespace kelvane::data
