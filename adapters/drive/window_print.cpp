#include "adapters/drive/window_print.h"

#include <string>
#include <utility>

#include "adapters/drive/script.h"
#include "adapters/drive/toolbars.h"
#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/edit_box.h"
#include "controls/label.h"
#include "controls/page_view.h"
#include "controls/picture.h"
#include "platform/key_names.h"

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
    bool readOnly = false;
};

std::string PagesText(const controls::PageView& pages) {
    const std::string zoom = pages.Zoom() == controls::PageView::kWholePage
                                 ? "whole page"
                                 : std::to_string(pages.Zoom()) + " %";
    return "page " + std::to_string(pages.Page()) + " of " + std::to_string(pages.PageCount()) +
           ", " + zoom;
}

class Describer : public controls::ControlVisitor {
public:
    Description description{"control", {}};

    void Visit(controls::Label& label) override { Say("label", label.Caption()); }
    void Visit(controls::EditBox& edit) override { Say("edit", edit.Text()); }
    void Visit(controls::ComboBox& combo) override { Say("combo", combo.Text()); }
    void Visit(controls::Button& button) override { Say("button", button.Caption()); }
    void Visit(controls::PageView& pages) override { Say("pages", PagesText(pages)); }
    void Visit(Grid& grid) override {
        description.kind = "grid";
        description.readOnly = grid.ReadOnly();
    }
    void Visit(controls::Toolbar& /*toolbar*/) override { description.kind = "toolbar"; }
    void Visit(controls::ToolbarStyleControl& /*toolbar*/) override {
        description.kind = "toolbar-style";
    }
    void Visit(controls::Picture& /*picture*/) override { description.kind = "picture"; }

private:
    void Say(std::string_view kind, std::string text) {
        description = {kind, std::move(text), true};
    }
};

std::string ControlLine(const Form& form, Control& control) {
    Describer describer;
    control.Accept(describer);
    const Description& description = describer.description;
    std::string line = "control " + control.Name() + " " + std::string(description.kind);
    line += control.Visible() ? " visible" : " hidden";
    line += control.Enabled() ? " enabled" : " disabled";
    if (description.readOnly) line += " read-only";
    if (form.ActiveControl() == &control) line += " focus";
    if (description.hasText) line += " \"" + description.text + "\"";
    return line;
}

std::string Place(int row, int column) {
    return std::to_string(row) + " " + std::to_string(column);
}

}  // namespace

Grid* FindGrid(const Form& form) {
    if (auto* active = dynamic_cast<Grid*>(form.ActiveControl())) return active;
    for (Control* control : form.Controls()) {
        if (auto* grid = dynamic_cast<Grid*>(control)) return grid;
    }
    return nullptr;
}

void PrintGrid(const Grid& grid, Transcript& transcript) {
    std::vector<std::string> cells(static_cast<std::size_t>(grid.Cols()));
    for (int row = 0; row < grid.Rows(); ++row) {
        for (int col = 0; col < grid.Cols(); ++col) {
            const std::string fault = grid.HasFault(row, col) ? "!" : "";
            const std::string lock = grid.IsLocked(row, col) ? "#" : "";
            cells[static_cast<std::size_t>(col)] = fault + lock + grid.Text(row, col);
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

void PrintMenu(Form& form, Transcript& transcript) {
    for (const controls::WindowAction* action : form.MenuActions()) {
        if (action == nullptr) {
            transcript.Line("-");
            continue;
        }
        const std::string key = platform::NameOfKey(action->stroke);
        transcript.Line((form.CanRun(*action) ? "" : "#") + action->caption + "|" + key);
    }
}

void PrintText(std::string_view text, Transcript& transcript) {
    for (bool more = true; more;) {
        const std::size_t end = text.find('\n');
        std::string line;
        for (const char character : text.substr(0, end)) {
            if (character == '\t') {
                line += "\\t";
            } else {
                line += character;
            }
        }
        transcript.Line(line);
        more = end != std::string_view::npos;
        if (more) text.remove_prefix(end + 1);
    }
}

void PrintLine(const Form& form, Transcript& transcript) {
    transcript.Line("hint \"" + form.Hint() + "\"");
    transcript.Line("figures \"" + form.Figures() + "\"");
    const Grid* grid = FindGrid(form);
    if (grid == nullptr || grid->RefusedCell() == Grid::Place{}) return;
    const auto [row, col] = grid->RefusedCell();
    transcript.Line(col == Grid::kWholeRow ? "refused " + std::to_string(row)
                                           : "refused " + Place(row, col));
}

void PrintWindow(const Form& form, Transcript& transcript) {
    transcript.Line("window " + form.Name());
    transcript.Line("caption \"" + form.Caption() + "\"");
    transcript.Line("size " + Place(form.Width(), form.Height()));
    transcript.Line("notice \"" + form.Notice() + "\"");
    for (Control* control : form.Controls()) transcript.Line(ControlLine(form, *control));
    const Grid* grid = FindGrid(form);
    if (grid == nullptr) return;
    transcript.Line("cell " + Place(grid->Row(), grid->Col()) + " to " +
                    std::to_string(grid->SelectionEnd()));
    if (grid->FoundRow() > 0) {
        transcript.Line("found " + Place(grid->FoundRow(), grid->FoundCol()));
    }
    if (grid->SelectedRows() > 0) {
        const controls::GridRange range = grid->Selected();
        transcript.Line("selected " + Place(range.top, range.left) + " to " +
                        Place(range.bottom, range.right));
    }
    transcript.Line(grid->IsEditing() ? "edit \"" + grid->EditText() + "\"" : "edit none");
}

}  // namespace kelvane::drive
