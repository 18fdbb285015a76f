#include "entries/check/found_list.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <tuple>
#include <utility>

#include "data/login_context.h"
#include "data/number_format.h"
#include "entries/detail_line.h"
#include "entries/entry.h"
#include "platform/decimal.h"
#include "platform/utf8.h"

namespace kelvane::entries {

namespace {

constexpr std::array<std::string_view, 5> kLineTitles{"编码", "名称", "单价", "数量", "余额"};
constexpr std::array<std::string_view, kEntryColumnCount> kEntryTitles{
    "", "日期", "责任中心", "项目编号", "项目名称", "", "", "要素", "摘要", "未结转期初"};

// The rules whose column is one of a detail line.
bool IsOfLine(Rule rule) {
    switch (rule) {
        case Rule::CheckEquipment:
        case Rule::CheckInventory:
        case Rule::CheckLinesOrphan:
        case Rule::CheckLinesKind:
        case Rule::CheckLinesProduct:
        case Rule::CheckLineEntryValue:
        case Rule::CheckLinePriceValue:
        case Rule::CheckLineQuantityValue:
        case Rule::CheckLineAmountValue:
        case Rule::CheckLineBudgetAmount:
        case Rule::CheckLineBudgetQuantity:
        case Rule::CheckLineBudgetValue:
        case Rule::CheckLineBlank:
            return true;
        default:
            return false;
    }
}

// A damaged account may have any text where a code belongs. The part of it that a finding tells:
// not more than a cell of a sheet has room for, and what is no character as one that stands for it.
std::string Told(std::string_view text, std::size_t room) {
    std::string told;
    for (std::size_t count = 0; !text.empty(); ++count) {
        if (count == room) return told + "…";
        platform::AppendCharacter(told, platform::TakeCharacter(text).value);
    }
    return told;
}

std::string TitleOf(const Finding& finding) {
    const auto column = static_cast<std::size_t>(finding.column);
    if (IsOfLine(finding.rule)) return std::string(kLineTitles.at(column));
    const bool isSecond = finding.column == kKey2Column;
    if (finding.column != kKey1Column && !isSecond) return std::string(kEntryTitles.at(column));
    const std::string& field = isSecond ? data::gItemKeyField2 : data::gItemKeyField1;
    return field.empty() ? "关键字" : field + " (关键字)";
}

}  // namespace

void FoundList::Add(std::int64_t identity, Rule rule,
                    std::initializer_list<std::string_view> values) {
    AddIn(identity, Declared(rule).column, rule, values);
}

void FoundList::AddIn(std::int64_t identity, int column, Rule rule,
                      std::initializer_list<std::string_view> values) {
    constexpr std::size_t kRoom = 3000;
    std::vector<std::string> told;
    for (const std::string_view value : values) told.push_back(Told(value, kRoom));
    Finding finding = Found(rule, std::vector<std::string_view>(told.begin(), told.end()));
    finding.column = column;
    std::string title = TitleOf(finding);
    mFindings.push_back({identity, std::move(title), std::move(finding)});
}

std::vector<CheckFinding> FoundList::Take() {
    std::ranges::sort(mFindings, [](const CheckFinding& a, const CheckFinding& b) {
        return std::tie(a.identity, a.finding.rule, a.finding.column, a.finding.text) <
               std::tie(b.identity, b.finding.rule, b.finding.column, b.finding.text);
    });
    return std::exchange(mFindings, {});
}

std::string QuantityText(double quantity) {
    constexpr int kPlaces = 6;
    const auto number = platform::Decimal::FromDouble(quantity);
    if (!number) return "∞";
    return number->Rounded(kPlaces, platform::Rounding::HalfToEven).Text();
}

std::string CodesText(const std::vector<std::string>& codes) {
    constexpr std::size_t kShown = 10;
    constexpr std::size_t kRoom = 255;
    std::string text;
    for (std::size_t i = 0; i < codes.size() && i < kShown; ++i) {
        text += (text.empty() ? "" : "、") + Told(codes[i], kRoom);
    }
    return codes.size() > kShown ? text + "等" : text;
}

}  // namespace kelvane::entries
