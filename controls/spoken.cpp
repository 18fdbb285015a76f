#include "controls/spoken.h"

#include <algorithm>
#include <string_view>

namespace kelvane::controls {

namespace {

std::string WithoutColon(std::string_view caption) {
    for (const std::string_view colon : {":", "："}) {
        if (caption.ends_with(colon)) caption.remove_suffix(colon.size());
    }
    return std::string(caption);
}

// Whether two stretches have anything in common.
bool Overlap(int from, int length, int otherFrom, int otherLength) {
    return from < otherFrom + otherLength && otherFrom < from + length;
}

// Of two labels the one nearer to a field, which both lie before.
const Label* Nearer(const Label* found, const Label& candidate, int (Control::*edge)() const) {
    return found == nullptr || (found->*edge)() < (candidate.*edge)() ? &candidate : found;
}

}  // namespace

Spoken SpokenOf(const Button& button) {
    return {.role = SpokenRole::Button,
            .name = button.Caption().empty() ? button.SpokenName() : button.Caption(),
            .shown = button.Visible(),
            .enabled = button.Enabled()};
}

Spoken SpokenOf(const Label& label) {
    return {.role = SpokenRole::Label, .name = label.Caption(), .shown = label.Visible()};
}

Spoken SpokenOf(Grid& grid) {
    return {.role = SpokenRole::Table,
            .name = grid.SpokenName().empty() ? grid.Owner().Caption() : grid.SpokenName(),
            .shown = grid.Visible(),
            .enabled = grid.Enabled(),
            .locked = grid.ReadOnly()};
}

Spoken SpokenOf(const Grid& grid, int row, int col) {
    Spoken cell;
    cell.text = grid.Text(row, col);
    cell.shown = grid.ColumnWidth(col) > 0;
    cell.enabled = grid.Enabled();
    if (row < grid.FixedRows()) {
        cell.role = SpokenRole::ColumnTitle;
        return cell;
    }
    cell.role = col < grid.FixedCols() ? SpokenRole::RowTitle : SpokenRole::Cell;
    cell.row = row - grid.FixedRows() + 1;
    if (!grid.TakesFocus()) {
        cell.rowText = grid.RowText(row);
        std::replace(cell.rowText.begin(), cell.rowText.end(), '\t', ' ');
        return cell;
    }
    if (grid.FixedRows() > 0) cell.name = grid.Text(0, col);
    int shownColumns = 0;
    for (int before = grid.FixedCols(); before <= col; ++before) {
        if (grid.ColumnWidth(before) > 0) ++shownColumns;
    }
    if (shownColumns > 0) cell.column = shownColumns;
    cell.locked = col < grid.FixedCols() || grid.ReadOnly() || grid.IsLocked(row, col);
    cell.wrong = grid.HasFault(row, col);
    cell.hasList = !cell.locked && (grid.HasReference(col) || grid.HasList(col));
    return cell;
}

Spoken SpokenOf(const PageView& pages) {
    Spoken page;
    page.role = SpokenRole::Page;
    page.shown = pages.Visible();
    page.enabled = pages.Enabled();
    if (pages.PageCount() > 0) {
        page.name = "第 " + std::to_string(pages.Page()) + " 页，共 " +
                    std::to_string(pages.PageCount()) + " 页";
    }
    return page;
}

Spoken SpokenOf(const ToolbarStyleControl::Item& item) {
    return {.role = item.separator ? SpokenRole::Separator : SpokenRole::Button,
            .name = item.caption,
            .shown = item.visible,
            .enabled = item.enabled};
}

std::string NameAndText(const Spoken& spoken) {
    if (!spoken.rowText.empty()) return spoken.rowText;
    if (spoken.name.empty() || spoken.text.empty()) return spoken.name + spoken.text;
    return spoken.name + " " + spoken.text;
}

std::string StateAndPlace(const Spoken& spoken) {
    if (spoken.row < 0) return {};
    std::string words = spoken.locked ? "锁定，" : "";
    if (spoken.wrong) words += "有错，";
    words += "第 " + std::to_string(spoken.row) + " 行";
    if (spoken.column > 0) words += "，第 " + std::to_string(spoken.column) + " 列";
    return words;
}

std::string LabelOf(Control& field) {
    if (!field.SpokenName().empty()) return field.SpokenName();
    const Label* left = nullptr;
    const Label* above = nullptr;
    for (const Control* control : field.Owner().Controls()) {
        const auto* label = dynamic_cast<const Label*>(control);
        if (label == nullptr || !label->Visible() || label->IsTitle()) continue;
        if (label->Caption().empty()) continue;
        if (label->Left() < field.Left() &&
            Overlap(label->Top(), label->Height(), field.Top(), field.Height())) {
            left = Nearer(left, *label, &Control::Left);
        } else if (label->Top() < field.Top() &&
                   Overlap(label->Left(), label->Width(), field.Left(), field.Width())) {
            above = Nearer(above, *label, &Control::Top);
        }
    }
    const Label* label = left != nullptr ? left : above;
    return label == nullptr ? std::string() : WithoutColon(label->Caption());
}

}  // namespace kelvane::controls
