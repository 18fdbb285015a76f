// The operator's own layout of the list windows, from one opening to the next.
#include "controls/key_lines.h"
#include "tests/support/remembered_settings.h"
#include "tests/unit/ui/entry_list_fixture.h"
#include "ui/detail_editor/detail_editor.h"

namespace kelvane::ui {
namespace {

class OwnLayoutTest : public EntryListTest {
protected:
    OwnLayoutTest() { services.userSettings = &settings; }
    // The list is left before its settings go.
    ~OwnLayoutTest() override {
        Form().Unload();
        List().SetZoom(100);
        Form().SetSize(14400, 8700);
    }

    void OpenAgain() {
        Form().Unload();
        Open();
    }

    support::RememberedSettings settings;
};

TEST_F(OwnLayoutTest, TheListOpensAsItWasLeft) {
    Open();
    EXPECT_EQ(List().ColumnWidth(kDigestColumn), 1500);
    List().ResizeColumn(kDigestColumn, 2200);
    List().SetZoom(110);
    OpenAgain();
    EXPECT_EQ(settings.texts["frmPeriodItem"], "zoom 110 column 8 2200");
    EXPECT_EQ(List().ColumnWidth(kDigestColumn), 2200);
    EXPECT_EQ(List().ColumnWidth(kDateColumn), 1300);
    EXPECT_EQ(List().ColumnWidth(kKey2Column), 0);
    EXPECT_EQ(List().Zoom(), 110);
    List().RestoreColumnWidths();
    OpenAgain();
    EXPECT_EQ(List().ColumnWidth(kDigestColumn), 1500);
    EXPECT_EQ(settings.texts["frmPeriodItem"], "zoom 110");
}

TEST_F(OwnLayoutTest, TheLayoutThatPrintingComparesWithIsTheFirstOne) {
    Open();
    const std::string first = Form().mGridLayoutText;
    EXPECT_EQ(first, List().FormatText());
    List().ResizeColumn(kDigestColumn, 2200);
    OpenAgain();
    EXPECT_EQ(Form().mGridLayoutText, first);
    EXPECT_NE(List().FormatText(), first);
    List().SetZoom(150);
    List().RestoreColumnWidths();
    EXPECT_EQ(List().FormatText(), first);
}

TEST_F(OwnLayoutTest, EquipmentAndInventoryLinesHaveTheirOwnWidths) {
    frmQCEdit& editor = GetDetailEditorForm();
    const auto open = [&](entries::DetailKind kind, auto act) {
        windows.acts.emplace_back([&editor, act](controls::Form& /*shown*/) { act(editor.Grid1); });
        editor.Edit({.kind = kind, .readOnly = true, .entry = {}, .centerCode = {}, .lines = {}});
    };
    open(entries::DetailKind::Inventory, [](controls::Grid& grid) { grid.ResizeColumn(1, 3000); });
    open(entries::DetailKind::Equipment, [](controls::Grid& grid) {
        EXPECT_EQ(grid.ColumnWidth(1), 1200);
        grid.ResizeColumn(1, 1700);
    });
    open(entries::DetailKind::Inventory,
         [](controls::Grid& grid) { EXPECT_EQ(grid.ColumnWidth(1), 3000); });
    EXPECT_EQ(settings.texts["frmQCEdit equipment"], "column 1 1700");
}

TEST_F(OwnLayoutTest, WithoutTheServiceEveryOpeningIsTheFirst) {
    services.userSettings = nullptr;
    Open();
    List().ResizeColumn(kDigestColumn, 2200);
    OpenAgain();
    EXPECT_EQ(List().ColumnWidth(kDigestColumn), 1500);
}

TEST_F(OwnLayoutTest, EveryButtonWithAKeyNamesIt) {
    Open();
    std::string keys;
    for (const controls::KeyLine& line : controls::KeyLinesOf(Form())) {
        keys += line.keys + " " + line.does + "|";
    }
    EXPECT_TRUE(
        keys.starts_with("Ctrl+P 打印|Ctrl+I 增加|Ctrl+D 删除|F3 定位|F1 帮助|Ctrl+F4 退出|"))
        << keys;
    keys.clear();
    for (const controls::KeyLine& line : controls::KeyLinesOf(GetDetailEditorForm())) {
        keys += line.keys + " " + line.does + "|";
    }
    EXPECT_TRUE(keys.starts_with("Ctrl+P 打印|F5 增加|F6 保存|Ctrl+F4 退出|")) << keys;
}

}  // namespace
}  // namespace kelvane::ui
