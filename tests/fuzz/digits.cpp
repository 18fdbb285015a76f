#include "tests/fuzz/digits.h"

#include <algorithm>

namespace kelvane::fuzz {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

int ValueOf(char c) {
    return c - '0';
}

char DigitOf(int value) {
    return static_cast<char>('0' + value);
}

std::string WithoutLeadingZeros(const std::string& digits) {
    const std::size_t first = digits.find_first_not_of('0');
    return first == std::string::npos ? std::string() : digits.substr(first);
}

void Tidy(Digits& number) {
    number.whole = WithoutLeadingZeros(number.whole);
    while (number.fraction.ends_with('0')) number.fraction.pop_back();
    if (number.IsZero()) number.negative = false;
}

// The number as one string of digits with `places` of them behind the point.
std::string Aligned(const Digits& number, std::size_t places) {
    return number.whole + number.fraction + std::string(places - number.fraction.size(), '0');
}

Digits Divided(std::string digits, std::size_t places, bool negative) {
    if (digits.size() < places) digits.insert(0, places - digits.size(), '0');
    Digits number{negative, digits.substr(0, digits.size() - places),
                  digits.substr(digits.size() - places)};
    Tidy(number);
    return number;
}

// Both without leading zeros.
bool IsLess(const std::string& a, const std::string& b) {
    return a.size() != b.size() ? a.size() < b.size() : a < b;
}

std::string Added(std::string a, std::string b) {
    const std::size_t size = std::max(a.size(), b.size()) + 1;
    a.insert(0, size - a.size(), '0');
    b.insert(0, size - b.size(), '0');
    int carried = 0;
    for (std::size_t at = size; at-- > 0;) {
        const int sum = ValueOf(a[at]) + ValueOf(b[at]) + carried;
        a[at] = DigitOf(sum % 10);
        carried = sum / 10;
    }
    return a;
}

// `b` is not greater.
std::string Subtracted(std::string a, std::string b) {
    b.insert(0, a.size() - b.size(), '0');
    int borrowed = 0;
    for (std::size_t at = a.size(); at-- > 0;) {
        const int difference = ValueOf(a[at]) - ValueOf(b[at]) - borrowed;
        borrowed = difference < 0 ? 1 : 0;
        a[at] = DigitOf(difference + 10 * borrowed);
    }
    return a;
}

}  // namespace

std::string Digits::Text(std::size_t places) const {
    std::string text = negative ? "-" : "";
    text += whole.empty() ? "0" : whole;
    if (places > 0) text += '.' + fraction + std::string(places - fraction.size(), '0');
    return text;
}

std::optional<Digits> ReadDigits(std::string_view text, bool& tooFar) {
    tooFar = false;
    while (text.starts_with(' ')) text.remove_prefix(1);
    while (text.ends_with(' ')) text.remove_suffix(1);
    Digits number;
    if (text.starts_with('-') || text.starts_with('+')) {
        number.negative = text.front() == '-';
        text.remove_prefix(1);
    }
    std::string* part = &number.whole;
    bool any = false;
    while (!text.empty() && text.front() != 'e' && text.front() != 'E') {
        const char c = text.front();
        const bool comma = c == ',' && part == &number.whole && any;
        if (c == '.' && part == &number.whole) {
            part = &number.fraction;
        } else if (IsDigit(c)) {
            part->push_back(c);
            any = true;
        } else if (!comma) {
            return {};
        }
        text.remove_prefix(1);
    }
    if (!any) return {};
    if (!text.empty()) {
        text.remove_prefix(1);
        const bool down = text.starts_with('-');
        if (down || text.starts_with('+')) text.remove_prefix(1);
        if (text.empty() || !std::all_of(text.begin(), text.end(), IsDigit)) return {};
        tooFar = text.size() > 3;
        if (tooFar) return number;
        std::string& from = down ? number.whole : number.fraction;
        for (int steps = std::stoi(std::string(text)); steps > 0; --steps) {
            if (from.empty()) from = "0";
            if (down) {
                number.fraction.insert(0, 1, from.back());
                from.pop_back();
            } else {
                number.whole += from.front();
                from.erase(0, 1);
            }
        }
    }
    Tidy(number);
    return number;
}

Digits RoundedDigits(const Digits& number, std::size_t places, bool halfToEven) {
    if (number.fraction.size() <= places) return number;
    const std::string dropped = number.fraction.substr(places);
    std::string kept = number.whole + number.fraction.substr(0, places);
    // The fraction has no zeros at its end: a half is one digit.
    const bool half = dropped == "5";
    const bool odd = !kept.empty() && ValueOf(kept.back()) % 2 == 1;
    const bool up = half ? !halfToEven || odd : dropped.front() >= '5';
    if (up) kept = Added(kept, "1");
    return Divided(kept, places, number.negative);
}

Digits Sum(const Digits& a, const Digits& b) {
    const std::size_t places = std::max(a.fraction.size(), b.fraction.size());
    const std::string left = WithoutLeadingZeros(Aligned(a, places));
    const std::string right = WithoutLeadingZeros(Aligned(b, places));
    if (a.negative == b.negative) return Divided(Added(left, right), places, a.negative);
    if (IsLess(left, right)) return Divided(Subtracted(right, left), places, b.negative);
    return Divided(Subtracted(left, right), places, a.negative);
}

Digits Product(const Digits& a, const Digits& b) {
    const std::string left = a.whole + a.fraction;
    const std::string right = b.whole + b.fraction;
    std::string sum;
    for (const char digit : right) {
        sum += '0';
        for (int times = ValueOf(digit); times > 0; --times) sum = Added(sum, left);
        sum = WithoutLeadingZeros(sum);
    }
    return Divided(sum, a.fraction.size() + b.fraction.size(), a.negative != b.negative);
}

bool FitsMoney(const Digits& number) {
    if (number.fraction.size() > 4) return false;
    const std::string units = WithoutLeadingZeros(Aligned(number, 4));
    return !IsLess(number.negative ? "9223372036854775808" : "9223372036854775807", units);
}

}  // namespace kelvane::fuzz
