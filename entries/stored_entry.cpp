#include "entries/stored_entry.h"

#include <algorithm>
#include <stdexcept>

#include "data/number_format.h"
#include "platform/blanks.h"
#include "platform/utf8.h"

namespace kelvane::entries {

using platform::Money;
using platform::RecordSet;
using platform::Value;

namespace {

// What `read` makes of a value, or the value's text where it is of another kind.
std::string TextOr(const Value& value, std::string (*read)(const Value&)) {
    try {
        return read(value);
    } catch (const std::invalid_argument&) {
        return value.ToText();
    } catch (const std::range_error&) {
        return value.ToText();
    }
}

Money AmountOr0(const Value& value) {
    try {
        return value.ToMoney();
    } catch (const std::invalid_argument&) {
        return {};
    } catch (const std::range_error&) {
        return {};
    }
}

bool IsSameAmount(const std::string& shown, const std::string& stored) {
    try {
        return Money::FromText(shown) == Money::FromText(stored);
    } catch (const std::invalid_argument&) {
        return IsSameText(shown, stored);
    } catch (const std::range_error&) {
        return IsSameText(shown, stored);
    }
}

// Takes what a code page without that letter keeps of it off `stored`: a question mark, or two for
// a letter that counts as two.
bool TakeLostLetter(const platform::Utf8Character& letter, std::string_view& stored) {
    constexpr char32_t kFirstOfTwo = 0x10000;
    if (letter.length < 2 || !stored.starts_with('?')) return false;
    stored.remove_prefix(letter.value >= kFirstOfTwo && stored.starts_with("??") ? 2 : 1);
    return true;
}

}  // namespace

std::string DateCell(const Value& date) {
    return date.IsNull() ? std::string() : date.ToDateTime().DateText('-');
}

std::string AmountCell(const Value& amount) {
    const Money money = amount.ToMoney();
    return money.IsZero() ? "0.00" : data::DisplayOfMoney(money);
}

StoredEntry StoredEntryOf(const RecordSet& row) {
    StoredEntry entry;
    EntryTexts& texts = entry.texts;
    // A list keeps a tab as a blank.
    const auto text = [&](const char* field) {
        std::string content = row.Field(field).ToText();
        std::replace(content.begin(), content.end(), '\t', ' ');
        return content;
    };
    texts[kDateColumn] = TextOr(row.Field("dDate"), DateCell);
    texts[kCenterColumn] = text("cCenterCode");
    texts[kItemColumn] = text("cItemCode");
    texts[kKey1Column] = text("cKeyCode1");
    texts[kKey2Column] = text("cKeyCode2");
    texts[kDigestColumn] = text("cDigest");
    const Value amount = row.Field("mQC");
    texts[kAmountColumn] = TextOr(amount, AmountCell);
    entry.elementCode = row.Field("cElementCode").ToText();
    entry.amount = AmountOr0(amount);
    return entry;
}

bool IsSameText(std::string_view shown, std::string_view stored) {
    shown = platform::WithoutOuterBlanks(shown);
    stored = platform::WithoutOuterBlanks(stored);
    while (!shown.empty() && !stored.empty()) {
        const platform::Utf8Character letter = platform::TakeCharacter(shown);
        if (TakeLostLetter(letter, stored)) continue;
        const platform::Utf8Character other = platform::TakeCharacter(stored);
        if (letter.value != other.value) return false;
    }
    return shown.empty() && stored.empty();
}

bool IsAsShown(const EntryTexts& shown, const StoredEntry& stored) {
    for (const EntryColumn column :
         {kDateColumn, kCenterColumn, kItemColumn, kKey1Column, kKey2Column, kDigestColumn}) {
        if (!IsSameText(shown[column], stored.texts[column])) return false;
    }
    return IsSameAmount(shown[kAmountColumn], stored.texts[kAmountColumn]);
}

}  // namespace kelvane::entries
