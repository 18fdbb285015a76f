#include "tests/desktop/sample_forms.h"

#include "controls/grid_actions.h"
#include "controls/place.h"
#include "platform/utf8.h"
#include "tests/desktop/person.h"

namespace kelvane::test {

using controls::Alignment;
using platform::Key;

namespace {

struct SampleColumn {
    const char* header;
    int width;
    Alignment alignment;
};

constexpr SampleColumn kColumns[] = {
    {"", 0, Alignment::Left},
    {"日期", 1300, Alignment::Left},
    {"责任中心", 1200, Alignment::Left},
    {"项目编号", 1200, Alignment::Left},
    {"项目名称", 2500, Alignment::Left},
    {"标段 (关键字)", 1500, Alignment::Left},
    {"", 0, Alignment::Left},
    {"要素", 1500, Alignment::Left},
    {"摘要", 1500, Alignment::Left},
    {"未结转期初", 1500, Alignment::Right},
};

constexpr int kStripHeight = 525;

}  // namespace

ListForm::ListForm(int rows, bool suite) : Form("frmList") {
    SetCaption("项目期初");
    SetIconPicture(106);
    SetMinSize(9195, 6190);
    SetSize(12000, 7500);
    strip.SetBackColor(controls::Rgb(255, 255, 255));
    title.SetCaption("项目期初余额");
    title.SetTitle(true);
    PlaceControl(title, 0, 0, 3000, 375);
    toolbar.SetHeight(630);
    FillToolbar();
    style.SetHeight(720);
    style.SetToolbar(toolbar);
    style.SetSpecialEffect(true);
    style.SetDisplayStyle(suite ? 1 : 2);
    style.SetVisible(suite);
    toolbar.SetVisible(!suite);
    FillGrid(rows);
    detail.SetPicture(108);
    detail.SetVisible(false);
    detail.Click = [this] { events.emplace_back("detail"); };
    controls::AddGridActions(*this, grid, []() -> platform::Windows& { return Windows(); });
    SetFocus(grid);
    grid.SetRow(rows > 0 ? 1 : 0);
    grid.SetCol(1);
    events.clear();
}

void ListForm::FillToolbar() {
    struct Command {
        const char* key;
        const char* caption;
        int picture;
    };
    static constexpr Command kCommands[] = {
        {"Print", "打印", 100},
        {"PreView", "预览", 101},
        {"DataOut", "输出", 102},
        {"", "", 0},
        {"Add", "增加", 103},
        {"Delete", "删除", 104},
        {"", "", 0},
        {"Find", "定位", 105},
        {"", "", 0},
        {"Help", "帮助", 110},
        {"Exit", "退出", 107},
    };
    for (const Command& command : kCommands) {
        if (command.picture == 0) {
            toolbar.AddSeparator();
            continue;
        }
        toolbar.AddButton(command.key, command.caption);
        toolbar.AddImage(command.key, command.picture);
        toolbar.Button(command.key)->SetImage(command.key);
    }
    toolbar.ButtonClick = [this](controls::ToolbarButton& button) {
        events.push_back("click " + button.Key());
        if (button.Key() == "Exit") Unload();
    };
    style.ButtonClick = [this](const std::string& key, const std::string&) { toolbar.Click(key); };
}

void ListForm::FillGrid(int rows) {
    grid.SetCols(static_cast<int>(std::size(kColumns)));
    grid.SetRows(1);
    grid.SetFixedRows(1);
    grid.SetFixedCols(1);
    grid.SetFixedColor(controls::Rgb(247, 237, 236));
    grid.SetLockedColor(controls::Rgb(205, 208, 215));
    grid.SetRowHeight(0, 400);
    for (int col = 0; col < grid.Cols(); ++col) {
        const SampleColumn& column = kColumns[col];
        grid.SetText(0, col, column.header);
        grid.SetColumnWidth(col, column.width);
        grid.SetColumnAlignment(col, column.alignment);
        grid.SetFixedRowAlignment(col, Alignment::Center);
    }
    grid.SetColumnReference(2, true);
    grid.SetColumnList(7, true);
    grid.SetColumnInput(8, {controls::InputKind::Text, 8, 0, false});
    grid.SetColumnInput(9, {controls::InputKind::Number, 15, 2, true});
    for (int row = 1; row <= rows; ++row) {
        const std::string number = std::to_string(row);
        grid.AddItem("\t2004-05-31\t0101\tXM" + number + "\t滨江花园二期住宅楼工程\tA" + number +
                     "\t\t人工费\t期初\t" + number + ",234.50");
        for (const int col : {4, 5, 6}) grid.SetCellColor(row, col, grid.LockedColor());
    }
    grid.CellReference = [this](std::string& value, int row, int col) {
        events.push_back("reference " + std::to_string(row) + " " + std::to_string(col));
        value = "0202";
    };
    grid.ComboDropDown = [](int, int, controls::GridDropList& list) {
        for (const char* item : {"材料费", "机械费", "人工费"}) list.AddItem(item);
    };
    grid.CellValidate = [this](std::string& text, controls::GridAnswer& answer, int, int) {
        if (text == "bad") answer = controls::GridAnswer::Refuse;
        events.push_back("validate " + text);
    };
    grid.RowValidate = [this](controls::GridAnswer&, int row, int&) {
        events.push_back("leave " + std::to_string(row));
    };
    grid.EnterCell = [this] {
        detail.SetVisible(grid.Col() == 4);
        if (grid.Col() != 4) return;
        detail.SetLeft(grid.CellLeft(4) + grid.ColumnWidth(4) - 301);
        detail.SetTop(grid.Top() + grid.CellTop(grid.Row()) + 1);
        detail.SetWidth(300);
        detail.SetHeight(grid.RowHeight(grid.Row()) - 1);
    };
    grid.ViewChange = [this] { detail.SetVisible(false); };
}

void ListForm::Form_Resize() {
    const int bar = style.Visible() ? style.Height() : toolbar.Height();
    PlaceControl(toolbar, 0, 0, ScaleWidth(), toolbar.Height());
    PlaceControl(style, 0, 0, ScaleWidth(), style.Height());
    PlaceControl(strip, 0, bar, ScaleWidth(), kStripHeight);
    title.SetLeft((ScaleWidth() - title.Width()) / 2);
    title.SetTop(bar + (kStripHeight - title.Height()) / 2);
    PlaceControl(grid, 0, bar + kStripHeight, ScaleWidth(), ScaleHeight() - bar - kStripHeight);
}

void ListForm::Form_KeyDown(Key& key, int /*shift*/) {
    if (!guardColumn3 || grid.Col() != 3) return;
    if (key != Key::F2 && key != Key::Space) key = Key::None;
}

void ListForm::Form_KeyPress(char32_t& character) {
    if (character != refusedCharacter) return;
    std::string text;
    platform::AppendCharacter(text, character);
    events.push_back("refused " + text);
    character = 0;
}

void ListForm::Form_KeyUp(Key& key, int shift) {
    if (shift == platform::kCtrl && key == Key::P) events.emplace_back("ctrl+p");
    if (key == Key::F3) events.emplace_back("f3");
}

FieldForm::FieldForm() : Form("frmFields") {
    SetCaption("定位");
    SetResizable(false);
    SetSize(5000, 2600);
    codeLabel.SetCaption("项目编号：");
    PlaceControl(codeLabel, 200, 200, 1100, 330);
    PlaceControl(code, 1400, 200, 2700, 330);
    PlaceControl(reference, 4130, 200, 330, 330);
    reference.SetPicture(108);
    keyLabel.SetCaption("标段：");
    PlaceControl(keyLabel, 200, 700, 1100, 330);
    PlaceControl(key, 1400, 700, 3060, 330);
    PlaceControl(ok, 1700, 1400, 1300, 400);
    ok.SetCaption("确定");
    ok.SetDefault(true);
    PlaceControl(cancel, 3160, 1400, 1300, 400);
    cancel.SetCaption("取消");
    cancel.SetCancel(true);
    reference.Click = [this] { events.emplace_back("reference"); };
    key.DropDown = [this] {
        events.emplace_back("drop");
        key.Clear();
        key.AddItem("一标段");
        key.AddItem("二标段");
    };
    ok.Click = [this] {
        events.push_back("ok " + code.Text() + " " + key.Text());
        Unload();
    };
    cancel.Click = [this] {
        events.emplace_back("cancel");
        Unload();
    };
    SetFocus(code);
}

}  // namespace kelvane::test
