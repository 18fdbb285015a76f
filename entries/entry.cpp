#include "entries/entry.h"

#include "data/date_text.h"

namespace kelvane::entries {

Entry EntryOf(const EntryTexts& texts) {
    return {
        .identity = texts.identity,
        .date = data::DateTextToDate(texts[kDateColumn]),
        .centerCode = texts[kCenterColumn],
        .itemCode = texts[kItemColumn],
        .key1 = texts[kKey1Column],
        .key2 = texts[kKey2Column],
        .elementName = texts[kElementColumn],
        .digest = texts[kDigestColumn],
        .amount = platform::Money::FromText(texts[kAmountColumn]),
    };
}

}  // namespace kelvane::entries
