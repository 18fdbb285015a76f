// Value: what one field of a record set holds. The six kinds are all that the account database's
// columns come to; adapters map their engine's types onto them without loss.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "platform/date_time.h"
#include "platform/money.h"

namespace kelvane::platform {

class Value {
public:
    Value() = default;  // Null
    explicit Value(std::int64_t integer) : mContent(integer) {}
    explicit Value(double number) : mContent(number) {}
    explicit Value(Money amount) : mContent(amount) {}
    explicit Value(const DateTime& date) : mContent(date) {}
    explicit Value(std::string text) : mContent(std::move(text)) {}
    explicit Value(std::string_view text) : mContent(std::string(text)) {}
    explicit Value(const char* text) : mContent(std::string(text)) {}

    bool IsNull() const { return std::holds_alternative<std::monostate>(mContent); }

    template <typename T>
    const T* As() const {
        return std::get_if<T>(&mContent);
    }

    // Text as the dialect converts it: Null is empty, amounts and doubles are plain decimals
    // without trailing zeros, dates "yyyy-mm-dd" (with the time when it is not midnight).
    std::string ToText() const;

    // Whole number, doubles and amounts rounded half to even, texts by their leading number.
    // Null and texts without a number are 0. Throws std::range_error when it does not fit, and
    // std::invalid_argument for a date.
    std::int64_t ToInteger() const;

    // Exact amount; Null and empty text are 0. Throws MoneyTextError and MoneyOverflow.
    Money ToMoney() const;

    // Numeric value of a text's leading number, 0 when there is none and for Null. Throws as
    // ToInteger() does.
    double ToDouble() const;

    // Date of a date field or of a text in one of DateTime::Parse's forms. Throws
    // std::invalid_argument for Null and for anything that is no date.
    DateTime ToDateTime() const;

    friend bool operator==(const Value&, const Value&) = default;

private:
    std::variant<std::monostate, std::int64_t, double, Money, DateTime, std::string> mContent;
};

}  // namespace kelvane::platform
