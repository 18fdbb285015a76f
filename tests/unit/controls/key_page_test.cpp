// The page of keys names what a window's keys do, and the grid does what is said of its keys.
#include "controls/key_page.h"

#include <gmock/gmock.h>

#include <string_view>
#include <vector>

#include "controls/grid_size_actions.h"
#include "controls/key_lines.h"
#include "controls/toolbar.h"
#include "platform/key_names.h"
#include "tests/unit/controls/grid_fixture.h"

namespace kelvane::controls {
namespace {

using platform::kCtrl;
using platform::Key;
using platform::KeyStroke;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

std::vector<std::string> LinesOf(const Form& form) {
    std::vector<std::string> lines;
    for (const KeyLine& line : KeyLinesOf(form)) lines.push_back(line.keys + " " + line.does);
    return lines;
}

class WindowOfKeys : public Form {
public:
    WindowOfKeys() : Form("frmOfKeys") { SetCaption("样本"); }
    std::vector<KeyLine> OwnKeys() const override { return {{"F2", "自己的"}}; }
};

using KeyPageTest = GridTest;

TEST_F(KeyPageTest, TheGridUsesEveryKeyThatIsNamed) {
    for (const GridKeys& each : KeysOfGrid()) {
        std::string_view rest = each.keys;
        while (!rest.empty()) {
            const std::string name(rest.substr(0, rest.find(' ')));
            rest.remove_prefix(std::min(rest.size(), name.size() + 1));
            const auto stroke = platform::FindKey(name);
            ASSERT_TRUE(stroke) << name;
            EXPECT_EQ(platform::NameOfKey(*stroke), name);
            At(2, 3);
            if (each.onlyEditing && name == "Esc") grid.BeginEdit();
            const bool used = grid.NavigationKey(stroke->key, stroke->shift) ||
                              grid.KeyDown(stroke->key, stroke->shift) ||
                              (stroke->character != 0 && grid.KeyPress(stroke->character));
            EXPECT_TRUE(used) << name;
            EXPECT_FALSE(Notes().empty()) << name;
            if (grid.IsEditing()) grid.CancelEdit();
        }
    }
}

TEST(KeyLines, StandInTheOrderOfToolbarActionsOwnKeysButtonsAndGrid) {
    WindowOfKeys form;
    Grid grid(form, "Grid");
    Button ok(form, "cmdOK");
    Toolbar toolbar(form, "Toolbar1");
    ok.SetCaption("确定");
    ok.SetDefault(true);
    toolbar.AddButton("Print", "打印");
    toolbar.AddButton("Find", "定位");
    toolbar.AddButton("Delete", "删除");
    toolbar.Button("Print")->SetStroke({Key::P, kCtrl});
    toolbar.Button("Delete")->SetStroke({Key::D, kCtrl});
    toolbar.Button("Delete")->SetVisible(false);
    form.AddAction({.stroke = {Key::Quote, kCtrl}, .caption = "重复", .run = [] {}});
    form.AddAction({.stroke = {Key::P, kCtrl}, .caption = "打印", .inMenu = true, .run = [] {}});
    form.AddAction({.caption = "只在菜单中", .inMenu = true, .run = [] {}});
    form.AddAction({.stroke = {Key::Plus, kCtrl}, .run = [] {}});
    grid.SetReadOnly(true);
    EXPECT_THAT(
        LinesOf(form),
        ElementsAre("Ctrl+P 打印", "Ctrl+' 重复", "F2 自己的", "Enter 确定",
                    "Up、Down、Left、Right 移到相邻的单元格", "PageUp、PageDown 上翻、下翻一页",
                    "Home、End 到本行第一个、最后一个单元格",
                    "Ctrl+Home、Ctrl+End 到第一行、最后一行", "Tab、Enter 到下一个可录入的单元格",
                    "Shift+Tab 到上一个可录入的单元格", "Shift+F10、Menu 打开菜单", "F1 帮助",
                    "Alt+F4 关闭窗口"));
    form.AddAction({.stroke = {Key::Escape}, .caption = "恢复", .run = [] {}});
    grid.SetReadOnly(false);
    EXPECT_THAT(LinesOf(form), Contains("Esc 恢复；放弃正在录入的内容"));
    EXPECT_THAT(LinesOf(form), Contains("Delete 清除单元格的内容"));
    grid.SetTakesFocus(false);
    EXPECT_THAT(LinesOf(form), Not(Contains("Tab、Enter 到下一个可录入的单元格")));
}

TEST(KeyPage, ShowsTheLinesAndIsClosedByItsKeys) {
    WindowOfKeys form;
    for (const Key closing : {Key::Enter, Key::None}) {
        KeyPage page(form);
        EXPECT_EQ(page.Caption(), "按键 - 样本");
        EXPECT_EQ(page.GridKeys.RowText(0), "按键\t作用");
        EXPECT_EQ(page.GridKeys.RowText(1), "F2\t自己的");
        EXPECT_EQ(page.GridKeys.Rows(), 4);
        page.Load();
        EXPECT_EQ(page.ActiveControl(), &page.GridKeys);
        page.KeyDown(Key::Down, 0);
        EXPECT_EQ(page.GridKeys.Row(), 2);
        EXPECT_TRUE(page.KeyDown(Key::F1, 0));
        EXPECT_TRUE(page.IsLoaded());
        if (closing == Key::None) {
            page.cmdClose.Press();
        } else {
            page.KeyDown(closing, 0);
        }
        EXPECT_FALSE(page.IsLoaded());
    }
}

}  // namespace
}  // namespace kelvane::controls
