#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <utility>
#include <variant>

#include "data/text_conversion.h"
#include "entries/bulk/title_row.h"
#include "entries/ledger/code_pattern.h"
#include "entries/ledger/ledger_tables.h"
#include "entries/ledger/trial_layout.h"
#include "platform/decimal.h"

namespace kelvane::entries {

using platform::Decimal;
using platform::Money;
using platform::TableReader;
using platform::TableRow;

namespace {

constexpr int kMoneyDecimals = 4;

// What a program that counts in binary numbers meant by one of its results: it keeps 15 digits.
Decimal WithoutNoise(const Decimal& number) {
    constexpr int kExactDigits = 15;
    const std::string text = number.Text();
    const auto first = text.find_first_of("123456789");
    const auto point = std::min(text.find('.'), text.size());
    if (first == std::string::npos) return number;
    const int whole = static_cast<int>(point) - static_cast<int>(first);
    // Behind the point the zeros in front do not count.
    const int places = kExactDigits - (whole > 0 ? whole : whole + 1);
    return number.Rounded(std::max(0, places), platform::Rounding::HalfAwayFromZero);
}

bool IsMoney(const Decimal& number) {
    return number.Rounded(kMoneyDecimals, platform::Rounding::HalfToEven).Text() == number.Text();
}

// `text`: a decimal number or nothing but blanks, which is zero.
std::variant<Money, Finding> AmountOf(const std::string& text, bool typed) {
    if (data::Trim(text).empty()) return Money();
    auto number = Decimal::FromText(text);
    if (!number) return Found(Rule::AmountNumber);
    if (typed && !IsMoney(*number)) number = WithoutNoise(*number);
    if (!IsMoney(*number)) return Found(Rule::LedgerDecimals, text);
    const auto units = number->Scaled(kMoneyDecimals, platform::Rounding::HalfToEven);
    if (!units) return Found(Rule::AmountRange);
    return Money::FromUnits(*units);
}

// "合计", "资产合计："
bool IsTotal(std::string_view account) {
    constexpr std::array<std::string_view, 3> kTotals{"合计", "总计", "小计"};
    std::string text = PlainTitle(account);
    if (text.ends_with(':')) text.pop_back();
    return text.empty() || std::ranges::any_of(kTotals, [&](std::string_view each) {
               return text.ends_with(each);
           });
}

class TrialBuilding {
public:
    TrialBuilding(const TableReader& reader, BulkTable table)
        : mReader(reader), mTable(std::move(table)) {}

    TrialReading Run() {
        for (const BulkRow& row : mTable.rows) TakeRow(row);
        if (mTotals > 0) {
            Note(mFirstTotal, "没有读入合计或没有科目的 " + std::to_string(mTotals) + " 行");
        }
        std::ranges::stable_sort(mTable.findings, {}, &PlacedFinding::row);
        mReading.findings = std::move(mTable.findings);
        mReading.notes = std::move(mTable.notes);
        return std::move(mReading);
    }

private:
    void TakeRow(const BulkRow& row) {
        const std::string account = AccountOf(TextOf(row, kTrialAccountColumn));
        if (IsTotal(account)) {
            if (!IsRefused(row.number, kTrialAccountColumn) && mTotals++ == 0) {
                mFirstTotal = row.number;
            }
            return;
        }
        ExactSum amount = SignedAmount(row);
        const std::string name = AccountOf(TextOf(row, kTrialNameColumn));
        const auto [known, isNew] = mPlaces.emplace(account, mReading.trial.size());
        if (isNew) {
            mReading.trial.push_back({account, name, amount});
            return;
        }
        TrialLine& line = mReading.trial[known->second];
        line.amount += amount;
        if (line.name.empty()) line.name = name;
        Note(row.number, "科目“" + account + "”不止一行，余额相加");
    }

    ExactSum SignedAmount(const BulkRow& row) {
        ExactSum amount(ReadAmount(row, kTrialAmountColumn));
        amount += ExactSum(ReadAmount(row, kTrialDebitColumn));
        amount -= ExactSum(ReadAmount(row, kTrialCreditColumn));
        if (mTable.places[kTrialDirectionColumn].column == 0) return amount;
        const std::string side = PlainTitle(TextOf(row, kTrialDirectionColumn));
        const bool isZero = amount.IsZero();
        if (side == "贷" || side == "贷方") {
            return ExactSum() - amount;
        }
        const bool isDebit = side == "借" || side == "借方";
        const bool isFlat = isZero && (side.empty() || side == "平");
        if (!isDebit && !isFlat && !IsRefused(row.number, kTrialDirectionColumn)) {
            Find(row.number, kTrialDirectionColumn, Found(Rule::LedgerDirection, side));
        }
        return amount;
    }

    Money ReadAmount(const BulkRow& row, int column) {
        auto amount = AmountOf(TextOf(row, column), mReader.HasTypedCells());
        if (auto* refusal = std::get_if<Finding>(&amount)) {
            Find(row.number, column, std::move(*refusal));
            return {};
        }
        return std::get<Money>(amount);
    }

    static const std::string& TextOf(const BulkRow& row, int column) {
        return row.texts[static_cast<std::size_t>(column)];
    }
    bool IsRefused(int row, int column) const {
        const int place = mTable.places[static_cast<std::size_t>(column)].column;
        return std::ranges::any_of(mTable.findings, [&](const PlacedFinding& each) {
            return each.row == row && each.column == place;
        });
    }
    void Find(int row, int column, Finding finding) {
        mTable.findings.push_back(Placed(mReader, mTable, row, column, std::move(finding)));
    }
    void Note(int row, std::string text) {
        mTable.notes.push_back({PlaceOf(mReader, mTable, row, 0), std::move(text)});
    }

    const TableReader& mReader;
    BulkTable mTable;
    TrialReading mReading;
    std::map<std::string, std::size_t> mPlaces;
    int mTotals = 0;
    int mFirstTotal = 0;
};

// The titles' row of the sheet, and which sheet that is; a row without cells when there is none.
std::pair<std::size_t, TableRow> FindTitles(TableReader& reader) {
    const TableShape shape = AnyTrialShape();
    const std::size_t sheet = ChooseSheet(reader, shape, {});
    TableRow titles;
    reader.Read(sheet, [&](const TableRow& row) {
        if (row.position > kLastTitleRow) return false;
        if (!IsTitleRow(row, shape)) return true;
        titles = row;
        return false;
    });
    return {sheet, titles};
}

}  // namespace

TrialReading ReadTrialBalance(TableReader& reader, const std::vector<std::string>& known) {
    const auto [sheet, titles] = FindTitles(reader);
    const TrialLayout layout = TrialLayoutOf(titles);
    const auto propose = [&](int column, std::string_view number) {
        return column == kTrialAccountColumn ? OnlyCodeOf(number, known) : std::nullopt;
    };
    BulkTable table = ReadBulkTable(
        reader, layout.shape,
        {.sheet = reader.Sheets()[sheet].name, .hidden = HiddenRows::Take, .propose = propose});
    if (layout.refusal) {
        return {.trial = {},
                .findings = {Placed(reader, table, table.titleRow, 0, *layout.refusal)},
                .notes = std::move(table.notes)};
    }
    return TrialBuilding(reader, std::move(table)).Run();
}

}  // namespace kelvane::entries
