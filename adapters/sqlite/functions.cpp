#include "adapters/sqlite/functions.h"

#include <sqlite3.h>

#include <new>
#include <string>
#include <string_view>

#include "adapters/sqlite/aggregates.h"
#include "adapters/sqlite/database.h"
#include "adapters/sqlite/function_support.h"
#include "adapters/tsql/language/text_rules.h"
#include "adapters/tsql/values/arithmetic.h"
#include "adapters/tsql/values/conversion.h"
#include "adapters/tsql/values/stored_value.h"

namespace kelvane::sqlite {

namespace {

using tsql::Datum;
using tsql::Type;

Type TypeArgument(sqlite3_value* kind, sqlite3_value* length = nullptr) {
    return {static_cast<Type::Kind>(sqlite3_value_int(kind)),
            length == nullptr ? 0 : sqlite3_value_int(length)};
}

std::string_view TextArgument(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return {text == nullptr ? "" : text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

Datum Date(sqlite3_value** values) {
    return tsql::Loaded(DatumOf(values[0]), {Type::Kind::DateTime, 0});
}

Datum Convert(sqlite3_value** values) {
    const Type from = TypeArgument(values[1]);
    return tsql::Convert(tsql::Loaded(DatumOf(values[0]), from), from,
                         TypeArgument(values[2], values[3]), sqlite3_value_int(values[4]));
}

Datum Store(sqlite3_value** values) {
    return tsql::Stored(DatumOf(values[0]), TypeArgument(values[1], values[2]),
                        TextArgument(values[3]));
}

Datum Arithmetic(sqlite3_value** values) {
    const Type type = TypeArgument(values[1]);
    return tsql::Arithmetic(TextArgument(values[0]).front(), type,
                            tsql::Loaded(DatumOf(values[2]), type),
                            tsql::Loaded(DatumOf(values[3]), type));
}

Datum Like(sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) == SQLITE_NULL ||
        sqlite3_value_type(values[1]) == SQLITE_NULL) {
        return {};
    }
    const bool matches = tsql::MatchesPattern(TextArgument(values[1]), TextArgument(values[0]));
    return std::int64_t{matches ? 1 : 0};
}

// Behind whatever a text goes on with.
constexpr std::string_view kLastCharacter = "\xFF\xFF\xFF\xFF";

// Called for every row of a join, so without the detour over a value of ours.
template <bool IsLast>
void CallKey(sqlite3_context* context, int, sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) == SQLITE_NULL) return;
    const std::string_view text = tsql::TrimEnd(TextArgument(values[0]));
    const std::string_view part = tsql::AsciiCasedPart(text);
    if (!IsLast || part.size() == text.size()) {
        sqlite3_result_text64(context, part.data(), part.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
        return;
    }
    Guarded(context, [&] { SetResult(context, std::string(part).append(kLastCharacter)); });
}

// Called for every amount that is added up, and nearly all are stored as texts.
void CallUnits(sqlite3_context* context, int, sqlite3_value** values) {
    Guarded(context, [&] {
        if (sqlite3_value_type(values[0]) == SQLITE_TEXT) {
            sqlite3_result_int64(context, tsql::MoneyUnits(TextArgument(values[0])));
        } else {
            SetResult(context, tsql::Loaded(DatumOf(values[0]), {Type::Kind::Money, 0}));
        }
    });
}

template <Datum (*Function)(sqlite3_value**)>
void Call(sqlite3_context* context, int, sqlite3_value** values) {
    Guarded(context, [&] { SetResult(context, Function(values)); });
}

int Compare(void*, int lengthA, const void* a, int lengthB, const void* b) {
    return tsql::CompareText({static_cast<const char*>(a), static_cast<std::size_t>(lengthA)},
                             {static_cast<const char*>(b), static_cast<std::size_t>(lengthB)});
}

struct ScalarFunction {
    const char* name;
    int arguments;
    void (*call)(sqlite3_context*, int, sqlite3_value**);
};

constexpr ScalarFunction kFunctions[] = {
    {"kelvane_units", 1, CallUnits},
    {"kelvane_date", 1, Call<Date>},
    {"kelvane_convert", 5, Call<Convert>},
    {"kelvane_store", 4, Call<Store>},
    {"kelvane_arithmetic", 4, Call<Arithmetic>},
    {"kelvane_like", 2, Call<Like>},
    {"kelvane_first_key", 1, CallKey<false>},
    {"kelvane_last_key", 1, CallKey<true>},
};

}  // namespace

void AddFunctions(Database& database) {
    constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY;
    for (const ScalarFunction& function : kFunctions) {
        const int code =
            sqlite3_create_function_v2(database.Handle(), function.name, function.arguments, kFlags,
                                       &database, function.call, nullptr, nullptr, nullptr);
        if (code != SQLITE_OK) database.Fail(code);
    }
    AddAggregates(database);
    const int code = sqlite3_create_collation_v2(database.Handle(), "kelvane_text", SQLITE_UTF8,
                                                 nullptr, Compare, nullptr);
    if (code != SQLITE_OK) database.Fail(code);
}

}  // namespace kelvane::sqlite
