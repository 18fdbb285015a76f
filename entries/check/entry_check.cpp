#include "entries/check/entry_check.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "data/text_conversion.h"
#include "entries/entry.h"
#include "entries/opening_period.h"

namespace kelvane::entries {

namespace {

std::string DateText(const platform::DateTime& date) {
    return date.DateText('-');
}

std::string KeysText(const AccountEntry& entry) {
    if (data::Trim(entry.key1).empty()) return entry.key2;
    return data::Trim(entry.key2).empty() ? entry.key1 : entry.key1 + "、" + entry.key2;
}

bool AreSame(const CenterItem& known, const AccountEntry& entry) {
    return known.key1 == entry.key1 && known.key2 == entry.key2;
}

}  // namespace

EntryCheck::EntryCheck(MasterCodes& codes, FoundList& found)
    : mCodes(codes),
      mFound(found),
      mOpeningBound(OpeningBound().DateText('.')),
      mSettlementBound(SettlementBound().DateText('.')) {}

void EntryCheck::Check(const AccountEntry& entry) {
    CheckCodes(entry);
    CheckValues(entry);
    CheckTwin(entry);
}

void EntryCheck::CheckValues(const AccountEntry& entry) {
    using Identities = std::numeric_limits<std::int32_t>;
    if (entry.identity < Identities::min() || entry.identity > Identities::max()) {
        mFound.Add(entry.identity, Rule::CheckIdentityValue,
                   {std::to_string(entry.identity), std::to_string(Identities::min()),
                    std::to_string(Identities::max())});
    }
    if (!entry.date) {
        mFound.Add(entry.identity, Rule::CheckDateValue, {entry.item, entry.element});
    } else if (entry.date->DateText('.') >= mOpeningBound) {
        std::string bound = mOpeningBound;
        std::ranges::replace(bound, '.', '-');
        mFound.Add(entry.identity, Rule::CheckDate, {DateText(*entry.date), bound});
    }
    if (!entry.amount) {
        mFound.Add(entry.identity, Rule::CheckAmountValue, {entry.item, entry.element});
    } else if (entry.amount->IsZero()) {
        mFound.Add(entry.identity, Rule::CheckZero,
                   {entry.item, entry.element, AmountText(*entry.amount)});
    }
}

void EntryCheck::TellSimilar(const AccountEntry& entry, int column, std::string_view name,
                             const std::string& code, const std::string& known) {
    mFound.AddIn(entry.identity, column, Rule::CheckBlank, {name, code, known});
}

bool EntryCheck::IsKnown(const AccountEntry& entry, const KnownCodes& known,
                         const std::string& code, Rule unknown, std::string_view name) {
    const KnownCodes::Match match = known.Find(code);
    if (match.known == nullptr) mFound.Add(entry.identity, unknown, {code});
    if (match.similar != nullptr) {
        TellSimilar(entry, Declared(unknown).column, name, code, *match.similar);
    }
    return match.known != nullptr;
}

void EntryCheck::CheckCodes(const AccountEntry& entry) {
    const bool item = IsKnown(entry, mCodes.Items(), entry.item, Rule::CheckItem, "项目");
    const bool center =
        IsKnown(entry, mCodes.Centers(), entry.center, Rule::CheckCenter, "责任中心");
    IsKnown(entry, mCodes.Elements(), entry.element, Rule::CheckElement, "要素");
    if (!item) return;
    if (mCodes.IsSettled(entry.item, entry.key1, entry.key2, mSettlementBound)) {
        mFound.Add(entry.identity, Rule::CheckSettled,
                   {entry.item, entry.amount ? AmountText(*entry.amount) : "（无法读取）"});
    }
    if (center) CheckKeywords(entry);
}

void EntryCheck::CheckKeywords(const AccountEntry& entry) {
    const auto* known = mCodes.KeywordsOf(entry.center, entry.item);
    if (known == nullptr) {
        mFound.Add(entry.identity, Rule::CheckAuthority, {entry.center, entry.item});
        return;
    }
    if (data::Trim(entry.key1).empty() && data::Trim(entry.key2).empty()) return;
    if (std::ranges::any_of(*known, [&](const auto* each) { return AreSame(*each, entry); }))
        return;
    const auto compared = [&](const std::string& key) { return mCodes.Compared(data::Trim(key)); };
    const CenterItem* similar = nullptr;
    for (const CenterItem* each : *known) {
        const bool isSimilar = compared(each->key1) == compared(entry.key1) &&
                               compared(each->key2) == compared(entry.key2);
        const bool isFirst = similar == nullptr || std::tie(each->key1, each->key2) <
                                                       std::tie(similar->key1, similar->key2);
        if (isSimilar && isFirst) similar = each;
    }
    if (similar == nullptr) {
        mFound.AddIn(entry.identity, data::Trim(entry.key1).empty() ? kKey2Column : kKey1Column,
                     Rule::CheckKeys, {entry.center, entry.item, KeysText(entry)});
        return;
    }
    if (similar->key1 != entry.key1) {
        TellSimilar(entry, kKey1Column, "关键字", entry.key1, similar->key1);
    }
    if (similar->key2 != entry.key2) {
        TellSimilar(entry, kKey2Column, "关键字", entry.key2, similar->key2);
    }
}

// Of several that are the same each but the first is one too many.
void EntryCheck::CheckTwin(const AccountEntry& entry) {
    if (!entry.date || !entry.amount) return;
    std::string key = mCodes.KeyOf(
        {&entry.center, &entry.item, &entry.key1, &entry.key2, &entry.element, &entry.digest});
    key += entry.date->FullText() + std::to_string(entry.amount->Units());
    const auto [first, isFirst] = mFirst.emplace(std::move(key), entry.identity);
    if (isFirst) return;
    mFound.Add(entry.identity, Rule::CheckTwin,
               {std::to_string(first->second), DateText(*entry.date), entry.center, entry.item,
                entry.element, AmountText(*entry.amount)});
}

}  // namespace kelvane::entries
