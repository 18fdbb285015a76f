#include "entries/rules.h"

#include <array>
#include <cstddef>
#include <utility>

#include "data/messages.h"
#include "entries/detail_line.h"
#include "entries/entry.h"

namespace kelvane::entries {

namespace {

using data::kModuleCaption;
using data::kPromptCaption;

constexpr int kCode = static_cast<int>(LineColumn::Code);
constexpr int kName = static_cast<int>(LineColumn::Name);
constexpr int kPrice = static_cast<int>(LineColumn::Price);
constexpr int kQuantity = static_cast<int>(LineColumn::Quantity);
constexpr int kLineAmount = static_cast<int>(LineColumn::Amount);
constexpr int kWholeEntry = 0;
// Whichever a table's cell stands in.
constexpr int kAnyColumn = 0;

constexpr std::string_view kBeyondBudget = "金额超出项目预算中的项目期初发生额";

// In the order of the enumeration.
constexpr std::array<DeclaredRule, static_cast<std::size_t>(Rule::Count)> kRules{{
    {Rule::DateEmpty, "date.empty", kDateColumn, "日期不能为空", kPromptCaption},
    {Rule::DateInvalid, "date.invalid", kDateColumn, "日期非法", kPromptCaption},
    {Rule::DateBound, "date.bound", kDateColumn, "期初录入时间应在本年度帐套启用期间第一天({})之前",
     kPromptCaption},
    {Rule::DateRange, "date.range", kDateColumn, "期初录入时间录入有误！", kPromptCaption},
    {Rule::CenterEmpty, "center.empty", kCenterColumn, "责任中心不能为空", kPromptCaption},
    {Rule::CenterUnknown, "center.unknown", kCenterColumn,
     "此责任中心不存在或操作员没有权限，须重新输入！", kPromptCaption},
    {Rule::ItemEmpty, "item.empty", kItemColumn, "项目编号不能为空", kPromptCaption},
    {Rule::ItemCenter, "item.center", kItemColumn, "该责任中心下不包括此项目，须重新输入！",
     kPromptCaption},
    {Rule::ItemSettled, "item.settled", kItemColumn,
     "项目已经完工结算，不能在启用后对该项目录入期初！", "提示"},
    {Rule::ItemSettledDeletion, "item.settled", kItemColumn, "此项目已经结算，不能删除 ！",
     kPromptCaption},
    {Rule::ElementEmpty, "element.empty", kElementColumn, "项目要素不能为空", kPromptCaption},
    {Rule::ElementUnknown, "element.unknown", kElementColumn, "输入的项目要素不存在，须重新输入！",
     kPromptCaption},
    {Rule::DigestEmpty, "digest.empty", kDigestColumn, "摘要不能为空", kPromptCaption},
    {Rule::AmountEmpty, "amount.empty", kAmountColumn, "期初不能为空", kPromptCaption},
    {Rule::AmountNumber, "amount.number", kAmountColumn, "请输入数字", kPromptCaption},
    {Rule::BudgetExceeded, "budget.exceeded", kAmountColumn, kBeyondBudget, kModuleCaption},
    {Rule::BudgetFailed, "budget.failed", kAmountColumn, "", kModuleCaption},
    {Rule::PeriodClosed, "list.locked", kWholeEntry, "启用期间已经结账，不能再录入期初。",
     kPromptCaption},
    {Rule::YearCarriedOver, "list.locked", kWholeEntry, "{} 年度已经结转，不能再录入期初。",
     kPromptCaption},
    {Rule::OtherStartYear, "list.locked", kWholeEntry, "启用年度不是登录年度（{}），不能录入期初。",
     kPromptCaption},
    {Rule::EntryGone, "entry.gone", kWholeEntry, "该行记录已经被他人删除", kModuleCaption},
    {Rule::IdentityExhausted, "identity.exhausted", kWholeEntry,
     "期初编号已经用完（最大 {}），当前行没有保存，没有写入数据库。", kPromptCaption},
    {Rule::IdentityBelowRange, "identity.exhausted", kWholeEntry,
     "期初编号小于 {}，不能使用，当前行没有保存，没有写入数据库。", kPromptCaption},
    {Rule::CounterMissing, "counter.missing", kWholeEntry, "出现冲突，请稍后再试！",
     kPromptCaption},
    {Rule::LineCodeEmpty, "line.code.empty", kCode, "编码不能为空", kModuleCaption},
    {Rule::LineNameEmpty, "line.name.empty", kName, "名称不能为空", kModuleCaption},
    {Rule::EquipmentCodeUnknown, "line.code.unknown", kCode, "设备编码不存在或不是末级",
     kModuleCaption},
    {Rule::EquipmentNameUnknown, "line.code.unknown", kName, "设备名称不存在或不是末级",
     kModuleCaption},
    {Rule::InventoryCodeUnknown, "line.code.unknown", kCode, "存货编码不存在或所属分类不正确",
     kModuleCaption},
    {Rule::InventoryNameUnknown, "line.code.unknown", kName, "存货名称不存在或所属分类不正确",
     kModuleCaption},
    {Rule::LineCodeDuplicate, "line.code.duplicate", kCode, "编码不能重复", kModuleCaption},
    {Rule::LinePriceZero, "line.price.zero", kPrice, "单价不能为空或0", kModuleCaption},
    {Rule::LineQuantityZero, "line.quantity.zero", kQuantity, "数量不能为空或0", kModuleCaption},
    {Rule::LineNumber, "line.number", kQuantity, "非法金额数量", kModuleCaption},
    {Rule::LineBudgetAmount, "line.budget.amount", kLineAmount, kBeyondBudget, kModuleCaption},
    {Rule::LineBudgetQuantity, "line.budget.quantity", kQuantity,
     "数量超出项目预算中的项目期初数量", kModuleCaption},
    {Rule::CellCodeNumber, "cell.code.number", kAnyColumn,
     "编码应为文本，此处是数字 {}，可能缺少前面的 0", kPromptCaption},
    {Rule::CellCodeProposed, "cell.code.number", kAnyColumn,
     "编码应为文本，此处是数字，可能是编码 {}", kPromptCaption},
    {Rule::CellCodeSpoiled, "cell.code.number", kAnyColumn,
     "编码 {} 已被电子表格改写，原来的编码无法得知", kPromptCaption},
    {Rule::CellFormula, "cell.formula", kAnyColumn, "公式没有保存计算结果，须重新计算后保存",
     kPromptCaption},
    {Rule::CellError, "cell.error", kAnyColumn, "单元格是错误值 {}", kPromptCaption},
    {Rule::CellDate, "cell.date", kAnyColumn, "{} 不是日期", kPromptCaption},
    {Rule::CellMerged, "cell.merged", kAnyColumn, "合并的单元格不能导入，须先取消合并",
     kPromptCaption},
    {Rule::FileNoTitles, "file.column", kAnyColumn, "前 20 行中没有标题行（须有{}）",
     kPromptCaption},
    {Rule::FileColumnMissing, "file.column", kAnyColumn, "缺少列“{}”", kPromptCaption},
    {Rule::FileColumnTwice, "file.column", kAnyColumn, "列“{}”不止一个", kPromptCaption},
    {Rule::FileHidden, "file.hidden", kAnyColumn,
     "有 {} 个隐藏行，须指明略过（--hidden skip）还是读入（--hidden take）", kPromptCaption},
    {Rule::FileAgain, "file.again", kAnyColumn, "{}，确需再次导入须指明 --again", kPromptCaption},
    {Rule::FileTotalRows, "file.total", kAnyColumn, "控制总数不符：应为 {} 行，文件中是 {} 行",
     kPromptCaption},
    {Rule::FileTotalAmount, "file.total", kAmountColumn, "控制总额不符：应为 {}，文件中是 {}",
     kPromptCaption},
    {Rule::KeyMismatch, "key.mismatch", kKey1Column, "该责任中心下此项目没有这样的关键字",
     kPromptCaption},
    {Rule::ItemName, "item.name", kItemNameColumn, "项目名称与项目编号不符，该编号的项目是“{}”",
     kPromptCaption},
    {Rule::AmountRange, "amount.range", kAmountColumn,
     "金额超出范围（-922,337,203,685,477.58 至 922,337,203,685,477.58）", kPromptCaption},
    {Rule::AmountLines, "amount.lines", kAmountColumn, "期初与明细不符，明细合计为 {}",
     kPromptCaption},
    {Rule::LineAmount, "amount.lines", kLineAmount, "余额与单价、数量不符，应为 {}",
     kModuleCaption},
    {Rule::TextQuote, "text.quote", kAnyColumn, "不能含有单引号（'）", kPromptCaption},
    {Rule::TextLength, "text.length", kAnyColumn, "太长，最多 {} 个字节（一个汉字为两个字节）",
     kPromptCaption},
    {Rule::EntryChanged, "entry.changed", kAnyColumn,
     "该行已被他人修改：文件中是“{}”，帐套中现在是“{}”", kModuleCaption},
    {Rule::EntryLinesChanged, "entry.changed", kWholeEntry, "该行的明细已被他人修改",
     kModuleCaption},
    {Rule::EntryKept, "entry.changed", kWholeEntry, "该行在这个批次之后又被修改，保留不动",
     kModuleCaption},
    {Rule::EntryIdentityUsed, "entry.changed", kWholeEntry, "该编号已另有一行期初，保留不动",
     kModuleCaption},
    {Rule::EntryIdentityTwice, "entry.duplicate", kWholeEntry, "编号 {} 不止一次：另见第 {} 行",
     kPromptCaption},
    {Rule::EntryRowNumberTwice, "entry.duplicate", kWholeEntry, "行号 {} 不止一次：另见第 {} 行",
     kPromptCaption},
    {Rule::EntryOperation, "file.column", kAnyColumn, "“操作”只能是空白或“删除”，此处是“{}”",
     kPromptCaption},
    {Rule::EntryDeletion, "entry.gone", kWholeEntry, "没有编号的行不能删除", kPromptCaption},
    {Rule::LedgerAccountEmpty, "file.column", kAnyColumn, "没有科目", kPromptCaption},
    {Rule::LedgerPattern, "file.column", kAnyColumn, "“*”只能单独写，或写在编码的末尾，此处是“{}”",
     kPromptCaption},
    {Rule::LedgerDirection, "file.column", kAnyColumn,
     "“方向”只能是“借”、“贷”或“平”（余额为零），此处是“{}”", kPromptCaption},
    {Rule::LedgerDecimals, "amount.number", kAnyColumn, "金额 {} 多于四位小数", kPromptCaption},
    {Rule::LedgerAmounts, "file.column", kAnyColumn, "不知道余额是“{}”还是“{}”，只能留一个",
     kPromptCaption},
    {Rule::LineEntryNone, "line.entry", kCode, "没有行号，不知道属于哪一行期初", kModuleCaption},
    {Rule::LineEntryMissing, "line.entry", kCode, "没有行号为“{}”的期初", kModuleCaption},
    {Rule::LineEntryPlain, "line.entry", kCode, "要素“{}”没有明细", kModuleCaption},
    {Rule::CheckItem, "check.item", kItemColumn, "项目“{}”不存在", kModuleCaption},
    {Rule::CheckCenter, "check.center", kCenterColumn, "责任中心“{}”不存在", kModuleCaption},
    {Rule::CheckElement, "check.element", kElementColumn, "要素“{}”不存在", kModuleCaption},
    {Rule::CheckEquipment, "check.code", kCode, "要素“{}”的设备“{}”不存在", kModuleCaption},
    {Rule::CheckInventory, "check.code", kCode, "要素“{}”的存货“{}”不存在", kModuleCaption},
    {Rule::CheckLinesSum, "check.lines.sum", kAmountColumn,
     "项目“{}”要素“{}”的未结转期初 {} 与明细合计 {} 不符，相差 {}", kModuleCaption},
    {Rule::CheckLinesOrphan, "check.lines.orphan", kCode,
     "没有编号为 {} 的期初，却有它的明细 {} 行（{}），余额合计 {}", kModuleCaption},
    {Rule::CheckLinesKind, "check.lines.kind", kCode,
     "要素“{}”没有明细，却有明细 {} 行（{}），余额合计 {}，未结转期初 {}", kModuleCaption},
    {Rule::CheckLinesProduct, "check.lines.product", kLineAmount,
     "明细“{}”的余额 {} 不是单价 {} 乘以数量 {}，应为 {}", kModuleCaption},
    {Rule::CheckCounter, "check.counter", kWholeEntry, "期初编号计数器 {} 小于最大的编号 {}",
     kModuleCaption},
    {Rule::CheckCounterMissing, "check.counter", kWholeEntry,
     "没有期初编号计数器（NumMax_EleQc），最大的编号是 {}", kModuleCaption},
    {Rule::CheckCounterValue, "check.counter", kWholeEntry,
     "期初编号计数器“{}”不是编号，最大的编号是 {}", kModuleCaption},
    {Rule::CheckIdentityValue, "check.value", kWholeEntry, "编号 {} 超出范围（{} 至 {}）",
     kModuleCaption},
    {Rule::CheckDateValue, "check.value", kDateColumn, "项目“{}”要素“{}”的日期为空或无法读取",
     kModuleCaption},
    {Rule::CheckAmountValue, "check.value", kAmountColumn,
     "项目“{}”要素“{}”的未结转期初为空或无法读取", kModuleCaption},
    {Rule::CheckLineEntryValue, "check.value", kCode, "明细“{}”的期初编号为空或无法读取",
     kModuleCaption},
    {Rule::CheckLinePriceValue, "check.value", kPrice, "明细“{}”的单价为空或无法读取",
     kModuleCaption},
    {Rule::CheckLineQuantityValue, "check.value", kQuantity, "明细“{}”的数量为空或无法读取",
     kModuleCaption},
    {Rule::CheckLineAmountValue, "check.value", kLineAmount, "明细“{}”的余额为空或无法读取",
     kModuleCaption},
    {Rule::CheckBudget, "check.budget", kAmountColumn, "项目“{}”要素“{}”已录入期初 {}，超出预算 {}",
     kModuleCaption},
    {Rule::CheckBudgetVersions, "check.budget", kWholeEntry,
     "控制预算的版本不止一个（{}），不能检查预算", kModuleCaption},
    {Rule::CheckBudgetValue, "check.budget", kAmountColumn,
     "项目“{}”要素“{}”的预算无法读取，已录入期初 {}", kModuleCaption},
    {Rule::CheckLineBudgetAmount, "check.line.budget", kLineAmount,
     "项目“{}”要素“{}”明细“{}”已录入余额 {}，超出预算 {}", kModuleCaption},
    {Rule::CheckLineBudgetQuantity, "check.line.budget", kQuantity,
     "项目“{}”要素“{}”明细“{}”已录入数量 {}，超出预算数量 {}", kModuleCaption},
    {Rule::CheckLineBudgetValue, "check.line.budget", kLineAmount,
     "项目“{}”要素“{}”明细“{}”的预算无法读取，已录入余额 {}", kModuleCaption},
    {Rule::CheckDate, "check.date", kDateColumn, "日期 {} 不早于本年度帐套启用期间第一天 {}",
     kModuleCaption},
    {Rule::CheckSettled, "check.settled", kItemColumn, "项目“{}”已经完工结算，仍有未结转期初 {}",
     kModuleCaption},
    {Rule::CheckZero, "check.zero", kAmountColumn, "项目“{}”要素“{}”的未结转期初为 {}",
     kModuleCaption},
    {Rule::CheckKeys, "check.keys", kKey1Column, "责任中心“{}”下项目“{}”没有关键字“{}”",
     kModuleCaption},
    {Rule::CheckAuthority, "check.authority", kCenterColumn, "责任中心“{}”下不包括项目“{}”",
     kModuleCaption},
    {Rule::CheckTwin, "check.twin", kWholeEntry,
     "与编号 {} 的期初相同：日期 {}，责任中心“{}”，项目“{}”，要素“{}”，未结转期初 {}",
     kModuleCaption},
    {Rule::CheckBlank, "check.blank", kAnyColumn, "{}“{}”与基础数据的“{}”只差空格或大小写",
     kModuleCaption},
    {Rule::CheckLineBlank, "check.blank", kCode, "明细的{}“{}”与基础数据的“{}”只差空格或大小写",
     kModuleCaption},
}};

constexpr bool InOrder() {
    for (std::size_t i = 0; i < kRules.size(); ++i) {
        if (kRules[i].rule != static_cast<Rule>(i)) return false;
    }
    return true;
}
static_assert(InOrder(), "the rules stand in the order of their enumeration");

}  // namespace

const DeclaredRule& Declared(Rule rule) {
    return kRules[static_cast<std::size_t>(rule)];
}

std::span<const DeclaredRule> DeclaredRules() {
    return kRules;
}

Finding Found(Rule rule) {
    return Found(rule, std::string_view());
}

Finding Found(Rule rule, std::string_view value) {
    return Found(rule, std::span(&value, 1));
}

Finding Found(Rule rule, std::string_view first, std::string_view second) {
    const std::array values{first, second};
    return Found(rule, values);
}

Finding Found(Rule rule, std::span<const std::string_view> values) {
    constexpr std::string_view kPlace = "{}";
    const DeclaredRule& declared = Declared(rule);
    std::string text(declared.text);
    if (text.empty()) text = values.front();
    std::size_t from = 0;
    for (const std::string_view value : values) {
        const auto place = text.find(kPlace, from);
        if (place == std::string::npos || declared.text.empty()) break;
        text.replace(place, kPlace.size(), value);
        from = place + value.size();
    }
    return {.rule = rule,
            .id = declared.id,
            .column = declared.column,
            .text = std::move(text),
            .caption = declared.caption};
}

}  // namespace kelvane::entries
