#include "entries/detail_line.h"

#include "data/text_conversion.h"

namespace kelvane::entries {

using data::MoneyOfDisplay;
using platform::Money;
using platform::StatementText;

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
