#include "entries/bulk/file_master_data.h"

#include <utility>

#include "data/text_conversion.h"
#include "platform/ascii.h"

namespace kelvane::entries {

using platform::Money;

namespace {

// The answer that `known` has for `key`, or gets from `ask`.
template <typename Map, typename Ask>
auto& Known(Map& known, const typename Map::key_type& key, const Ask& ask) {
    const auto found = known.find(key);
    if (found != known.end()) return found->second;
    return known.emplace(key, ask()).first->second;
}

Money AmountKnown(const std::optional<Money>& used) {
    if (!used) throw platform::MoneyOverflow("金额溢出");
    return *used;
}

// No entry of the account has it: everybody is another one.
constexpr std::int32_t kNobody = 0;

}  // namespace

bool RecordedTotal::Holds(MasterData& account) const {
    if (detailCode.empty()) return account.RecordedByOthers(entry, elementCode) == recorded.amount;
    const RecordedLines now = account.LinesOfOthers(entry, elementCode, detailCode);
    return now.amount == recorded.amount && now.quantity == recorded.quantity;
}

// As the account compares codes.
FileMasterData::Key FileMasterData::KeyOf(const std::string& itemCode,
                                          const std::string& elementCode,
                                          const std::string& detailCode) {
    return {platform::LowerAscii(itemCode), platform::LowerAscii(elementCode),
            platform::LowerAscii(detailCode)};
}

void FileMasterData::Release(const EntryRecord& stored) {
    Count(stored, -1);
}

void FileMasterData::Take(const EntryRecord& row) {
    Count(row, 1);
}

void FileMasterData::Count(const EntryRecord& row, int sign) {
    const auto add = [&](std::optional<Money>& used, Money amount) {
        try {
            if (used) used = sign < 0 ? *used - amount : *used + amount;
        } catch (const platform::MoneyOverflow&) {
            used.reset();
        }
    };
    const Entry& entry = row.entry;
    const auto [taken, isFirst] =
        mTaken.try_emplace(KeyOf(entry.itemCode, row.elementCode), Money());
    if (isFirst) mUses.push_back({kNobody, entry.itemCode, entry.elementName});
    add(taken->second, entry.amount);
    for (const DetailLine& line : row.lines) {
        UsedLines& used = mTakenLines[KeyOf(entry.itemCode, row.elementCode, line.code)];
        add(used.amount, line.amount);
        used.quantity += sign * line.quantity;
    }
}

std::vector<BudgetUse> FileMasterData::Budgets() {
    std::vector<BudgetUse> uses;
    for (const BudgetedEntry& entry : mUses) {
        BudgetUse use;
        use.itemCode = entry.itemCode;
        use.itemName = ItemName(entry.itemCode);
        use.elementName = entry.elementName;
        const std::string code = ElementCode(entry.elementName);
        const Key key = KeyOf(entry.itemCode, code);
        use.before = Recorded(key, entry, code);
        try {
            use.after = use.before + AmountKnown(mTaken.at(key));
        } catch (const platform::MoneyOverflow&) {
            use.after.reset();
        }
        try {
            const Budget budget = BudgetOf(entry.itemCode, code, {});
            if (budget.controlled) use.budget = budget.money;
        } catch (const BudgetUnreadable&) {
            // Found for its rows.
        }
        uses.push_back(std::move(use));
    }
    return uses;
}

bool FileMasterData::CenterAllowed(const std::string& centerCode) {
    return Known(mCenters, centerCode, [&] { return mAccount.CenterAllowed(centerCode); });
}

bool FileMasterData::ItemInCenter(const std::string& itemCode, const std::string& centerCode) {
    return Known(mItems, {itemCode, centerCode},
                 [&] { return mAccount.ItemInCenter(itemCode, centerCode); });
}

bool FileMasterData::ItemSettled(const std::string& itemCode, const std::string& key1,
                                 const std::string& key2) {
    return Known(mSettled, {itemCode, key1, key2},
                 [&] { return mAccount.ItemSettled(itemCode, key1, key2); });
}

std::string FileMasterData::ItemName(const std::string& itemCode) {
    return Known(mItemNames, itemCode, [&] { return mAccount.ItemName(itemCode); });
}

std::vector<ItemKeywords> FileMasterData::KeywordsOf(const std::string& itemCode,
                                                     const std::string& centerCode) {
    return Known(mKeywords, {itemCode, centerCode},
                 [&] { return mAccount.KeywordsOf(itemCode, centerCode); });
}

std::optional<std::int16_t> FileMasterData::ElementDetail(const std::string& elementName) {
    return Known(mDetails, elementName, [&] { return mAccount.ElementDetail(elementName); });
}

std::string FileMasterData::ElementCode(const std::string& elementName) {
    return Known(mElementCodes, elementName, [&] { return mAccount.ElementCode(elementName); });
}

platform::DateTime FileMasterData::OpeningBound() {
    if (!mBound) mBound = mAccount.OpeningBound();
    return *mBound;
}

Budget FileMasterData::BudgetOf(const std::string& itemCode, const std::string& elementCode,
                                const std::string& detailCode) {
    const auto ask = [&]() -> KnownBudget {
        try {
            return {mAccount.BudgetOf(itemCode, elementCode, detailCode), {}};
        } catch (const BudgetUnreadable& failure) {
            return {{}, failure.what()};
        }
    };
    const KnownBudget& known = Known(mBudgets, KeyOf(itemCode, elementCode, detailCode), ask);
    if (!known.unreadable.empty()) throw BudgetUnreadable(known.unreadable);
    return known.budget;
}

Money FileMasterData::Recorded(const Key& key, const BudgetedEntry& entry,
                               const std::string& elementCode) {
    return Known(mRecorded, key, [&] {
        const BudgetedEntry asked{kNobody, entry.itemCode, entry.elementName};
        const Money answer = mAccount.RecordedByOthers(asked, elementCode);
        mTotals.push_back({asked, elementCode, {}, {answer, 0}});
        return answer;
    });
}

Money FileMasterData::RecordedByOthers(const BudgetedEntry& entry, const std::string& elementCode) {
    const Key key = KeyOf(entry.itemCode, elementCode);
    const Money recorded = Recorded(key, entry, elementCode);
    const auto taken = mTaken.find(key);
    if (taken == mTaken.end()) return recorded;
    // What the account itself would answer.
    return data::MoneyOfDisplay((recorded + AmountKnown(taken->second)).ToText());
}

RecordedLines FileMasterData::LinesOfOthers(const BudgetedEntry& entry,
                                            const std::string& elementCode,
                                            const std::string& detailCode) {
    const Key key = KeyOf(entry.itemCode, elementCode, detailCode);
    const RecordedLines recorded = Known(mRecordedLines, key, [&] {
        const BudgetedEntry asked{kNobody, entry.itemCode, entry.elementName};
        const RecordedLines answer = mAccount.LinesOfOthers(asked, elementCode, detailCode);
        mTotals.push_back({asked, elementCode, detailCode, answer});
        return answer;
    });
    const auto found = mTakenLines.find(key);
    const UsedLines taken = found == mTakenLines.end() ? UsedLines() : found->second;
    return {
        .amount = recorded.amount + AmountKnown(taken.amount),
        .quantity = static_cast<float>(static_cast<double>(recorded.quantity) + taken.quantity)};
}

std::optional<LineItem> FileMasterData::FindLineItem(DetailKind kind, LineField by,
                                                     const std::string& sought,
                                                     const std::string& elementName,
                                                     const std::string& ownCode) {
    return Known(mLineItems, {kind, by, sought, elementName, ownCode},
                 [&] { return mAccount.FindLineItem(kind, by, sought, elementName, ownCode); });
}

}  // namespace kelvane::entries
