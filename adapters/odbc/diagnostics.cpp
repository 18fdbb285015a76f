#include "adapters/odbc/diagnostics.h"

#include <optional>

#include "adapters/odbc/wide_text.h"

namespace kelvane::odbc {

namespace {

constexpr std::size_t kLongestText = 2048;
constexpr SQLSMALLINT kMostRecords = 32;

std::optional<Diagnostic> Record(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT number) {
    SQLWCHAR state[6] = {};
    SQLWCHAR text[kLongestText] = {};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    const SQLRETURN code = SQLGetDiagRecW(type, handle, number, state, &native, text,
                                          static_cast<SQLSMALLINT>(kLongestText), &length);
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
    for (SQLSMALLINT number = 1; number <= kMostRecords; ++number) {
        std::optional<Diagnostic> record = Record(type, handle, number);
        if (!record) break;
        if (FailureOf(*record).kind != FailureKind::Statement) return *std::move(record);
        if (!first || (IsWarning(*first) && !IsWarning(*record))) first = std::move(record);
    }
    if (first) return *std::move(first);
    return {"HY000", 0, "The driver reports an error without saying which."};
}

Failure FailureOf(const Diagnostic& diagnostic) {
    struct Meaning {
        std::string_view states;  // how the SQLSTATE begins
        FailureKind kind;
    };
    static constexpr Meaning kMeanings[] = {
        {"08", FailureKind::ConnectionLost},
        {"HYT01", FailureKind::ConnectionLost},
        {"HYT00", FailureKind::Busy},
        {"40001", FailureKind::TransactionUndone},
    };
    Failure failure{FailureKind::Statement, diagnostic.native, diagnostic.text};
    for (const Meaning& meaning : kMeanings) {
        if (diagnostic.state.starts_with(meaning.states)) failure.kind = meaning.kind;
    }
    return failure;
}

void Throw(const Failure& failure) {
    const std::string said = "（" + failure.text + "）";
    switch (failure.kind) {
        case FailureKind::Busy:
            throw platform::DatabaseBusy("数据库正被其他操作员使用，请稍后再试" + said,
                                         failure.code);
        case FailureKind::TransactionUndone:
            throw platform::DatabaseBusy("与其他操作员的操作冲突，本次操作已经撤销，请重试" + said,
                                         failure.code);
        case FailureKind::ConnectionLost:
            throw platform::ConnectionLost("与数据库服务器的连接已经断开" + said, failure.code);
        case FailureKind::Statement:
            break;
    }
    throw platform::DatabaseError(failure.text, failure.code);
}

}  // namespace kelvane::odbc
