#include "adapters/drive/window_commands.h"

#include <array>

#include "adapters/drive/key_flow.h"
#include "adapters/drive/toolbars.h"
#include "adapters/drive/window_print.h"
#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/edit_box.h"
#include "controls/grid.h"
#include "platform/key_names.h"

namespace kelvane::drive {

using controls::ComboBox;
using controls::Control;
using controls::EditBox;
using controls::Form;
using controls::Grid;

namespace {

using Arguments = std::vector<std::string>;

Grid& NeedGrid(const Form& form) {
    Grid* grid = FindGrid(form);
    if (grid == nullptr) throw ScriptError(form.Name() + " has no grid");
    return *grid;
}

template <typename T>
T& NeedControl(const Form& form, const std::string& name, const std::string& kind) {
    auto* control = dynamic_cast<T*>(form.Find(name));
    if (control == nullptr) throw ScriptError(form.Name() + " has no " + kind + " " + name);
    return *control;
}

bool CanUse(const Control& control) {
    return control.Visible() && control.Enabled();
}

void NoteRefusal(const Grid& grid, Transcript& transcript) {
    transcript.Line("refused " + std::to_string(grid.Row()) + " " + std::to_string(grid.Col()));
}

// A row by its number or, as "entry=ID", by its data value: the first one that carries it.
int RowNamed(const Grid& grid, const std::string& name) {
    constexpr std::string_view kEntry = "entry=";
    if (!name.starts_with(kEntry)) return ParseNumber(name);
    const int entry = ParseNumber(std::string_view(name).substr(kEntry.size()));
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
        if (grid.RowData(row) == entry) return row;
    }
    throw ScriptError("no row of entry " + std::to_string(entry));
}

void Go(const Arguments& arguments, Form& form, const CommandSurroundings& /*around*/) {
    Grid& grid = NeedGrid(form);
    const int row = RowNamed(grid, arguments[0]);
    const int col = ParseNumber(arguments[1]);
    if (row < grid.FixedRows() || row >= grid.Rows() || col < grid.FixedCols() ||
        col >= grid.Cols()) {
        throw ScriptError("no cell " + arguments[0] + " " + arguments[1] + " to go to");
    }
    grid.MoveTo(row, col);
}

void Edit(const Arguments& arguments, Form& form, const CommandSurroundings& /*around*/) {
    Grid& grid = NeedGrid(form);
    if (!grid.BeginEdit()) return;
    grid.ReplaceEditText(arguments[0]);
    grid.FinishEdit();
}

void Type(const Arguments& arguments, Form& form, const CommandSurroundings& /*around*/) {
    for (const platform::KeyStroke& stroke : platform::StrokesOf(arguments[0])) {
        if (form.IsLoaded()) PressKey(form, stroke);
    }
}

void PressNamedKey(const Arguments& arguments, Form& form, const CommandSurroundings& around) {
    const auto stroke = platform::FindKey(arguments[0]);
    if (!stroke) throw ScriptError("no key \"" + arguments[0] + "\"");
    // The help key belongs to the windows, which know the help file.
    if (stroke->key == platform::Key::F1 && stroke->shift == 0) {
        around.sendKeys("{f1}");
    } else {
        PressKey(form, *stroke);
    }
}

void PressReference(const Arguments& /*arguments*/, Form& form, const CommandSurroundings& around) {
    Grid& grid = NeedGrid(form);
    if (!grid.PressReference()) NoteRefusal(grid, around.transcript);
}

std::optional<std::string> ChooseFrom(const std::vector<std::string>& items,
                                      const CommandSurroundings& around, std::size_t& index) {
    around.transcript.Line("list:");
    for (const std::string& item : items) around.transcript.Line(item);
    const auto chosen = around.choose(items.size());
    if (!chosen) return std::nullopt;
    index = *chosen;
    return items[index];
}

void Drop(const Arguments& arguments, Form& form, const CommandSurroundings& around) {
    std::size_t index = 0;
    if (!arguments.empty()) {
        auto& combo = NeedControl<ComboBox>(form, arguments[0], "drop-down list");
        if (!CanUse(combo)) return;
        combo.Open();
        const std::vector<std::string> items = combo.Items();
        if (ChooseFrom(items, around, index)) combo.SetListIndex(static_cast<int>(index));
        return;
    }
    Grid& grid = NeedGrid(form);
    if (grid.Row() < grid.FixedRows() || !grid.HasList(grid.Col())) {
        NoteRefusal(grid, around.transcript);
        return;
    }
    const auto chosen = ChooseFrom(grid.OpenList(), around, index);
    if (chosen) grid.ChooseListItem(*chosen);
}

void Click(const Arguments& arguments, Form& form, const CommandSurroundings& /*around*/) {
    ShownToolbar(form).Click(arguments[0]);
}

void PressButton(const Arguments& arguments, Form& form, const CommandSurroundings& /*around*/) {
    NeedControl<controls::Button>(form, arguments[0], "button").Press();
}

void SetField(const Arguments& arguments, Form& form, const CommandSurroundings& /*around*/) {
    auto* edit = dynamic_cast<EditBox*>(form.Find(arguments[0]));
    if (edit != nullptr) {
        if (CanUse(*edit)) edit->SetText(arguments[1]);
        return;
    }
    auto& combo = NeedControl<ComboBox>(form, arguments[0], "field");
    if (CanUse(combo)) combo.SetText(arguments[1]);
}

void Resize(const Arguments& arguments, Form& form, const CommandSurroundings& /*around*/) {
    Grid& grid = NeedGrid(form);
    const int col = ParseNumber(arguments[0]);
    if (col >= grid.Cols()) throw ScriptError("no column " + arguments[0]);
    grid.ResizeColumn(col, ParseNumber(arguments[1]));
}

void ClickTitle(const Arguments& arguments, Form& form, const CommandSurroundings& /*around*/) {
    const Grid& grid = NeedGrid(form);
    const int col = ParseNumber(arguments[0]);
    if (col >= grid.Cols()) throw ScriptError("no column " + arguments[0]);
    if (grid.HeaderClick) form.RunEvent("HeaderClick", [&] { grid.HeaderClick(col); });
}

void UseMenu(const Arguments& arguments, Form& form, const CommandSurroundings& around) {
    if (arguments.empty()) {
        PrintMenu(form, around.transcript);
        return;
    }
    for (const controls::WindowAction* action : form.MenuActions()) {
        if (action == nullptr || action->caption != arguments[0]) continue;
        form.Run(*action);
        return;
    }
    throw ScriptError("the menu has no \"" + arguments[0] + "\"");
}

// "\t" and "\n" in the text stand for a tab and a line's end.
void SetClipboard(const Arguments& arguments, Form& /*form*/, const CommandSurroundings& around) {
    std::string text;
    const std::string& written = arguments[0];
    for (std::size_t at = 0; at < written.size(); ++at) {
        const char next = at + 1 < written.size() ? written[at + 1] : ' ';
        const bool escaped = written[at] == '\\' && (next == 't' || next == 'n');
        text += !escaped ? written[at] : next == 't' ? '\t' : '\n';
        if (escaped) ++at;
    }
    around.setClipboard(text);
}

void CloseWindow(const Arguments& /*arguments*/, Form& form,
                 const CommandSurroundings& /*around*/) {
    form.Unload(controls::UnloadMode::CloseBox);
}

void Print(const Arguments& arguments, Form& form, const CommandSurroundings& around) {
    if (arguments[0] == "grid") {
        PrintGrid(NeedGrid(form), around.transcript);
    } else if (arguments[0] == "toolbar") {
        PrintToolbar(form, around.transcript);
    } else if (arguments[0] == "page") {
        PrintPage(form, around.transcript);
    } else if (arguments[0] == "clipboard") {
        PrintText(around.clipboard(), around.transcript);
    } else if (arguments[0] == "line") {
        PrintLine(form, around.transcript);
    } else if (arguments[0] == "window") {
        PrintWindow(form, around.transcript);
    } else {
        throw ScriptError("cannot print \"" + arguments[0] + "\"");
    }
}

struct WindowCommand {
    Verb verb;
    void (*run)(const Arguments&, Form&, const CommandSurroundings&);
};

constexpr std::array kWindowCommands{
    WindowCommand{Verb::Go, Go},
    WindowCommand{Verb::Edit, Edit},
    WindowCommand{Verb::Type, Type},
    WindowCommand{Verb::Key, PressNamedKey},
    WindowCommand{Verb::Ref, PressReference},
    WindowCommand{Verb::Drop, Drop},
    WindowCommand{Verb::Clipboard, SetClipboard},
    WindowCommand{Verb::Click, Click},
    WindowCommand{Verb::Press, PressButton},
    WindowCommand{Verb::Set, SetField},
    WindowCommand{Verb::Resize, Resize},
    WindowCommand{Verb::Title, ClickTitle},
    WindowCommand{Verb::Menu, UseMenu},
    WindowCommand{Verb::Close, CloseWindow},
    WindowCommand{Verb::Print, Print},
};

}  // namespace

void RunInWindow(const Command& command, Form& form, const CommandSurroundings& surroundings) {
    for (const WindowCommand& each : kWindowCommands) {
        if (each.verb == command.verb) return each.run(command.arguments, form, surroundings);
    }
    throw ScriptError("not while a window is open");
}

}  // namespace kelvane::drive
