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

std::int32_t NumberAfter(const Value& last) {
    using Limits = std::numeric_limits<std::int32_t>;
    const std::int64_t lastNumber = last.ToInteger();
    if (lastNumber >= Limits::max() || lastNumber < Limits::min())
        throw std::range_error("编号溢出：" + last.ToText());
    return static_cast<std::int32_t>(lastNumber) + 1;
}

void CheckRange(std::int32_t number, const NumberRange& range) {
    if (number > range.largest)
        throw CounterExhausted("编号已用完，最大编号为 " + std::to_string(range.largest));
    if (number < range.smallest)
        throw CounterBelowRange("编号太小，最小编号为 " + std::to_string(range.smallest));
}

}  // namespace

std::int32_t TakeNumber(std::string_view name, platform::Connection& connection,
                        std::optional<NumberRange> range) {
    StatementText statement("select cValue from PM_SettingInf where cName='");
    statement.Inside(name) << "'";
    const auto counter = connection.OpenRecordSet(statement, kLockedRow);
    const std::int32_t number = NumberAfter(counter->Field("cValue"));
    if (range) CheckRange(number, *range);
    counter->SetField("cValue", Value(std::to_string(number)));
    counter->Update();
    counter->Close();
    return number;
}

}  // namespace kelvane::entries
