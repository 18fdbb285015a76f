#include "adapters/odbc/failures.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "platform/database.h"

namespace kelvane::odbc {

namespace {

struct Meaning {
    FailureKind kind;
    int code = 0;  // 0: the driver's own
};

constexpr Meaning kBusy{FailureKind::Busy};
constexpr Meaning kNotLocked{FailureKind::Busy, kLockTimeout};
constexpr Meaning kVictim{FailureKind::TransactionUndone, kDeadlock};
constexpr Meaning kLost{FailureKind::ConnectionLost};

template <typename Sign>
struct Known {
    Sign sign;
    Meaning meaning;
};

// How an SQLSTATE begins.
constexpr std::array kStates{
    Known<std::string_view>{"08", kLost},         Known<std::string_view>{"HYT01", kLost},
    Known<std::string_view>{"57P", kLost},  // the server shuts down
    Known<std::string_view>{"HYT00", kBusy},      Known<std::string_view>{"S1T00", kBusy},
    Known<std::string_view>{"57014", kBusy},       // cancelled for its time
    Known<std::string_view>{"53300", kBusy},       // too many connections
    Known<std::string_view>{"55P03", kNotLocked},  // a lock's time, or none to wait
    Known<std::string_view>{"40001", kVictim},    Known<std::string_view>{"40P01", kVictim},
};

constexpr std::array kNumbers{
    Known<int>{kDeadlock, kVictim},
    Known<int>{kLockTimeout, kNotLocked},
};

// Servers that speak the dialect on another engine pass on its words with a number of their own.
constexpr std::array kWords{
    Known<std::string_view>{"canceling statement due to lock timeout", kNotLocked},
    Known<std::string_view>{"could not obtain lock", kNotLocked},
    Known<std::string_view>{"canceling statement due to statement timeout", kBusy},
    Known<std::string_view>{"deadlock detected", kVictim},
    Known<std::string_view>{"could not serialize access", kVictim},
};

template <typename Table, typename Fits>
const Meaning* Find(const Table& table, Fits fits) {
    const auto found =
        std::ranges::find_if(table, [&](const auto& each) { return fits(each.sign); });
    return found == table.end() ? nullptr : &found->meaning;
}

const Meaning* MeaningOf(const Diagnostic& diagnostic) {
    const auto begins = [](const std::string& text) {
        return [&text](std::string_view sign) { return text.starts_with(sign); };
    };
    if (const auto* meaning = Find(kStates, begins(diagnostic.state))) return meaning;
    const auto isNumber = [&](int number) { return number == diagnostic.native; };
    if (const auto* meaning = Find(kNumbers, isNumber)) return meaning;
    return Find(kWords, begins(diagnostic.text));
}

}  // namespace

Failure FailureOf(const Diagnostic& diagnostic) {
    Failure failure{FailureKind::Statement, diagnostic.native, diagnostic.text};
    if (const Meaning* meaning = MeaningOf(diagnostic)) {
        failure.kind = meaning->kind;
        if (meaning->code != 0) failure.code = meaning->code;
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
