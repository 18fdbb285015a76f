#include "adapters/sqlite/aggregates.h"

#include <sqlite3.h>

#include "adapters/sqlite/function_support.h"
#include "adapters/tsql/language/errors.h"
#include "adapters/tsql/values/arithmetic.h"

namespace kelvane::sqlite {

namespace {

using tsql::Type;

constexpr Type kInt{Type::Kind::Int, 0};
constexpr Type kMoney{Type::Kind::Money, 0};

// The engine hands this memory out zeroed and frees it without a destructor.
struct Total {
    std::int64_t sum;
    std::int64_t count;
};

struct Single {
    sqlite3_value* value;
    std::int64_t count;
};

template <typename State>
State* StateOf(sqlite3_context* context) {
    return static_cast<State*>(sqlite3_aggregate_context(context, sizeof(State)));
}

// The state when there was a row, otherwise null.
template <typename State>
State* FinalState(sqlite3_context* context) {
    return static_cast<State*>(sqlite3_aggregate_context(context, 0));
}

void AddToTotal(sqlite3_context* context, int, sqlite3_value** values) {
    Guarded(context, [&] {
        auto* total = StateOf<Total>(context);
        if (total == nullptr) throw std::bad_alloc();
        if (sqlite3_value_type(values[0]) != SQLITE_INTEGER) return;
        total->sum = tsql::CheckedSum(total->sum, sqlite3_value_int64(values[0]), kMoney);
        ++total->count;
    });
}

template <bool IsInt, bool IsAverage>
void FinishTotal(sqlite3_context* context) {
    Guarded(context, [&] {
        const auto* total = FinalState<Total>(context);
        if (total == nullptr || total->count == 0) return sqlite3_result_null(context);
        const std::int64_t result = IsAverage ? total->sum / total->count : total->sum;
        sqlite3_result_int64(context, tsql::CheckedRange(result, IsInt ? kInt : kMoney));
    });
}

void AddSingle(sqlite3_context* context, int, sqlite3_value** values) {
    Guarded(context, [&] {
        auto* single = StateOf<Single>(context);
        if (single == nullptr) throw std::bad_alloc();
        if (++single->count > 1) throw tsql::ManyRows();
        single->value = sqlite3_value_dup(values[0]);
    });
}

void FinishSingle(sqlite3_context* context) {
    auto* single = FinalState<Single>(context);
    if (single == nullptr) return sqlite3_result_null(context);
    if (single->count == 1) sqlite3_result_value(context, single->value);
    sqlite3_value_free(single->value);
    single->value = nullptr;
}

struct AggregateFunction {
    const char* name;
    void (*step)(sqlite3_context*, int, sqlite3_value**);
    void (*finish)(sqlite3_context*);
};

constexpr AggregateFunction kAggregates[] = {
    {"kelvane_sum", AddToTotal, FinishTotal<false, false>},
    {"kelvane_sum_int", AddToTotal, FinishTotal<true, false>},
    {"kelvane_avg", AddToTotal, FinishTotal<false, true>},
    {"kelvane_avg_int", AddToTotal, FinishTotal<true, true>},
    {"kelvane_single", AddSingle, FinishSingle},
};

}  // namespace

void AddAggregates(Database& database) {
    for (const AggregateFunction& aggregate : kAggregates) {
        const int code = sqlite3_create_function_v2(
            database.Handle(), aggregate.name, 1, SQLITE_UTF8 | SQLITE_DIRECTONLY, &database,
            nullptr, aggregate.step, aggregate.finish, nullptr);
        if (code != SQLITE_OK) database.Fail(code);
    }
}

}  // namespace kelvane::sqlite
