#include "entries/check/master_codes.h"

#include "data/login_context.h"
#include "data/text_conversion.h"
#include "platform/decimal.h"

namespace kelvane::entries {

using platform::Decimal;
using platform::Value;

namespace {

// The type codes of key fields that are numbers.
bool IsNumber(std::int16_t type) {
    return type == 1 || type == 2;
}

bool AreSameNumbers(const std::string& stored, const std::string& given) {
    const auto number = Decimal::FromText(given);
    const auto known = stored.empty() ? Decimal() : Decimal::FromText(stored);
    return number && known && number->Text() == known->Text();
}

}  // namespace

MasterCodes::MasterCodes(const AccountContent& content) {
    for (const std::string& code : content.items) mItems.Add(code);
    for (const std::string& code : content.centers) mCenters.Add(code);
    for (const std::string& code : content.equipment) mEquipment.Add(code);
    for (const std::string& code : content.inventory) mInventory.Add(code);
    for (const StoredElement& element : content.elements) {
        mElements.Add(element.code);
        mDetails.emplace(mCompared.Of(element.code), element.detail);
    }
    for (const CenterItem& each : content.centerItems) {
        mCenterItems[KeyOf({&each.center, &each.item})].push_back(&each);
    }
    for (const ItemPart& part : content.itemParts) {
        mParts[mCompared.Of(part.item)].push_back(&part);
    }
}

std::string MasterCodes::KeyOf(std::initializer_list<const std::string*> codes) {
    std::string key;
    for (const std::string* code : codes) {
        key += mCompared.Of(*code);
        key += '\0';
    }
    return key;
}

std::optional<std::int64_t> MasterCodes::DetailOf(const std::string& element) {
    const auto known = mDetails.find(mCompared.Of(element));
    return known == mDetails.end() ? std::nullopt : known->second;
}

const std::vector<const CenterItem*>* MasterCodes::KeywordsOf(const std::string& center,
                                                              const std::string& item) {
    const auto known = mCenterItems.find(KeyOf({&center, &item}));
    return known == mCenterItems.end() ? nullptr : &known->second;
}

bool MasterCodes::IsSettled(const std::string& item, const std::string& key1,
                            const std::string& key2, const std::string& bound) {
    const auto parts = mParts.find(mCompared.Of(item));
    if (parts == mParts.end()) return false;
    const auto matches = [&](const Value& stored, const std::string& given,
                             const std::string& field, std::int16_t type) {
        if (data::Trim(given).empty()) return true;
        // Without a name the field cannot be asked for.
        if (field.empty()) return false;
        const bool isText = stored.IsNull() || stored.As<std::string>() != nullptr;
        if (IsNumber(type) || !isText) return AreSameNumbers(stored.ToText(), given);
        return mCompared.Of(stored.ToText()) == mCompared.Of(given);
    };
    for (const ItemPart* part : parts->second) {
        if (!matches(part->key1, key1, data::gItemKeyField1, data::gItemKeyType1) ||
            !matches(part->key2, key2, data::gItemKeyField2, data::gItemKeyType2)) {
            continue;
        }
        // The windows look at the first one alone.
        return part->closed == true && part->end && *part->end < bound;
    }
    return false;
}

}  // namespace kelvane::entries
