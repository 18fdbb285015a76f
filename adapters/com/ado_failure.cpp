#include "adapters/com/ado_failure.h"

#include <algorithm>
#include <array>

#include "adapters/com/automation_value.h"

namespace kelvane::com {

namespace {

constexpr HRESULT kCommandTimedOut = static_cast<HRESULT>(0x80040E31);

constexpr std::array<std::string_view, 5> kBusyStates{"40001", "40P01", "55P03", "HYT00", "S1T00"};
constexpr std::array kBusyCodes{1205, 1222};
constexpr std::array<std::string_view, 4> kLostStates{"57P01", "57P02", "57P03", "HYT01"};
constexpr std::array kLostCodes{64, 121, 10053, 10054, 10060};
constexpr std::array<std::string_view, 2> kUndoneStates{"40001", "40P01"};
constexpr int kDeadlockVictim = 1205;

template <typename Range, typename Item>
bool Holds(const Range& range, const Item& item) {
    return std::ranges::find(range, item) != range.end();
}

// "[Vendor][Driver][Server]text" is the text.
std::string WithoutDriverNames(std::string text) {
    while (text.starts_with('[')) {
        const auto end = text.find(']');
        if (end == std::string::npos || end + 1 == text.size()) break;
        text.erase(0, end + 1);
    }
    return text;
}

}  // namespace

bool AdoFailure::IsBusy() const {
    return code == kCommandTimedOut || Holds(kBusyStates, sqlState) ||
           Holds(kBusyCodes, nativeCode);
}

bool AdoFailure::IsLost() const {
    return sqlState.starts_with("08") || Holds(kLostStates, sqlState) ||
           Holds(kLostCodes, nativeCode);
}

bool AdoFailure::EndsTransaction() const {
    return nativeCode == kDeadlockVictim || Holds(kUndoneStates, sqlState);
}

AdoFailure FailureOf(const DispatchError& error, const DispatchObject& connection) {
    AdoFailure failure{WithoutDriverNames(error.Reason()), 0, "", error.Code()};
    if (!connection) return failure;
    try {
        const DispatchObject errors = connection.Object("Errors");
        const auto count = ToValue(errors.Get("Count").Get()).ToInteger();
        for (std::int64_t i = 0; i < count; ++i) {
            const DispatchObject each =
                errors.Object("Item", {Variant::OfInteger(static_cast<long>(i))});
            // Warnings stand among the errors; their number is no failure.
            if (ToValue(each.Get("Number").Get()).ToInteger() >= 0) continue;
            failure.description =
                WithoutDriverNames(ToValue(each.Get("Description").Get()).ToText());
            failure.nativeCode =
                static_cast<int>(ToValue(each.Get("NativeError").Get()).ToInteger());
            failure.sqlState = ToValue(each.Get("SQLState").Get()).ToText();
            break;
        }
    } catch (const std::exception&) {
        // The call's own report is all there is.
        return failure;
    }
    return failure;
}

}  // namespace kelvane::com
