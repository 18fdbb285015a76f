// MasterData: what the rules ask about the account. A caller that checks many entries can stand in
// front of it and give answers again that cannot have changed meanwhile.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "entries/detail_line.h"
#include "entries/entry.h"
#include "platform/date_time.h"
#include "platform/money.h"

namespace kelvane::entries {

// A budget line of the version in control; no line, and one that grants nothing, does not control.
struct Budget {
    bool controlled = false;
    platform::Money money;
    float quantity = 0;  // of a detail code's line alone
};

// The budget could not be read; what() is the database's description.
class BudgetUnreadable : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// What other entries have recorded of one detail code.
struct RecordedLines {
    platform::Money amount;
    float quantity = 0;
};

enum class LineField { Code, Name };

// What an item's entries of a duty centre are told apart by; empty where there is nothing.
struct ItemKeywords {
    std::string key1;
    std::string key2;

    friend bool operator==(const ItemKeywords&, const ItemKeywords&) = default;
};

class MasterData {
public:
    virtual ~MasterData() = default;
    MasterData() = default;
    MasterData(const MasterData&) = delete;
    MasterData& operator=(const MasterData&) = delete;

    // Whether the duty centre exists and the operator may use it; false after an error.
    virtual bool CenterAllowed(const std::string& centerCode) = 0;
    // Whether the project item is one of the duty centre's; letter case counts.
    virtual bool ItemInCenter(const std::string& itemCode, const std::string& centerCode) = 0;
    // Whether the item was closed before project management began; false after an error.
    virtual bool ItemSettled(const std::string& itemCode, const std::string& key1,
                             const std::string& key2) = 0;
    // The name of an item; empty when there is none, and after an error.
    virtual std::string ItemName(const std::string& itemCode) = 0;
    // The keywords under which the duty centre has the item, without the blanks at their ends.
    virtual std::vector<ItemKeywords> KeywordsOf(const std::string& itemCode,
                                                 const std::string& centerCode) = 0;
    // The detail kind of the element of that name; none when there is no such element.
    virtual std::optional<std::int16_t> ElementDetail(const std::string& elementName) = 0;
    // The code of the element of that name. Throws platform::DatabaseError when there is none.
    virtual std::string ElementCode(const std::string& elementName) = 0;
    // From this date on no opening entry may be dated.
    virtual platform::DateTime OpeningBound() = 0;

    // The budget of item and element, or of `detailCode` below them when it is not empty. Throws
    // BudgetUnreadable.
    virtual Budget BudgetOf(const std::string& itemCode, const std::string& elementCode,
                            const std::string& detailCode) = 0;
    // What all entries but `entry` have recorded of its item and the element of `elementCode`.
    virtual platform::Money RecordedByOthers(const BudgetedEntry& entry,
                                             const std::string& elementCode) = 0;
    virtual RecordedLines LinesOfOthers(const BudgetedEntry& entry, const std::string& elementCode,
                                        const std::string& detailCode) = 0;

    // The item whose code or name is `sought`, as far as the element's inventory class allows; of
    // several with that name the one whose code is `ownCode`, else the first. None when there is
    // none.
    virtual std::optional<LineItem> FindLineItem(DetailKind kind, LineField by,
                                                 const std::string& sought,
                                                 const std::string& elementName,
                                                 const std::string& ownCode) = 0;
};

}  // namespace kelvane::entries
