#include "adapters/odbc/diagnostics.h"

#include <optional>
#include <string_view>

#include "adapters/odbc/wide_text.h"

namespace kelvane::odbc {

namespace {

constexpr std::size_t kMaxTextLength = 2048;
constexpr SQLSMALLINT kMaxRecords = 32;
// "Not connected" alone: where another record gives the reason for it, that one is told.
constexpr std::string_view kNotConnected = "08001";

std::optional<Diagnostic> Record(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT number) {
    SQLWCHAR state[6] = {};
    SQLWCHAR text[kMaxTextLength] = {};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    const SQLRETURN code = SQLGetDiagRecW(type, handle, number, state, &native, text,
                                          static_cast<SQLSMALLINT>(kMaxTextLength), &length);
    if (!SQL_SUCCEEDED(code)) return std::nullopt;
    Diagnostic record;
    FromWide(state, std::char_traits<SQLWCHAR>::length(state), record.state);
    record.native = static_cast<int>(native);
    std::string whole;
    FromWide(text, std::char_traits<SQLWCHAR>::length(text), whole);
    record.text = WithoutPrefixes(whole);
    return record;
}

bool IsWarning(const Diagnostic& record) {
    return record.state.starts_with("01");
}

}  // namespace

std::string WithoutPrefixes(std::string_view text) {
    while (text.starts_with('[')) {
        const std::size_t end = text.find(']');
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
    }
    while (text.starts_with(' ')) text.remove_prefix(1);
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r' || text.back() == ' ')) {
        text.remove_suffix(1);
    }
    return std::string(text);
}

Diagnostic ReportedError(SQLSMALLINT type, SQLHANDLE handle) {
    std::optional<Diagnostic> first;
    for (SQLSMALLINT number = 1; number <= kMaxRecords; ++number) {
        std::optional<Diagnostic> record = Record(type, handle, number);
        if (!record) break;
        const bool decides = FailureOf(*record).kind != FailureKind::Statement;
        if (decides && record->state != kNotConnected) return *std::move(record);
        if (!first || (IsWarning(*first) && !IsWarning(*record))) first = std::move(record);
    }
    if (first) return *std::move(first);
    return {"HY000", 0, "The driver reports an error without saying which."};
}

}  // namespace kelvane::odbc
