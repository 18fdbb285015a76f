#include "entries/bulk/bulk_rules.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "data/account_tables.h"
#include "data/number_format.h"
#include "data/text_conversion.h"
#include "entries/entry_rules.h"
#include "entries/line_rules.h"
#include "platform/statement_text.h"
#include "platform/utf8.h"

namespace kelvane::entries {

using platform::Money;
using platform::Value;

namespace {

// The columns whose texts are stored as they are, and how many bytes the account has room for.
struct StoredText {
    EntryColumn column;
    std::size_t room;
};

const std::array<StoredText, 5>& StoredTexts() {
    const auto roomOf = [](const char* field) { return data::TextLengthOf("PM_ItemQC", field); };
    static const std::array<StoredText, 5> texts{{{kCenterColumn, roomOf("cCenterCode")},
                                                  {kItemColumn, roomOf("cItemCode")},
                                                  {kKey1Column, roomOf("cKeyCode1")},
                                                  {kKey2Column, roomOf("cKeyCode2")},
                                                  {kDigestColumn, roomOf("cDigest")}}};
    return texts;
}

bool FitsStatement(const std::string& text) {
    return !platform::StatementText().Inside(text).IsMalformed();
}

// Whether two amounts look the same in the windows. Throws platform::MoneyOverflow and
// platform::MoneyTextError.
bool SameAmount(const std::string& given, Money amount) {
    return data::NumFormatText(Value(data::Trim(given)), data::kMoneyKind, true) ==
           data::DisplayOfMoney(amount);
}

class RowCheck {
public:
    RowCheck(MasterData& masterData, const BulkEntry& entry, std::vector<BulkFinding>& findings)
        : mMasterData(masterData), mRules(masterData), mEntry(entry), mFindings(findings) {}

    std::optional<EntryRecord> Run();

private:
    void CheckLines(std::int16_t detail);
    void CheckLineTexts(LineRules& rules);
    LineTexts CompleteLine(const LineRules& rules, const BulkLine& line);
    void CheckTotal();
    void TakeTexts();
    void CheckEntry();
    void CheckKeywords();
    void CheckItemName();
    void CheckTexts();
    bool IsFound(int column) const { return mFound.Has(column) || mEntry.unread.Has(column); }
    void Find(int column, Finding finding) {
        mFound.Add(column);
        mFindings.push_back({BulkTableKind::Entries, mEntry.row, column, std::move(finding)});
    }
    void FindInLine(const BulkLine& line, int column, Finding finding) {
        mLinesAreSound = false;
        mFindings.push_back({BulkTableKind::Lines, line.row, column, std::move(finding)});
    }
    const std::string& Text(EntryColumn column) const { return mTexts[column]; }

    MasterData& mMasterData;
    EntryRules mRules;
    const BulkEntry& mEntry;
    std::vector<BulkFinding>& mFindings;
    EntryTexts mTexts;
    ColumnSet mFound;  // columns in which something was found here
    bool mLinesAreSound = true;
    std::int16_t mDetail = 0;
    std::vector<DetailLine> mLines;
};

bool HasAny(const ColumnSet& columns, int count) {
    for (int column = 0; column < count; ++column) {
        if (columns.Has(column)) return true;
    }
    return false;
}

std::optional<EntryRecord> RowCheck::Run() {
    TakeTexts();
    if (!Text(kElementColumn).empty()) {
        if (const auto detail = mMasterData.ElementDetail(Text(kElementColumn))) {
            CheckLines(*detail);
        }
    }
    CheckEntry();
    CheckKeywords();
    CheckItemName();
    CheckTexts();
    for (const BulkLine& line : mEntry.lines) {
        if (HasAny(line.unread, kLineTableColumnCount)) mLinesAreSound = false;
    }
    const bool sound = mLinesAreSound && !HasAny(mFound, kEntryTableColumnCount) &&
                       !HasAny(mEntry.unread, kEntryTableColumnCount);
    if (!sound) return std::nullopt;
    return EntryRecord{EntryOf(mTexts), mMasterData.ElementCode(Text(kElementColumn)),
                       std::move(mLines)};
}

// A text that no statement can carry reaches none: its cell counts as empty from here on. A centre
// of such a text is an unknown one, as it is in the windows.
void RowCheck::TakeTexts() {
    mTexts = mEntry.texts;
    for (int column = kDateColumn; column <= kAmountColumn; ++column) {
        std::string& text = mTexts.cells[static_cast<std::size_t>(column)];
        if (text != " ") text = data::Trim(text);
        const bool isCarried =
            column > kCenterColumn && column <= kDigestColumn && column != kItemNameColumn;
        if (!isCarried || FitsStatement(text)) continue;
        Find(column, Found(Rule::TextQuote));
        text.clear();
    }
}

void RowCheck::CheckLines(std::int16_t detail) {
    if (detail == 0) {
        for (const BulkLine& line : mEntry.lines) {
            FindInLine(line, kLineRowNumberColumn,
                       Found(Rule::LineEntryPlain, Text(kElementColumn)));
        }
        return;
    }
    LineRules rules(mMasterData, KindOfDetail(detail),
                    {mTexts.identity, Text(kItemColumn), Text(kElementColumn)});
    CheckLineTexts(rules);
    CheckTotal();
}

void RowCheck::CheckLineTexts(LineRules& rules) {
    std::vector<std::string> codes;
    for (const BulkLine& line : mEntry.lines) {
        const std::size_t before = mFindings.size();
        if (!FitsStatement(line.texts.code)) {
            FindInLine(line, kLineCodeColumn, Found(Rule::TextQuote));
            continue;
        }
        const LineTexts texts = CompleteLine(rules, line);
        try {
            for (Finding& finding : rules.CheckLine(texts, codes)) {
                const int column = LineTableColumnOf(static_cast<LineColumn>(finding.column));
                if (!line.unread.Has(column)) FindInLine(line, column, std::move(finding));
            }
        } catch (const platform::MoneyOverflow&) {
            // Together with what the budget has been used for.
            FindInLine(line, kLineAmountColumn, Found(Rule::AmountRange));
        }
        codes.push_back(texts.code);
        if (mFindings.size() == before && !HasAny(line.unread, kLineTableColumnCount)) {
            mLines.push_back(LineOf(texts));
        }
    }
}

// The texts as the editor shows them: the item's name, and what price and quantity come to.
LineTexts RowCheck::CompleteLine(const LineRules& rules, const BulkLine& line) {
    LineTexts texts = line.texts;
    if (!texts.code.empty() && texts.name.empty()) {
        const auto item = rules.Find(LineField::Code, texts.code, texts.code);
        const auto* known = std::get_if<LineItem>(&item);
        // One that is not known is found as such, not as one without a name.
        texts.name = known == nullptr ? texts.code : known->name;
    }
    const std::string given = std::exchange(texts.amount, {});
    if (LineRules::CheckNumber(texts.price) || LineRules::CheckNumber(texts.quantity)) {
        return texts;
    }
    texts.price = LineNumberText(texts.price, data::kPriceKind);
    texts.quantity = LineNumberText(texts.quantity, data::kQuantityKind);
    try {
        const Money amount = AmountOf(texts.price, texts.quantity);
        texts.amount = LineAmountText(texts.price, texts.quantity);
        const bool isRead =
            !line.unread.Has(kLinePriceColumn) && !line.unread.Has(kLineQuantityColumn);
        if (isRead && !given.empty() && !SameAmount(given, amount)) {
            FindInLine(line, kLineAmountColumn, Found(Rule::LineAmount, texts.amount));
        }
    } catch (const platform::MoneyOverflow&) {
        FindInLine(line, kLineAmountColumn, Found(Rule::AmountRange));
    }
    return texts;
}

// An amount that is not given is what the lines come to.
void RowCheck::CheckTotal() {
    std::string& amount = mTexts[kAmountColumn];
    const bool whole = mLinesAreSound && mLines.size() == mEntry.lines.size();
    if (!whole) {
        // Nothing can be said of an amount that would have come from them.
        if (amount.empty()) mFound.Add(kAmountColumn);
        return;
    }
    if (mEntry.unread.Has(kAmountColumn) || (amount.empty() && mLines.empty())) return;
    try {
        const Money total = TotalOf(mLines);
        if (amount.empty()) {
            amount = data::DisplayOfMoney(total);
        } else if (data::IsNumericText(amount) && !SameAmount(amount, total)) {
            Find(kAmountColumn, Found(Rule::AmountLines, data::DisplayOfMoney(total)));
        }
    } catch (const platform::MoneyOverflow&) {
        Find(kAmountColumn, Found(Rule::AmountRange));
    }
}

void RowCheck::CheckEntry() {
    for (Finding& finding : mRules.CheckEntry(mTexts, mDetail)) {
        const int column = finding.column;
        if (!IsFound(column)) Find(column, std::move(finding));
    }
}

void RowCheck::CheckKeywords() {
    const ItemKeywords given{Text(kKey1Column), Text(kKey2Column)};
    if (given == ItemKeywords() || IsFound(kCenterColumn) || IsFound(kItemColumn) ||
        IsFound(kKey1Column) || IsFound(kKey2Column)) {
        return;
    }
    const auto known = mMasterData.KeywordsOf(Text(kItemColumn), Text(kCenterColumn));
    if (std::ranges::find(known, given) != known.end()) return;
    Find(given.key1.empty() ? kKey2Column : kKey1Column, Found(Rule::KeyMismatch));
}

void RowCheck::CheckItemName() {
    const std::string& given = Text(kItemNameColumn);
    if (given.empty() || IsFound(kCenterColumn) || IsFound(kItemColumn) ||
        IsFound(kItemNameColumn)) {
        return;
    }
    const std::string name = data::Trim(mMasterData.ItemName(Text(kItemColumn)));
    if (given != name) Find(kItemNameColumn, Found(Rule::ItemName, name));
}

void RowCheck::CheckTexts() {
    for (const auto& [column, room] : StoredTexts()) {
        if (IsFound(column) || platform::CodePageLength(Text(column)) <= room) continue;
        Find(column, Found(Rule::TextLength, std::to_string(room)));
    }
}

}  // namespace

std::optional<EntryRecord> BulkRules::Check(const BulkEntry& entry,
                                            std::vector<BulkFinding>& findings) {
    return RowCheck(mMasterData, entry, findings).Run();
}

void BulkRules::CheckDeletion(const BulkEntry& row, const EntryRecord& stored,
                              std::vector<BulkFinding>& findings) {
    EntryTexts texts;
    texts[kItemColumn] = stored.entry.itemCode;
    texts[kKey1Column] = stored.entry.key1;
    texts[kKey2Column] = stored.entry.key2;
    if (auto settled = EntryRules(mMasterData).CheckDeletion(texts)) {
        findings.push_back({BulkTableKind::Entries, row.row, 0, *std::move(settled)});
    }
}

}  // namespace kelvane::entries
