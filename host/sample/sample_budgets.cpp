#include "host/sample/sample_budgets.h"

#include <set>

#include "host/sample/seeded_random.h"

namespace kelvane::host {

namespace {

using platform::Money;
using platform::Value;

constexpr std::int64_t kFirstVersion = 1;
constexpr std::int64_t kControllingVersion = 2;

constexpr std::int64_t kUnitsOfThousand = 1000 * Money::kUnitsPerOne;

// The kinds of line that recorded entries meet, in turn.
enum class Control { NoLine, NotControlled, Tight, Ample };
constexpr int kTurns = 8;

Control ControlOfTurn(int turn) {
    switch (turn % kTurns) {
        case 1:
            return Control::Tight;
        case 3:
            return Control::NotControlled;
        case 6:
            return Control::NoLine;
        default:
            return Control::Ample;
    }
}

// `money` grown by `percent` of it, rounded up to whole thousands.
Money Grown(Money money, std::int64_t percent) {
    const std::int64_t grown = money.Units() / 100 * (100 + percent);
    return Money::FromUnits((grown / kUnitsOfThousand + 1) * kUnitsOfThousand);
}

Row LineRow(std::int64_t version, std::pair<std::size_t, std::size_t> line, Money budget,
            Money money) {
    return {Value(version), Value(SampleProjects()[line.first].code),
            Value(SampleElements()[line.second].code), Value(budget), Value(money)};
}

}  // namespace

void SampleBudgets::Count(const SampleEntry& entry) {
    const Line line{entry.project, entry.element};
    mLines[line] += entry.total;
    for (const auto& detail : entry.details) {
        auto& recorded = mDetails[{line, detail.code}];
        recorded.money += detail.amount;
        recorded.halfUnits += detail.halfUnits;
    }
}

std::vector<TableRows> SampleBudgets::Rows(std::uint64_t seed) const {
    SeededRandom random(seed + 1);
    const TableRows versions{"pm_BudgetVer",
                             {"iverid", "bControl"},
                             {{Value(kFirstVersion), Value(std::int64_t{0})},
                              {Value(kControllingVersion), Value(std::int64_t{1})}}};
    TableRows lines{
        "pm_budget", {"iVerID", "citemCode", "cElementCode", "iBudget", "iMoneysum"}, {}};
    TableRows details{
        "pm_budgetsub",
        {"iVerID", "citemCode", "cElementCode", "cCodeMx", "iBudget", "imoneysum", "inumberSum"},
        {}};
    std::set<Line> detailed;
    int turn = 0;
    for (const auto& [line, recorded] : mLines) {
        const Control control = ControlOfTurn(turn++);
        const Money ample = Grown(recorded, random.Between(10, 90));
        if (turn % 3 == 0) lines.rows.push_back(LineRow(kFirstVersion, line, recorded, recorded));
        if (control == Control::NoLine) continue;
        const Money money = control == Control::Tight ? recorded : ample;
        const Money budget = control == Control::NotControlled ? Money() : ample;
        lines.rows.push_back(LineRow(kControllingVersion, line, budget, money));
        if (control == Control::Ample) detailed.insert(line);
    }
    for (const auto& [key, recorded] : mDetails) {
        const auto& [line, code] = key;
        if (!detailed.contains(line)) continue;
        const Money money = Grown(recorded.money, 20);
        const std::int64_t quantity = recorded.halfUnits / 2 * 6 / 5 + 10;
        details.rows.push_back({Value(kControllingVersion),
                                Value(SampleProjects()[line.first].code),
                                Value(SampleElements()[line.second].code), Value(code),
                                Value(money), Value(money), Value(static_cast<double>(quantity))});
    }
    // Lines that nothing has been recorded for yet.
    for (std::size_t project = 0; project < SampleProjects().size(); ++project) {
        for (std::size_t element = 0; element < SampleElements().size(); ++element) {
            const Money money = Money::FromUnits(random.Between(50, 2000) * kUnitsOfThousand);
            if (random.Chance(70) || mLines.contains({project, element})) continue;
            lines.rows.push_back(LineRow(kControllingVersion, {project, element}, money, money));
        }
    }
    return {versions, lines, details};
}

}  // namespace kelvane::host
