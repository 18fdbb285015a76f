// What locks the list of entries, an item's entries, or a date: the closed period, the carried-over
// year, the start year, settlement, and the first day of the opening period.
#pragma once

#include <string>

#include "entries/rules.h"
#include "platform/date_time.h"
#include "platform/statement_text.h"

namespace kelvane::entries {

// Whether the module has closed its start period or a later one, and whether the login's account
// year is carried over. Over gEnv; errors are trapped and answer False.
bool IsPeriodClosed();
bool IsYearCarriedOver();

// Everything that forbids entering in this account and year, after all of it was asked. Over gEnv;
// passes on the errors of the module's settings.
Findings LocksOfList();

// The query of an item's settlement, a keyword that is empty left out, and what its answer says:
// closed with an end date before SettlementBound(). Over gEnv; errors are trapped and answer False.
platform::StatementText SettlementQuery(const std::string& itemCode, const std::string& key1,
                                        const std::string& key2);
bool IsSettled(const platform::StatementText& settlementQuery);

// The date from which on no opening entry may be dated: the first day of the period in which
// project management starts, or of the login's account year when it started before that.
platform::DateTime OpeningBound();

// Before this day a closed item counts as settled: the first day of the month in which project
// management starts, or of the login's account year when it started before that.
platform::DateTime SettlementBound();

// The name of an item; empty when there is none, and after an error, which is trapped. Over gEnv.
std::string NameOfItem(const std::string& itemCode);

}  // namespace kelvane::entries
