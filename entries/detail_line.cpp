#include "entries/detail_line.h"

#include "data/number_format.h"
#include "data/text_conversion.h"

namespace kelvane::entries {

using data::MoneyOfDisplay;
using platform::Money;
using platform::StatementText;
using platform::Value;

DetailLine LineOf(const LineTexts& texts) {
    return {
        .code = texts.code,
        .price = MoneyOfDisplay(texts.price),
        .quantity = data::DoubleOfDisplay(texts.quantity),
        .amount = MoneyOfDisplay(texts.amount),
    };
}

Money AmountOf(const std::string& price, const std::string& quantity) {
    return MoneyOfDisplay(price) * MoneyOfDisplay(quantity);
}

std::string LineNumberText(const std::string& typed, std::int16_t kind) {
    return typed.empty() ? typed : data::NumFormatText(Value("0" + typed), kind, true);
}

std::string LineAmountText(const std::string& price, const std::string& quantity) {
    return data::DisplayOfMoney(AmountOf(price, quantity));
}

Money TotalOf(std::span<const DetailLine> lines) {
    Money total;
    for (const DetailLine& line : lines) total += line.amount;
    return total;
}

StatementText ReplacementOf(std::span<const DetailLine> lines) {
    StatementText script("delete from PM_ItemQCsub where iEleVid=");
    script.EntryPlaceholder();
    for (const DetailLine& line : lines) {
        script << " insert into PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) values(";
        script.EntryPlaceholder() << ",";
        script.Quoted(line.code) << ",";
        script.Amount(line.price) << ",";
        script.Double(line.quantity) << ",";
        script.Amount(line.amount) << ")";
    }
    return script;
}

}  // namespace kelvane::entries
