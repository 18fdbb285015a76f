#include "ui/common/figures.h"

#include "data/number_format.h"
#include "ui/common/list_views.h"

namespace kelvane::ui {

namespace {

// All decimals where two do not say it.
std::string AmountText(platform::Money amount) {
    constexpr int kAllPlaces = 4;
    std::string text = data::DisplayOfMoney(amount);
    if (platform::Money::FromText(text) == amount) return text;
    return data::FormatDecimal(platform::Decimal::FromScaled(amount.Units(), kAllPlaces),
                               kAllPlaces, true);
}

std::string SumText(const controls::ColumnSum& sum, bool filtered) {
    const auto total = sum.Total();
    const std::string name = filtered ? "所示合计" : "合计";
    if (!total) return name + "超出范围";
    std::string text = name + " " + AmountText(*total);
    if (sum.Unread() > 0) text += "（" + std::to_string(sum.Unread()) + " 行不是金额）";
    return text;
}

}  // namespace

std::string FiguresOf(const controls::Grid& grid) {
    const int rows = grid.Rows() - grid.FixedRows();
    std::string place =
        grid.IsFiltered() ? "筛选 " + ShownRows(grid) : "共 " + std::to_string(rows) + " 行";
    if (grid.Row() >= grid.FixedRows()) {
        place = "第 " + std::to_string(grid.Row() - grid.FixedRows() + 1) + " 行，" + place;
    }
    std::string figures = place + "   " + SumText(grid.Sum(), grid.IsFiltered());
    if (grid.SelectedRows() > 1) {
        figures += "   选定 " + std::to_string(grid.SelectedRows()) + " 行，" +
                   SumText(grid.SelectedSum(), false);
    }
    return figures;
}

}  // namespace kelvane::ui
