// What a detail line must be. Nothing is shown and nothing is written.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "entries/detail_line.h"
#include "entries/master_data.h"
#include "entries/rules.h"

namespace kelvane::entries {

// What controls the lines of one code.
struct LineBudget {
    Budget budget;
    RecordedLines others;  // of all entries but the lines' own
};

class LineRules {
public:
    // Lines of `kind` that belong to `entry`. Asks `masterData`, whose errors every check passes
    // on.
    LineRules(MasterData& masterData, DetailKind kind, BudgetedEntry entry)
        : mMasterData(masterData), mKind(kind), mEntry(std::move(entry)) {}

    // Whether `text` is a price or a quantity: a number without a sign, or nothing.
    static std::optional<Finding> CheckNumber(const std::string& text);
    // `code` must not be one of the `others`.
    static std::optional<Finding> CheckCodeOnce(const std::string& code,
                                                std::span<const std::string> others);
    // The item that the line's code or name stands for, or what is wrong with it. Of several items
    // of one name that with `ownCode` is taken, else the first.
    std::variant<LineItem, Finding> Find(LineField by, const std::string& sought,
                                         const std::string& ownCode) const;
    // Whether the line has all it needs. Throws as MoneyOfDisplay() does.
    static std::optional<Finding> CheckComplete(const LineTexts& line);
    // The budget of the lines of `code`; none when nothing controls them. Throws BudgetUnreadable.
    std::optional<LineBudget> BudgetFor(const std::string& code) const;
    // Whether the line keeps within its budget, the lines of all other entries included.
    std::optional<Finding> CheckBudget(const LineTexts& line) const;

    // Everything of one line among the codes of the `others`; what cannot be checked because
    // another cell is wrong is left out.
    Findings CheckLine(const LineTexts& line, std::span<const std::string> others) const;
    // The same of an entry's lines, those of the first line first. A code that stands twice is the
    // later line's fault.
    std::vector<Findings> CheckLines(std::span<const LineTexts> lines) const;

private:
    MasterData& mMasterData;
    DetailKind mKind;
    BudgetedEntry mEntry;
};

}  // namespace kelvane::entries
