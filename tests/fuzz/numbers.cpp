// Texts as numbers, amounts and dates: what the program makes of them is what a slow reading of the
// fuzz targets' own makes of them.
#include <array>
#include <optional>

#include "data/date_text.h"
#include "data/number_format.h"
#include "platform/date_time.h"
#include "platform/decimal.h"
#include "platform/money.h"
#include "tests/fuzz/digits.h"
#include "tests/fuzz/fuzz.h"

using namespace kelvane;
using fuzz::Digits;
using fuzz::Require;
using platform::DateTime;
using platform::Decimal;
using platform::Money;
using platform::Rounding;

namespace {

// An amount, or nothing for a result that does not fit.
template <typename Compute>
std::optional<Money> IfItFits(const Compute& compute) {
    try {
        return compute();
    } catch (const platform::MoneyOverflow&) {
        return std::nullopt;
    }
}

void CompareAmount(const std::optional<Money>& amount, const Digits& wanted,
                   const std::string& about) {
    Require(amount.has_value() == fuzz::FitsMoney(wanted), "an amount fits when it does", about);
    if (!amount) return;
    Require(amount->ToFixedText() == wanted.Text(4), "an amount is exact", about);
    Require(Money::FromText(amount->ToText()) == *amount, "an amount is read back", about);
    Require(Money::FromText(data::DisplayOfMoney(*amount)).ToFixedText() ==
                fuzz::RoundedDigits(
                    wanted, static_cast<std::size_t>(data::DecimalPlaces(data::kMoneyKind)), false)
                    .Text(4),
            "a shown amount is read back as it was rounded", about);
}

std::optional<Digits> TryNumber(const std::string& text, std::size_t places) {
    const std::optional<Decimal> number = Decimal::FromText(text);
    bool tooFar = false;
    const std::optional<Digits> wanted = fuzz::ReadDigits(text, tooFar);
    Require(number.has_value() == wanted.has_value(), "a number is a number", text);
    if (!number || tooFar) return {};
    for (const Rounding rule : {Rounding::HalfToEven, Rounding::HalfAwayFromZero}) {
        const Digits rounded = fuzz::RoundedDigits(*wanted, places, rule == Rounding::HalfToEven);
        Require(
            number->Rounded(static_cast<int>(places), rule).FixedText(static_cast<int>(places)) ==
                rounded.Text(places),
            "a number is rounded exactly", text);
    }
    Require(number->Text() == wanted->Text(wanted->fraction.size()), "a number is exact", text);
    const Digits amount = fuzz::RoundedDigits(*wanted, 4, true);
    CompareAmount(IfItFits([&] { return Money::FromText(text); }), amount, text);
    if (!fuzz::FitsMoney(amount)) return {};
    return amount;
}

void TryArithmetic(const Digits& a, const Digits& b) {
    const std::string about = a.Text(4) + " and " + b.Text(4);
    const Money left = Money::FromText(a.Text(4));
    const Money right = Money::FromText(b.Text(4));
    CompareAmount(IfItFits([&] { return left + right; }), fuzz::Sum(a, b), about);
    Digits minus = b;
    minus.negative = !b.negative && !b.IsZero();
    CompareAmount(IfItFits([&] { return left - right; }), fuzz::Sum(a, minus), about);
    CompareAmount(IfItFits([&] { return left * right; }),
                  fuzz::RoundedDigits(fuzz::Product(a, b), 4, true), about);
}

int DaysIn(int year, int month) {
    constexpr std::array kDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && leap ? 29 : kDays[static_cast<std::size_t>(month - 1)];
}

void RequireDay(const DateTime& date, const std::string& about) {
    Require(date.year >= 1 && date.year <= 9999 && date.month >= 1 && date.month <= 12 &&
                date.day >= 1 && date.day <= DaysIn(date.year, date.month),
            "a date is a day of the calendar", about);
}

void TryDate(const std::string& text) {
    DateTime date;
    if (DateTime::Parse(text, date)) {
        RequireDay(date, text);
        DateTime again;
        Require(DateTime::Parse(date.FullText(), again) && again == date, "a date is read back",
                text);
        const bool last = date.day == DaysIn(date.year, date.month);
        if (last && date.month == 12) return;
        const DateTime next = date.AddDays(1);
        Require(next.day == (last ? 1 : date.day + 1) && next.month == date.month + (last ? 1 : 0),
                "the next day is the next day", text);
    }
    std::string typed = text;
    if (!data::CheckDateText(typed)) {
        Require(typed == text, "a refused date stays as it is", text);
        return;
    }
    std::string again = typed;
    Require(data::CheckDateText(again) && again == typed, "a date's text is read back", text);
    RequireDay(data::DateTextToDate(text), text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    fuzz::Bytes input(bytes, std::min<std::size_t>(size, 256));
    const auto places = static_cast<std::size_t>(input.Number(8));
    std::optional<Digits> before;
    while (!input.AtEnd()) {
        const std::string text = input.Line();
        TryDate(text);
        const std::optional<Digits> amount = TryNumber(text, places);
        if (before && amount) TryArithmetic(*before, *amount);
        if (amount) before = amount;
    }
    return 0;
}
