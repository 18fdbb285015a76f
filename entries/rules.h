// The catalogue of rules: what can be wrong with an entry or a detail line, each with the id that
// reports name it by, its column and the text that an operator reads. A rule shows nothing: checks
// give findings, and whoever asked decides what becomes of them.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/windows.h"

namespace kelvane::entries {

enum class Rule {
    DateEmpty,
    DateInvalid,
    DateBound,
    DateRange,
    CenterEmpty,
    CenterUnknown,
    ItemEmpty,
    ItemCenter,
    ItemSettled,
    ItemSettledDeletion,
    ElementEmpty,
    ElementUnknown,
    DigestEmpty,
    AmountEmpty,
    AmountNumber,
    BudgetExceeded,
    BudgetFailed,
    PeriodClosed,
    YearCarriedOver,
    OtherStartYear,
    EntryGone,
    IdentityExhausted,
    IdentityBelowRange,
    CounterMissing,
    LineCodeEmpty,
    LineNameEmpty,
    EquipmentCodeUnknown,
    EquipmentNameUnknown,
    InventoryCodeUnknown,
    InventoryNameUnknown,
    LineCodeDuplicate,
    LinePriceZero,
    LineQuantityZero,
    LineNumber,
    LineBudgetAmount,
    LineBudgetQuantity,
    CellCodeNumber,
    CellCodeProposed,
    CellCodeSpoiled,
    CellFormula,
    CellError,
    CellDate,
    CellMerged,
    FileNoTitles,
    FileColumnMissing,
    FileColumnTwice,
    FileHidden,
    FileAgain,
    FileTotalRows,
    FileTotalAmount,
    KeyMismatch,
    ItemName,
    AmountRange,
    AmountLines,
    LineAmount,
    TextQuote,
    TextLength,
    EntryChanged,
    EntryLinesChanged,
    EntryKept,
    EntryIdentityUsed,
    EntryIdentityTwice,
    EntryRowNumberTwice,
    EntryOperation,
    EntryDeletion,
    LedgerAccountEmpty,
    LedgerPattern,
    LedgerDirection,
    LedgerDecimals,
    LedgerAmounts,
    LineEntryNone,
    LineEntryMissing,
    LineEntryPlain,
    // Of the check of the whole account, in the order of its catalogue.
    CheckItem,
    CheckCenter,
    CheckElement,
    CheckEquipment,
    CheckInventory,
    CheckLinesSum,
    CheckLinesOrphan,
    CheckLinesKind,
    CheckLinesProduct,
    CheckCounter,
    CheckCounterMissing,
    CheckCounterValue,
    CheckIdentityValue,
    CheckDateValue,
    CheckAmountValue,
    CheckLineEntryValue,
    CheckLinePriceValue,
    CheckLineQuantityValue,
    CheckLineAmountValue,
    CheckBudget,
    CheckBudgetVersions,
    CheckBudgetValue,
    CheckLineBudgetAmount,
    CheckLineBudgetQuantity,
    CheckLineBudgetValue,
    CheckDate,
    CheckSettled,
    CheckZero,
    CheckKeys,
    CheckAuthority,
    CheckTwin,
    CheckBlank,
    CheckLineBlank,
    Count,
};

// `column`: an EntryColumn, for rules of lines a LineColumn; 0 in an entry's rule: the whole entry.
// `text`: what an operator reads, with "{}" where a run-time value stands; empty when all of it is
// told at run time.
struct DeclaredRule {
    Rule rule;
    std::string_view id;
    int column;
    std::string_view text;
    std::string_view caption;
};

const DeclaredRule& Declared(Rule rule);
std::span<const DeclaredRule> DeclaredRules();

// What one check found.
struct Finding {
    Rule rule;
    std::string_view id;
    int column;
    std::string text;
    std::string_view caption;
    platform::MessageIcon icon = platform::MessageIcon::Information;
    // Of a budget that was exceeded: what it grants, what others have used of it and what is left.
    std::string figures = {};
};

using Findings = std::vector<Finding>;

Finding Found(Rule rule);
// `value` stands in the text's "{}", and alone where the rule has no text of its own.
Finding Found(Rule rule, std::string_view value);
// Of several values, "{}" by "{}".
Finding Found(Rule rule, std::string_view first, std::string_view second);
Finding Found(Rule rule, std::span<const std::string_view> values);

}  // namespace kelvane::entries
