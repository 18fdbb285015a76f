#include "ui/common/entry_number.h"

#include "data/login_context.h"
#include "ui/common/findings.h"

namespace kelvane::ui {

std::int32_t NextSettingNumber(std::string_view name, platform::Connection& connection,
                               std::optional<entries::NumberRange> range) try {
    return entries::TakeNumber(name, connection, range);
} catch (const entries::CounterExhausted&) {
    throw;
} catch (const entries::CounterBelowRange&) {
    throw;
} catch (...) {
    data::ReportTrapped("NextSettingNumber");
    ShowFinding(entries::Found(entries::Rule::CounterMissing));
    return kNoNumber;
}

}  // namespace kelvane::ui
