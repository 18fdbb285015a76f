// LineBudgets: what the budgets leave for an entry's lines, for the lower line.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "entries/line_rules.h"

namespace kelvane::ui {

class LineBudgets {
public:
    // "预算余额 1,234.50，数量 12.00" of the line's code after the lines of all other entries and
    // this one; empty when no budget controls it or none can be read. A code's budget is read over
    // gConn at the first question after Forget(), aside.
    std::string LeftFor(const entries::LineRules& rules, const entries::LineTexts& line);
    void Forget() { mBudgets.clear(); }

private:
    std::map<std::string, std::optional<entries::LineBudget>> mBudgets;
};

}  // namespace kelvane::ui
