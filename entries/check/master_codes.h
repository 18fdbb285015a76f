// MasterCodes: what the entries of an account may refer to, made ready for looking up.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "entries/check/account_content.h"
#include "entries/check/known_codes.h"

namespace kelvane::entries {

class MasterCodes {
public:
    // `content` outlives this.
    explicit MasterCodes(const AccountContent& content);

    const KnownCodes& Items() const { return mItems; }
    const KnownCodes& Centers() const { return mCenters; }
    const KnownCodes& Elements() const { return mElements; }
    const KnownCodes& Equipment() const { return mEquipment; }
    const KnownCodes& Inventory() const { return mInventory; }

    // The detail kind of an element; none when it is unknown or cannot be read.
    std::optional<std::int64_t> DetailOf(const std::string& element);
    // Under which keywords a duty centre has an item; null: it has not.
    const std::vector<const CenterItem*>* KeywordsOf(const std::string& center,
                                                     const std::string& item);
    // Whether the item of these keywords was closed before `bound` ("yyyy.mm.dd"), as the windows
    // ask it.
    bool IsSettled(const std::string& item, const std::string& key1, const std::string& key2,
                   const std::string& bound);

    // What the account compares of codes together: the same for those that are the same for it.
    std::string KeyOf(std::initializer_list<const std::string*> codes);
    const std::string& Compared(const std::string& code) { return mCompared.Of(code); }

private:
    ComparedTexts mCompared;
    KnownCodes mItems{mCompared};
    KnownCodes mCenters{mCompared};
    KnownCodes mElements{mCompared};
    KnownCodes mEquipment{mCompared};
    KnownCodes mInventory{mCompared};
    std::unordered_map<std::string, std::optional<std::int64_t>> mDetails;
    std::unordered_map<std::string, std::vector<const CenterItem*>> mCenterItems;
    std::unordered_map<std::string, std::vector<const ItemPart*>> mParts;
};

}  // namespace kelvane::entries
