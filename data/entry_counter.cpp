#include "data/entry_counter.h"

#include <limits>
#include <string>

#include "data/login_context.h"
#include "data/messages.h"

namespace kelvane::data {

using platform::RecordSetOptions;
using platform::StatementText;
using platform::Value;

namespace {

constexpr RecordSetOptions kLockedRow{.location = platform::CursorLocation::Server,
                                      .cursor = platform::CursorType::Static,
                                      .lock = platform::LockType::Pessimistic};

std::int32_t NumberAfter(const Value& last, std::optional<std::int32_t> largest) {
    using Limits = std::numeric_limits<std::int32_t>;
    const std::int64_t lastNumber = last.ToInteger();
    if (largest && lastNumber >= *largest)
        throw CounterExhausted("编号已用完，最大编号为 " + std::to_string(*largest));
    if (lastNumber >= Limits::max() || lastNumber < Limits::min())
        throw std::range_error("编号溢出：" + last.ToText());
    return static_cast<std::int32_t>(lastNumber) + 1;
}

}  // namespace

std::int32_t NextSettingNumber(std::string_view name, platform::Connection& connection,
                               std::optional<std::int32_t> largest) try {
    StatementText statement("select cValue from PM_SettingInf where cName='");
    statement.Inside(name) << "'";
    const auto counter = connection.OpenRecordSet(statement, kLockedRow);
    const std::int32_t number = NumberAfter(counter->Field("cValue"), largest);
    counter->SetField("cValue", Value(std::to_string(number)));
    counter->Update();
    counter->Close();
    return number;
} catch (const CounterExhausted&) {
    throw;
} catch (...) {
    ReportTrapped("NextSettingNumber");
    ShowInformation("出现冲突，请稍后再试！");
    return kNoNumber;
}

}  // namespace kelvane::data
