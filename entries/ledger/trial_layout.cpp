#include "entries/ledger/trial_layout.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace kelvane::entries {

using platform::TableRow;

namespace {

// Either an amount, or debit and credit. Of two that a table has the one of the lower rank is
// meant: what is called an opening balance is it, and beside a balance what stands in debit and
// credit alone is the turnover.
struct AmountTitles {
    int rank;
    std::string_view amount;
    std::string_view debit = {};
    std::string_view credit = {};

    std::string_view First() const { return amount.empty() ? debit : amount; }
};
constexpr std::array kLayouts{
    AmountTitles{0, "期初余额"}, AmountTitles{0, {}, "期初借方", "期初贷方"},
    AmountTitles{1, "余额"},     AmountTitles{1, {}, "借方余额", "贷方余额"},
    AmountTitles{2, "金额"},     AmountTitles{2, {}, "借方", "贷方"},
};

TableShape PlainShape() {
    TableShape shape;
    shape.sheet = "科目余额表";
    shape.columnCount = kTrialColumnCount;
    shape.firstMark = kTrialAccountColumn;
    shape.columns = {
        {kTrialAccountColumn, CellUse::Code, true, {"科目编码", "科目代码", "科目"}},
        {kTrialNameColumn, CellUse::Text, false, {"科目名称"}},
    };
    return shape;
}

void AddColumn(TableShape& shape, int column, std::string_view title, bool needed = true) {
    const CellUse use = column == kTrialDirectionColumn ? CellUse::Label : CellUse::Number;
    shape.columns.push_back({column, use, needed, {std::string(title)}});
}

TableShape ShapeOf(const AmountTitles& layout) {
    TableShape shape = PlainShape();
    if (layout.amount.empty()) {
        AddColumn(shape, kTrialDebitColumn, layout.debit);
        AddColumn(shape, kTrialCreditColumn, layout.credit);
        shape.secondMark = kTrialDebitColumn;
        shape.otherMarks = {kTrialCreditColumn};
    } else {
        AddColumn(shape, kTrialAmountColumn, layout.amount);
        AddColumn(shape, kTrialDirectionColumn, "方向", false);
        shape.columns.back().belongsTo = kTrialAmountColumn;
        shape.secondMark = kTrialAmountColumn;
    }
    IndexTitles(shape);
    return shape;
}

bool Has(const TableRow& row, std::string_view title) {
    return std::ranges::any_of(
        row.cells, [&](const platform::TableCell& cell) { return PlainTitle(cell.text) == title; });
}

// With `whole` both columns of a layout of two have to be there, else one of them does.
std::vector<const AmountTitles*> LayoutsIn(const TableRow& row, bool whole) {
    std::vector<const AmountTitles*> found;
    for (const AmountTitles& each : kLayouts) {
        const bool hasDebit = Has(row, each.debit);
        const bool hasCredit = Has(row, each.credit);
        const bool hasBoth = whole ? hasDebit && hasCredit : hasDebit || hasCredit;
        if (each.amount.empty() ? hasBoth : Has(row, each.amount)) found.push_back(&each);
    }
    return found;
}

// Beside its code an account is called by its name.
void NameAccounts(TableShape& shape, const TableRow& titles) {
    if (!Has(titles, "科目") || !(Has(titles, "科目编码") || Has(titles, "科目代码"))) return;
    for (TableColumn& column : shape.columns) {
        if (column.column == kTrialAccountColumn) std::erase(column.titles, "科目");
        if (column.column == kTrialNameColumn) column.titles.emplace_back("科目");
    }
    shape.byTitle.clear();
    IndexTitles(shape);
}

}  // namespace

TableShape AnyTrialShape() {
    TableShape shape = PlainShape();
    int column = kTrialColumnCount;
    for (const AmountTitles& each : kLayouts) {
        for (const std::string_view title : {each.amount, each.debit, each.credit}) {
            if (title.empty()) continue;
            shape.otherMarks.push_back(column);
            AddColumn(shape, column++, title, false);
        }
    }
    // The one that a message names.
    shape.secondMark = shape.otherMarks[2];
    for (TableColumn& each : shape.columns) {
        if (each.titles.front() == "余额") shape.secondMark = each.column;
    }
    shape.columnCount = column;
    IndexTitles(shape);
    return shape;
}

TrialLayout TrialLayoutOf(const TableRow& titles) {
    auto known = LayoutsIn(titles, true);
    // One of two columns: the shape says which is missing.
    if (known.empty()) known = LayoutsIn(titles, false);
    if (known.empty()) return {AnyTrialShape(), {}};
    const AmountTitles& meant = *known.front();
    TrialLayout layout{ShapeOf(meant), {}};
    NameAccounts(layout.shape, titles);
    if (known.size() > 1 && known[1]->rank == meant.rank) {
        layout.refusal = Found(Rule::LedgerAmounts, meant.First(), known[1]->First());
    }
    return layout;
}

}  // namespace kelvane::entries
