#include "platform/statement_text.h"

#include <algorithm>

#include "platform/ascii.h"
#include "platform/blanks.h"
#include "platform/decimal.h"
#include "platform/utf8.h"

namespace kelvane::platform {

namespace {

constexpr std::string_view kEntryPlaceholder = "@@@@";

// An apostrophe is harmless inside a literal only as half of a doubled one.
bool EndsItsLiteral(std::string_view value) {
    std::size_t runLength = 0;
    for (const char character : value) {
        if (character == '\'') {
            ++runLength;
        } else if (runLength % 2 == 1) {
            return true;
        } else {
            runLength = 0;
        }
    }
    return runLength % 2 == 1;
}

// Bytes of the name character at the front of `text`; 0 when there is none. Beyond ASCII only the
// ideographs of three UTF-8 bytes pass: other characters there may be blanks or signs to an engine.
std::size_t NameCharacterLength(std::string_view text) {
    const char first = text.front();
    if ((first >= '0' && first <= '9') || (first >= 'A' && first <= 'Z') ||
        (first >= 'a' && first <= 'z') || first == '_')
        return 1;
    const Utf8Character character = FirstCharacter(text);
    const bool isIdeograph = character.value >= 0x4000 && character.value <= 0x9FFF;
    return isIdeograph ? 3 : 0;
}

bool IsName(std::string_view text) {
    if (text.empty() || (text.front() >= '0' && text.front() <= '9')) return false;
    while (!text.empty()) {
        const std::size_t length = NameCharacterLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

bool IsPlainNumber(std::string_view text) {
    text = WithoutOuterBlanks(text);
    if (text.starts_with('-')) text.remove_prefix(1);
    const bool hasDigit = text.find_first_of("0123456789") != std::string_view::npos;
    return hasDigit && text.find_first_not_of("0123456789.") == std::string_view::npos &&
           std::count(text.begin(), text.end(), '.') <= 1;
}

}  // namespace

StatementText& StatementText::operator<<(FixedText piece) {
    mText += piece.Text();
    return *this;
}

StatementText& StatementText::operator<<(const StatementText& other) {
    mMalformed = mMalformed || other.mMalformed;
    const std::size_t start = mText.size();
    const std::size_t places = other.mEntryPlaces.size();
    for (std::size_t i = 0; i < places; ++i) mEntryPlaces.push_back(start + other.mEntryPlaces[i]);
    mText += other.mText;
    return *this;
}

StatementText& StatementText::Inside(std::string_view value) {
    mMalformed = mMalformed || EndsItsLiteral(value);
    mText += value;
    return *this;
}

StatementText& StatementText::Quoted(std::string_view value) {
    *this << "'";
    Inside(WithoutOuterBlanks(value));
    return *this << "'";
}

StatementText& StatementText::Number(std::int64_t value) {
    mText += std::to_string(value);
    return *this;
}

StatementText& StatementText::Amount(Money value) {
    mText += value.ToText();
    return *this;
}

StatementText& StatementText::Double(double value) {
    const auto decimal = Decimal::FromDouble(value);
    mMalformed = mMalformed || !decimal;
    if (decimal) mText += decimal->Text();
    return *this;
}

StatementText& StatementText::Identifier(std::string_view name) {
    mMalformed = mMalformed || !IsName(name);
    mText += name;
    return *this;
}

StatementText& StatementText::Name(std::string_view name) {
    if (IsAscii(name)) return Identifier(name);
    mText += '[';
    Identifier(name);
    mText += ']';
    return *this;
}

StatementText& StatementText::NumericText(std::string_view text) {
    mMalformed = mMalformed || !IsPlainNumber(text);
    mText += text;
    return *this;
}

StatementText& StatementText::EntryPlaceholder() {
    mEntryPlaces.push_back(mText.size());
    mText += kEntryPlaceholder;
    return *this;
}

StatementText StatementText::WithEntry(std::int64_t identity) const {
    const std::string number = std::to_string(identity);
    StatementText result;
    result.mMalformed = mMalformed;
    std::size_t copied = 0;
    for (const std::size_t place : mEntryPlaces) {
        result.mText.append(mText, copied, place - copied).append(number);
        copied = place + kEntryPlaceholder.size();
    }
    result.mText.append(mText, copied);
    return result;
}

const std::string& StatementText::Checked() const {
    if (mMalformed) throw MalformedStatement("语句有语法错误：" + mText);
    return mText;
}

}  // namespace kelvane::platform
