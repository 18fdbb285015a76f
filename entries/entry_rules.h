// What an opening entry must be. Each check takes the texts as an operator typed them, without the
// blanks at their ends, brings them into the form in which they are kept, and gives what it found.
// Nothing is shown and nothing is written.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "entries/checked_budget.h"
#include "entries/entry.h"
#include "entries/master_data.h"
#include "entries/rules.h"
#include "platform/money.h"

namespace kelvane::entries {

class EntryRules {
public:
    // Asks `masterData`, whose errors every check passes on.
    explicit EntryRules(MasterData& masterData) : mMasterData(masterData) {}

    // `text` becomes "yyyy-mm-dd".
    std::optional<Finding> CheckDate(std::string& text) const;
    std::optional<Finding> CheckCenter(const std::string& text) const;
    // The item of `entry` against its centre, and with its keywords against settlement.
    std::optional<Finding> CheckItem(const EntryTexts& entry) const;
    static std::optional<Finding> CheckElementGiven(const std::string& text);
    // `detail` becomes the detail kind of an element that is there.
    std::optional<Finding> CheckElement(const std::string& text, std::int16_t& detail) const;
    static std::optional<Finding> CheckDigest(const std::string& text);
    // `text` becomes the amount's display text; one single blank stands for zero.
    static std::optional<Finding> CheckAmount(std::string& text);
    // Whether `amount` keeps within the budget, the amounts of all other entries of its item and
    // element included. Where there is a budget and it does, `checked` (may be null) becomes what
    // was compared.
    std::optional<Finding> CheckBudget(const BudgetedEntry& entry, platform::Money amount,
                                       std::optional<CheckedBudget>* checked = nullptr) const;
    // What a budget leaves room for when the other entries, read anew, have come to take so much of
    // it that the checked amount does not keep within it; empty when it still does.
    std::string FindOverrun(const CheckedBudget& checked) const;
    // Whether an entry of this item may be deleted.
    std::optional<Finding> CheckDeletion(const EntryTexts& entry) const;

    // Everything of a whole entry, in the order of its columns, the budget last: what cannot be
    // checked because another cell is wrong is left out. The texts are brought into their form,
    // `detail` becomes the detail kind of the element.
    Findings CheckEntry(EntryTexts& entry, std::int16_t& detail) const;

private:
    MasterData& mMasterData;
};

}  // namespace kelvane::entries
