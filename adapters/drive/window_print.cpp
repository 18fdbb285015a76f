#include "adapters/drive/window_print.h"

#include <string>

#include "adapters/drive/script.h"
#include "adapters/drive/toolbars.h"
#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/edit_box.h"
#include "controls/label.h"
#include "controls/page_view.h"
#include "controls/picture.h"

namespace kelvane::drive {

using controls::Control;
using controls::Form;
using controls::Grid;

namespace {

// What a control is called in "print window", and the text it shows.
struct Description {
    std::string_view kind;
    std::string text;
    bool hasText = false;
};

std::string PagesText(const controls::PageView& pages) {
    const std::string zoom = pages.Zoom() == controls::PageView::kWholePage
                                 ? "whole page"
                                 : std::to_string(pages.Zoom()) + " %";
    return "page " + std::to_string(pages.Page()) + " of " + std::to_string(pages.PageCount()) +
           ", " + zoom;
}

Description Describe(const Control& control) {
    if (const auto* label = dynamic_cast<const controls::Label*>(&control)) {
        return {"label", label->Caption(), true};
    }
    if (const auto* edit = dynamic_cast<const controls::EditBox*>(&control)) {
        return {"edit", edit->Text(), true};
    }
    if (const auto* combo = dynamic_cast<const controls::ComboBox*>(&control)) {
        return {"combo", combo->Text(), true};
    }
    if (const auto* button = dynamic_cast<const controls::Button*>(&control)) {
        return {"button", button->Caption(), true};
    }
    if (const auto* pages = dynamic_cast<const controls::PageView*>(&control)) {
        return {"pages", PagesText(*pages), true};
    }
    if (dynamic_cast<const Grid*>(&control) != nullptr) return {"grid", {}};
    if (dynamic_cast<const controls::Toolbar*>(&control) != nullptr) return {"toolbar", {}};
    if (dynamic_cast<const controls::ToolbarStyleControl*>(&control) != nullptr) {
        return {"toolbar-style", {}};
    }
    if (dynamic_cast<const controls::Picture*>(&control) != nullptr) return {"picture", {}};
    return {"control", {}};
}

std::string ControlLine(const Form& form, const Control& control) {
    const Description description = Describe(control);
    std::string line = "control " + control.Name() + " " + std::string(description.kind);
    line += control.Visible() ? " visible" : " hidden";
    line += control.Enabled() ? " enabled" : " disabled";
    if (const auto* grid = dynamic_cast<const Grid*>(&control)) {
        if (grid->ReadOnly()) line += " read-only";
    }
    if (form.ActiveControl() == &control) line += " focus";
    if (description.hasText) line += " \"" + description.text + "\"";
    return line;
}

std::string Place(int row, int column) {
    return std::to_string(row) + " " + std::to_string(column);
}

}  // namespace

Grid* FindGrid(const Form& form) {
    for (Control* control : form.Controls()) {
        if (auto* grid = dynamic_cast<Grid*>(control)) return grid;
    }
    return nullptr;
}

void PrintGrid(const Grid& grid, Transcript& transcript) {
    std::vector<std::string> cells(static_cast<std::size_t>(grid.Cols()));
    for (int row = 0; row < grid.Rows(); ++row) {
        for (int col = 0; col < grid.Cols(); ++col) {
            const std::string mark = grid.IsLocked(row, col) ? "#" : "";
            cells[static_cast<std::size_t>(col)] = mark + grid.Text(row, col);
        }
        transcript.Line(Place(row, grid.RowData(row)) + " " + Join(cells, '|'));
    }
}

void PrintToolbar(const Form& form, Transcript& transcript) {
    for (const ShownButton& button : ShownToolbar(form).Buttons()) {
        if (button.separator) {
            transcript.Line("-");
            continue;
        }
        transcript.Line(button.key + " " + button.caption +
                        (button.enabled ? " enabled" : " disabled") +
                        (button.visible ? "" : " hidden"));
    }
}

void PrintPage(const Form& form, Transcript& transcript) {
    const controls::PageView* pages = nullptr;
    for (const Control* control : form.Controls()) {
        if (pages == nullptr) pages = dynamic_cast<const controls::PageView*>(control);
    }
    if (pages == nullptr || pages->PageCount() == 0) {
        throw ScriptError(form.Name() + " shows no page");
    }
    std::vector<std::string> sideBySide;
    int top = 0;
    const auto endLine = [&] {
        if (!sideBySide.empty()) transcript.Line(Join(sideBySide, '|'));
        sideBySide.clear();
    };
    for (const platform::PageText& text : pages->Source()->MakePage(pages->Page()).texts) {
        if (text.box.top != top) endLine();
        top = text.box.top;
        sideBySide.push_back(text.text);
    }
    endLine();
}

void PrintWindow(const Form& form, Transcript& transcript) {
    transcript.Line("window " + form.Name());
    transcript.Line("caption \"" + form.Caption() + "\"");
    transcript.Line("size " + Place(form.Width(), form.Height()));
    transcript.Line("notice \"" + form.Notice() + "\"");
    for (const Control* control : form.Controls()) transcript.Line(ControlLine(form, *control));
    const Grid* grid = FindGrid(form);
    if (grid == nullptr) return;
    transcript.Line("cell " + Place(grid->Row(), grid->Col()) + " to " +
                    std::to_string(grid->SelectionEnd()));
    transcript.Line(grid->IsEditing() ? "edit \"" + grid->EditText() + "\"" : "edit none");
}

}  // namespace kelvane::drive
