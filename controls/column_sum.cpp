#include "controls/column_sum.h"

#include "platform/blanks.h"
#include "platform/exact_integer.h"

namespace kelvane::controls {

using platform::Money;

std::optional<Money> ColumnSum::Total() const {
    if (!mFits) return std::nullopt;
    return Money::FromUnits(mUnits);
}

void ColumnSum::Count(std::string_view cell, bool comes) {
    if (platform::WithoutOuterBlanks(cell).empty()) return;
    try {
        const std::int64_t units = Money::FromText(cell).Units();
        const auto sum =
            comes ? platform::ExactSum(mUnits, units) : platform::ExactDifference(mUnits, units);
        mFits = mFits && sum.has_value();
        if (sum) mUnits = *sum;
    } catch (const platform::MoneyTextError&) {
        mUnread += comes ? 1 : -1;
    } catch (const platform::MoneyOverflow&) {
        mFits = false;
    }
}

}  // namespace kelvane::controls
