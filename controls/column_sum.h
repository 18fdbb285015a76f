// ColumnSum: the sum of a column's amounts, kept while cells change. A list of 100,000 rows is not
// added up again for every key.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/money.h"

namespace kelvane::controls {

class ColumnSum {
public:
    // A cell comes with this text, or goes.
    void Add(std::string_view cell) { Count(cell, true); }
    void Take(std::string_view cell) { Count(cell, false); }

    // Nothing once an amount or the sum was too large for one.
    std::optional<platform::Money> Total() const;
    // How many cells have a text that is no amount. Blank ones count as nothing.
    int Unread() const { return mUnread; }

private:
    void Count(std::string_view cell, bool comes);

    std::int64_t mUnits = 0;
    int mUnread = 0;
    bool mFits = true;
};

}  // namespace kelvane::controls
