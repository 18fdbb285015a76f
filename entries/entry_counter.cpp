#include "entries/entry_counter.h"

#include <limits>
#include <string>

namespace kelvane::entries {

using platform::RecordSetOptions;
using platform::StatementText;
using platform::Value;

namespace {

constexpr RecordSetOptions kLockedRow{.location = platform::CursorLocation::Server,
                                      .cursor = platform::CursorType::Static,
                                      .lock = platform::LockType::Pessimistic};

// The numbers behind the last one that was given out.
struct NextNumbers {
    std::int32_t first;
    std::int32_t last;
};

NextNumbers NumbersAfter(const Value& before, std::int32_t count) {
    using Limits = std::numeric_limits<std::int32_t>;
    const std::int64_t last = before.ToInteger();
    if (last > Limits::max() - count || last < Limits::min())
        throw std::range_error("编号溢出：" + before.ToText());
    const auto number = static_cast<std::int32_t>(last);
    return {number + 1, number + count};
}

void CheckRange(const NextNumbers& numbers, const NumberRange& range) {
    if (numbers.last > range.largest)
        throw CounterExhausted("编号已用完，最大编号为 " + std::to_string(range.largest));
    if (numbers.first < range.smallest)
        throw CounterBelowRange("编号太小，最小编号为 " + std::to_string(range.smallest));
}

StatementText CounterQuery(std::string_view name) {
    StatementText statement("select cValue from PM_SettingInf where cName='");
    statement.Inside(name) << "'";
    return statement;
}

}  // namespace

std::int32_t TakeNumber(std::string_view name, platform::Connection& connection,
                        std::optional<NumberRange> range) {
    return TakeNumbers(name, connection, 1, range);
}

std::int32_t TakeNumbers(std::string_view name, platform::Connection& connection,
                         std::int32_t count, std::optional<NumberRange> range) {
    const auto counter = connection.OpenRecordSet(CounterQuery(name), kLockedRow);
    const NextNumbers numbers = NumbersAfter(counter->Field("cValue"), count);
    if (range) CheckRange(numbers, *range);
    counter->SetField("cValue", Value(std::to_string(numbers.last)));
    counter->Update();
    counter->Close();
    return numbers.first;
}

std::int32_t NextNumber(std::string_view name, platform::Connection& connection) {
    return NumbersAfter(connection.OpenRecordSet(CounterQuery(name))->Field("cValue"), 1).first;
}

}  // namespace kelvane::entries
