// FileMasterData: master data for checking the rows of one file together. It asks the account each
// question once, and counts what other rows of the file take of a budget, or give back, as if they
// stood in the account already.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "entries/entry_record.h"
#include "entries/master_data.h"

namespace kelvane::entries {

// What a file does to the budget of an item and element.
struct BudgetUse {
    std::string itemCode;
    std::string itemName;
    std::string elementName;
    std::optional<platform::Money> budget;  // none: nothing controls them
    platform::Money before;                 // recorded in the account
    std::optional<platform::Money> after;   // none: more than an amount can be
};

// What the account had recorded of an item and element, or of a detail code below them, when a row
// was checked against it.
struct RecordedTotal {
    BudgetedEntry entry;
    std::string elementCode;
    std::string detailCode;  // empty: of the entries
    RecordedLines recorded;

    // Whether the account has the same now.
    bool Holds(MasterData& account) const;
};

class FileMasterData : public MasterData {
public:
    // `account` outlives this. Its errors are passed on.
    explicit FileMasterData(MasterData& account) : mAccount(account) {}

    // A row of the account that the file changes or deletes no longer counts.
    void Release(const EntryRecord& stored);
    // A row of the file counts from now on.
    void Take(const EntryRecord& row);

    // Of every item and element of a row that was taken or released, in the order of the rows. To
    // be asked before any of them is written.
    std::vector<BudgetUse> Budgets();
    // What the answers so far rest on and other operators may change.
    const std::vector<RecordedTotal>& Totals() const { return mTotals; }

    bool CenterAllowed(const std::string& centerCode) override;
    bool ItemInCenter(const std::string& itemCode, const std::string& centerCode) override;
    bool ItemSettled(const std::string& itemCode, const std::string& key1,
                     const std::string& key2) override;
    std::string ItemName(const std::string& itemCode) override;
    std::vector<ItemKeywords> KeywordsOf(const std::string& itemCode,
                                         const std::string& centerCode) override;
    std::optional<std::int16_t> ElementDetail(const std::string& elementName) override;
    std::string ElementCode(const std::string& elementName) override;
    platform::DateTime OpeningBound() override;
    Budget BudgetOf(const std::string& itemCode, const std::string& elementCode,
                    const std::string& detailCode) override;
    platform::Money RecordedByOthers(const BudgetedEntry& entry,
                                     const std::string& elementCode) override;
    RecordedLines LinesOfOthers(const BudgetedEntry& entry, const std::string& elementCode,
                                const std::string& detailCode) override;
    std::optional<LineItem> FindLineItem(DetailKind kind, LineField by, const std::string& sought,
                                         const std::string& elementName,
                                         const std::string& ownCode) override;

private:
    using Key = std::tuple<std::string, std::string, std::string>;
    // Errors of a budget are answers as well.
    struct KnownBudget {
        Budget budget;
        std::string unreadable;
    };
    struct UsedLines {
        std::optional<platform::Money> amount = platform::Money();
        double quantity = 0;
    };

    static Key KeyOf(const std::string& itemCode, const std::string& elementCode,
                     const std::string& detailCode = {});
    void Count(const EntryRecord& row, int sign);
    platform::Money Recorded(const Key& key, const BudgetedEntry& entry,
                             const std::string& elementCode);

    MasterData& mAccount;
    std::optional<platform::DateTime> mBound;
    std::map<std::string, bool> mCenters;
    std::map<std::pair<std::string, std::string>, bool> mItems;
    std::map<std::tuple<std::string, std::string, std::string>, bool> mSettled;
    std::map<std::string, std::string> mItemNames;
    std::map<std::pair<std::string, std::string>, std::vector<ItemKeywords>> mKeywords;
    std::map<std::string, std::optional<std::int16_t>> mDetails;
    std::map<std::string, std::string> mElementCodes;
    std::map<Key, KnownBudget> mBudgets;
    std::map<Key, platform::Money> mRecorded;  // in the account
    // By the file, less what it releases; none: more than an amount can be.
    std::map<Key, std::optional<platform::Money>> mTaken;
    std::map<Key, RecordedLines> mRecordedLines;
    std::map<Key, UsedLines> mTakenLines;
    std::map<std::tuple<DetailKind, LineField, std::string, std::string, std::string>,
             std::optional<LineItem>>
        mLineItems;
    std::vector<RecordedTotal> mTotals;
    std::vector<BudgetedEntry> mUses;  // one of each item and element, in the order of the rows
};

}  // namespace kelvane::entries
