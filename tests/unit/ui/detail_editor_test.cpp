#include "ui/detail_editor/detail_editor.h"

#include <utility>

#include "tests/support/memory_record_set.h"
#include "tests/unit/ui/entry_list_fixture.h"

namespace kelvane::ui {
namespace {

using controls::Alignment;
using controls::Grid;
using controls::GridAnswer;
using controls::InputKind;
using testing::ElementsAre;
using testing::IsEmpty;

// Acts in the editor of entry 2, which is kept in two inventory lines.
class DetailEditorTest : public EntryListTest {
protected:
    DetailEditorTest() {
        for (const platform::FixedText& statement : kItems) Run(statement);
        Open();
        EXPECT_TRUE(Go(2, kAmountColumn));
    }

    static inline const std::vector<platform::FixedText> kItems{
        "insert into computationunit values('01','吨')",
        "insert into inventory values('M01','钢筋','HRB335',10,'01','01')",
        "insert into inventory values('M02','水泥','42.5',5,'01','01')",
        "insert into inventory values('M03','砂','中砂',20,null,'0102')",
        "insert into pm_equipment values('J01','吊车','QY25',8,1)",
    };

    // Opens the editor by the amount's reference button; `act` is done in it. Questions at its end
    // are answered with Yes.
    void InEditor(const std::function<void(frmQCEdit&)>& act) {
        windows.answers.assign(1, platform::MessageAnswer::Yes);
        windows.acts.emplace_back(
            [act](controls::Form& form) { act(dynamic_cast<frmQCEdit&>(form)); });
        ASSERT_TRUE(List().PressReference());
        ASSERT_THAT(windows.acts, IsEmpty());
    }
    // The same without the list's amount cell: the editor as the entry list's code shows it.
    void InEquipmentEditor(const std::function<void(frmQCEdit&)>& act) {
        windows.answers.assign(1, platform::MessageAnswer::Yes);
        windows.acts.emplace_back(
            [act](controls::Form& form) { act(dynamic_cast<frmQCEdit&>(form)); });
        Form().EditDetails({.kind = entries::DetailKind::Equipment,
                            .readOnly = false,
                            .entry = {2, "P02", "材料费"},
                            .centerCode = "D01",
                            .lines = {}});
    }
    static GridAnswer Edit(frmQCEdit& editor, int row, int col, std::string_view text) {
        EXPECT_TRUE(editor.Grid1.MoveTo(row, col));
        EXPECT_TRUE(editor.Grid1.BeginEdit());
        editor.Grid1.ReplaceEditText(text);
        return editor.Grid1.FinishEdit();
    }
    static std::vector<std::string> Captions(const frmQCEdit& editor) {
        std::vector<std::string> captions;
        for (const controls::ToolbarButton& button : editor.Toolbar1.Buttons()) {
            captions.push_back(button.Key() + " " + button.Caption() + " " + button.Image());
        }
        return captions;
    }
};

TEST_F(DetailEditorTest, TheColumnsOfInventoryLines) {
    InEditor([](frmQCEdit& editor) {
        const Grid& grid = editor.Grid1;
        EXPECT_EQ(grid.RowText(0), "存货编码\t存货名称\t规格\t单位\t单价\t数量\t余额");
        EXPECT_EQ(grid.RowText(1), "M01\t钢筋\tHRB335\t吨\t10.00\t20.00\t200.00");
        const Alignment alignments[] = {Alignment::Left,   Alignment::Left,  Alignment::Left,
                                        Alignment::Center, Alignment::Right, Alignment::Right,
                                        Alignment::Right};
        for (int col = 0; col < 7; ++col) {
            EXPECT_EQ(grid.ColumnAlignment(col), alignments[col]) << col;
            EXPECT_EQ(grid.CellAlignment(0, col), Alignment::Center) << col;
            EXPECT_EQ(grid.ColumnWidth(col), 1200) << col;
            EXPECT_EQ(grid.IsLocked(1, col), col == 2 || col == 3 || col == 6) << col;
            EXPECT_EQ(grid.HasReference(col), col < 2) << col;
        }
        EXPECT_EQ(grid.CellColor(1, 3), controls::Rgb(205, 208, 215));
        EXPECT_EQ(grid.Input(0).maxLength, 60);
        EXPECT_EQ(grid.Input(1).maxLength, 120);
        for (const int col : {4, 5}) {
            EXPECT_EQ(grid.Input(col).kind, InputKind::Number);
            EXPECT_EQ(grid.Input(col).maxLength, 15);
            EXPECT_EQ(grid.Input(col).decimals, 2);
            EXPECT_TRUE(grid.Input(col).grouping);
        }
        EXPECT_EQ(grid.FixedCols(), 0);
        EXPECT_EQ(grid.FixedRows(), 1);
    });
}

TEST_F(DetailEditorTest, TheColumnsChangeWithTheKindOfLines) {
    InEditor([](frmQCEdit&) {});
    InEquipmentEditor([](frmQCEdit& editor) {
        const Grid& grid = editor.Grid1;
        EXPECT_EQ(grid.RowText(0), "设备编码\t设备名称\t规格\t台班单价\t数量\t余额");
        // The entry's inventory lines are no equipment.
        EXPECT_EQ(grid.Rows(), 1);
        EXPECT_EQ(grid.Row(), 0);
        for (int col = 0; col < 6; ++col) {
            EXPECT_EQ(grid.Input(col).kind,
                      col == 3 || col == 4 ? InputKind::Number : InputKind::Text)
                << col;
        }
        EXPECT_EQ(grid.ColumnAlignment(3), Alignment::Right);
        EXPECT_EQ(editor.lblTitle.Caption(), "项目期初设备明细");
        editor.AddDetailRow();
        for (int col = 0; col < 6; ++col) {
            EXPECT_EQ(grid.IsLocked(1, col), col == 2 || col == 5) << col;
        }
        EXPECT_EQ(Edit(editor, 1, 0, "J01"), GridAnswer::Accept);
        EXPECT_EQ(grid.RowText(1), "J01\t吊车\tQY25\t8.00\t\t0.00");
    });
}

TEST_F(DetailEditorTest, TheToolbarAndTheLabels) {
    InEditor([](frmQCEdit& editor) {
        EXPECT_THAT(Captions(editor),
                    ElementsAre("Print 打印 Print", "Preview 预览 Preview", "Output 输出 Output",
                                "  ", "Addnew 增加 Addnew", "Delete 删除 Delete", "  ",
                                "Save 保存 Save", "Quit 退出 Quit"));
        EXPECT_EQ(editor.Caption(), "期初余额");
        EXPECT_EQ(editor.lblTitle.Caption(), "项目期初存货明细");
        EXPECT_EQ(editor.lblElement.Caption(), "材料费");
        EXPECT_EQ(editor.lblItem.Caption(), "P02");
        EXPECT_EQ(editor.lblDutyCenter.Caption(), "D01");
    });
}

TEST_F(DetailEditorTest, TheGridTakesTheRoomBelowTheStrip) {
    for (const std::int16_t style : {std::int16_t{0}, std::int16_t{1}}) {
        data::gToolbarStyle = style;
        GetDetailEditorForm().CTBCtrl1.SetDisplayStyle(2);
        InEditor([style](frmQCEdit& editor) {
            EXPECT_EQ(editor.Toolbar1.Visible(), style == 1);
            EXPECT_EQ(editor.CTBCtrl1.Visible(), style == 0);
            editor.SetSize(10000, 7000);
            const int toolbar = style == 1 ? editor.Toolbar1.Height() : editor.CTBCtrl1.Height();
            EXPECT_EQ(editor.Picture1.Top(), toolbar);
            EXPECT_EQ(editor.Picture1.Left(), 0);
            EXPECT_EQ(editor.Picture1.Width(), editor.ScaleWidth());
            EXPECT_EQ(editor.Grid1.Top(), toolbar + editor.Picture1.Height());
            EXPECT_EQ(editor.Grid1.Width(), editor.ScaleWidth());
            EXPECT_EQ(editor.Grid1.Top() + editor.Grid1.Height(), editor.ScaleHeight());
        });
    }
}

TEST_F(DetailEditorTest, SavingHandsOverTotalScriptAndLines) {
    InEditor([](frmQCEdit& editor) {
        Edit(editor, 1, 5, "1,234.5");
        editor.SaveDetails();
        EXPECT_FALSE(editor.IsLoaded());
    });
    const frmQCEdit& editor = GetDetailEditorForm();
    EXPECT_EQ(editor.RetValue, "12,495.00");
    EXPECT_EQ(editor.RetStrSql.Text(),
              "delete from PM_ItemQCsub where iEleVid=@@@@ insert into "
              "PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) values(@@@@,'M01',10,1234.5,12345) "
              "insert into PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) "
              "values(@@@@,'M02',5,30,150)");
    EXPECT_THAT(Form().mWaiting.texts,
                ElementsAre("M01\t钢筋\tHRB335\t吨\t10.00\t1,234.50\t12,345.00",
                            "M02\t水泥\t42.5\t吨\t5.00\t30.00\t150.00"));
    EXPECT_EQ(Form().mDetailSql.Text(), editor.RetStrSql.Text());
    EXPECT_EQ(List().Text(2, kAmountColumn), "12,495.00");
    EXPECT_THAT(Read("select mQC from PM_ItemQCsub where iEleVid=2"), ElementsAre("200", "150"));
}

TEST_F(DetailEditorTest, AnUnchangedSaveLeavesWhatWasHandedOver) {
    InEditor([](frmQCEdit& editor) {
        editor.RetValue = "1.00";
        editor.RetStrSql = platform::StatementText("delete from PM_ItemQCsub where iEleVid=0");
        editor.SaveDetails();
        EXPECT_FALSE(editor.IsLoaded());
    });
    EXPECT_EQ(GetDetailEditorForm().RetValue, "1.00");
    EXPECT_EQ(GetDetailEditorForm().RetStrSql.Text(), "delete from PM_ItemQCsub where iEleVid=0");
    EXPECT_THAT(GetDetailEditorForm().mColTempValues, IsEmpty());
}

TEST_F(DetailEditorTest, ChangesAreToldFromTheSecondColumnOn) {
    InEditor([](frmQCEdit& editor) {
        Grid& grid = editor.Grid1;
        EXPECT_FALSE(editor.HasChanged());
        grid.SetText(1, 0, "M99");
        EXPECT_FALSE(editor.HasChanged());
        for (int col = 1; col < grid.Cols(); ++col) {
            const std::string before = grid.Text(2, col);
            grid.SetText(2, col, before + "x");
            EXPECT_TRUE(editor.HasChanged()) << col;
            grid.SetText(2, col, before);
        }
        EXPECT_FALSE(editor.HasChanged());
        grid.AddItem("");
        EXPECT_TRUE(editor.HasChanged());
        grid.RemoveItem(3);
        EXPECT_FALSE(editor.HasChanged());
        grid.RemoveItem(2);
        EXPECT_TRUE(editor.HasChanged());
        editor.TakeSnapshot();
        EXPECT_FALSE(editor.HasChanged());
    });
}

TEST_F(DetailEditorTest, WhatIsAnAmount) {
    for (const char* text : {"", "0", "1.5", ".5", "1,234.5", "1e3", "5 "}) {
        EXPECT_TRUE(frmQCEdit::IsValidAmount(text)) << text;
    }
    for (const char* text : {"-1", "+1", " 1", "abc", "1.2.3", "1e30", "12a", "￥1"}) {
        EXPECT_FALSE(frmQCEdit::IsValidAmount(text)) << text;
    }
}

TEST_F(DetailEditorTest, AmountsAreReckonedInFixedPoint) {
    data::gNumPointPrice = data::gNumPointQty = 4;
    InEditor([](frmQCEdit& editor) {
        Grid& grid = editor.Grid1;
        grid.SetText(1, 4, "0.0001");
        grid.SetText(1, 5, "0.5");
        editor.RecalcAmount(1);
        EXPECT_EQ(grid.Text(1, 6), "0.00");
        grid.SetText(1, 4, "1,000.005");
        grid.SetText(1, 5, "");
        editor.RecalcAmount(1);
        EXPECT_EQ(grid.Text(1, 6), "0.00");
        grid.SetText(1, 5, "1");
        editor.RecalcAmount(1);
        EXPECT_EQ(grid.Text(1, 6), "1,000.01");
        grid.SetText(1, 4, "900,000,000,000");
        grid.SetText(1, 5, "10,000");
        EXPECT_THROW(editor.RecalcAmount(1), platform::MoneyOverflow);
        EXPECT_EQ(grid.Text(1, 6), "1,000.01");
    });
}

TEST_F(DetailEditorTest, ALineThatCannotBeReckonedStaysAsItWas) {
    Run("update inventory set iInvRCost = 900000000000 where cInvCode = 'M03'");
    InEditor([](frmQCEdit& editor) {
        Edit(editor, 1, 5, "100000");
        EXPECT_EQ(Edit(editor, 1, 0, "M03"), GridAnswer::Refuse);
        EXPECT_FALSE(editor.Notice().empty());
        editor.Grid1.CancelEdit();
        EXPECT_EQ(editor.Grid1.RowText(1),
                  "M01\t钢筋\tHRB335\t吨\t10.00\t100,000.00\t1,000,000.00");
        EXPECT_EQ(Edit(editor, 1, 5, "1"), GridAnswer::Accept);
        EXPECT_EQ(editor.Notice(), "");
    });
    EXPECT_THAT(diagnostics.places, ElementsAre("Grid1_CellValidate"));
}

TEST_F(DetailEditorTest, APickThatIsNoLineIsRefusedWhole) {
    references.choose = [] {
        return std::make_unique<support::MemoryRecordSet>(
            std::vector<std::string>{"cInvCode", "cInvName", "cInvStd", "iInvRCost",
                                     "cComUnitName"},
            std::vector<std::vector<platform::Value>>{
                {platform::Value("M09"), platform::Value("甲,乙"), platform::Value("s"),
                 platform::Value("7"), platform::Value("吨")}});
    };
    InEditor([](frmQCEdit& editor) {
        EXPECT_TRUE(editor.Grid1.MoveTo(1, 0));
        EXPECT_TRUE(editor.Grid1.PressReference());
        EXPECT_EQ(editor.Grid1.RowText(1), "M01\t钢筋\tHRB335\t吨\t10.00\t20.00\t200.00");
        EXPECT_FALSE(editor.HasChanged());
    });
}

TEST_F(DetailEditorTest, ACodeThatWouldEndItsLiteralIsRefused) {
    InEditor([this](frmQCEdit& editor) {
        log.statements.clear();
        EXPECT_EQ(Edit(editor, 1, 0, "M'01"), GridAnswer::Refuse);
        EXPECT_THAT(log.Lines(), ElementsAre("gConn: select cInvCCode from pm_itemelement where "
                                             "cElementName='材料费'"));
        EXPECT_TRUE(editor.Grid1.IsEditing());
        EXPECT_THAT(Messages(), IsEmpty());
    });
}

TEST_F(DetailEditorTest, LinesThatCannotBeReadCannotBeReplaced) {
    log.failing = "select a.cInvCode";
    InEditor([](frmQCEdit& editor) {
        EXPECT_EQ(editor.Grid1.Rows(), 1);
        EXPECT_TRUE(editor.Grid1.ReadOnly());
        EXPECT_FALSE(editor.Toolbar1.Button("Addnew")->Enabled());
        EXPECT_FALSE(editor.Toolbar1.Button("Save")->Enabled());
        EXPECT_TRUE(editor.Toolbar1.Button("Quit")->Enabled());
        EXPECT_EQ(editor.Notice(), "读取明细时出错，明细没有显示，现在不能修改，请退出后重试。");
        EXPECT_FALSE(editor.HasChanged());
    });
    log.failing.clear();
    EXPECT_TRUE(Form().mDetailSql.IsEmpty());
    InEditor([](frmQCEdit& editor) {
        EXPECT_EQ(editor.Grid1.Rows(), 3);
        EXPECT_FALSE(editor.Grid1.ReadOnly());
        EXPECT_EQ(editor.Notice(), "");
    });
}

TEST_F(DetailEditorTest, AFailureSaysWhyAndLosesNothing) {
    const std::string failed = "操作时出错，该操作没有完成，已录入的明细仍保留在表格中。";
    InEditor([&](frmQCEdit& editor) {
        log.losesConnection = true;
        log.failing = "from inventory";
        EXPECT_EQ(Edit(editor, 1, 0, "M03"), GridAnswer::Refuse);
        EXPECT_EQ(editor.Notice(), failed + "数据库连接已断开，恢复后会自动重新连接。");
        EXPECT_EQ(editor.Grid1.RowText(2), "M02\t水泥\t42.5\t吨\t5.00\t30.00\t150.00");
        editor.Grid1.CancelEdit();
        EXPECT_EQ(Edit(editor, 1, 0, "M'01"), GridAnswer::Refuse);
        EXPECT_EQ(editor.Notice(), failed + "内容中可能有单引号（'）等不能用的字符。");
        editor.Grid1.CancelEdit();
        log.failing.clear();
        EXPECT_EQ(Edit(editor, 1, 0, "M03"), GridAnswer::Accept);
        EXPECT_EQ(editor.Notice(), "");
    });
}

TEST_F(DetailEditorTest, AListThatCannotBeShownSaysSoInTheEditor) {
    references.choose = []() -> std::unique_ptr<support::MemoryRecordSet> {
        throw platform::ConnectionLost("模拟的连接断开");
    };
    InEditor([](frmQCEdit& editor) {
        EXPECT_TRUE(editor.Grid1.MoveTo(1, 0));
        EXPECT_TRUE(editor.Grid1.PressReference());
        EXPECT_EQ(editor.Grid1.RowText(1), "M01\t钢筋\tHRB335\t吨\t10.00\t20.00\t200.00");
        EXPECT_EQ(editor.Notice(),
                  "操作时出错，该操作没有完成，已录入的明细仍保留在表格中。数据库连接已断开，恢复后"
                  "会自动重新连接。");
    });
}

TEST_F(DetailEditorTest, ACommandThatFailsByItsKeySaysSoToo) {
    InEditor([&](frmQCEdit& editor) {
        Edit(editor, 1, 5, "21");
        log.losesConnection = true;
        log.failing = "from PM_ItemElement";
        EXPECT_TRUE(editor.KeyDown(platform::Key::F6, 0));
        EXPECT_TRUE(editor.IsLoaded());
        EXPECT_EQ(editor.Notice(),
                  "操作时出错，该操作没有完成，已录入的明细仍保留在表格中。数据库连接已断开，恢复后"
                  "会自动重新连接。");
        EXPECT_EQ(editor.RetValue, "");
        log.failing.clear();
        EXPECT_TRUE(editor.KeyDown(platform::Key::F6, 0));
        EXPECT_FALSE(editor.IsLoaded());
        EXPECT_EQ(editor.RetValue, "360.00");
    });
}

TEST_F(DetailEditorTest, WhatOtherEntriesTookBackLeavesMoreOfTheBudget) {
    Run("insert into pm_BudgetVer values(1,1)");
    Run("insert into pm_budgetsub values(1,'P02','E02','M01',1,100,10)");
    Run("insert into PM_ItemQC values(9,'2004-06-02','D01','P02','二标段','','E02','退回',-100)");
    Run("insert into PM_ItemQCsub values(9,'M01',10,-10,-100)");
    InEditor([this](frmQCEdit& editor) {
        EXPECT_TRUE(editor.Grid1.MoveTo(1, 5));
        EXPECT_TRUE(editor.CheckDetailBudget(1));
        editor.Grid1.SetText(1, 5, "20.01");
        EXPECT_FALSE(editor.CheckDetailBudget(1));
        EXPECT_THAT(Messages(),
                    ElementsAre("[项目管理|information] 数量超出项目预算中的项目期初数量"));
        editor.Grid1.SetText(1, 6, "200.01");
        EXPECT_FALSE(editor.CheckDetailBudget(1));
        EXPECT_EQ(Messages().back(), "[项目管理|information] 金额超出项目预算中的项目期初发生额");
    });
}

TEST_F(DetailEditorTest, ABudgetThatCannotBeReadIsNotOnTheLowerLineAndNobodyIsTold) {
    Run("insert into pm_BudgetVer values (1, 1)");
    Run("insert into pm_budgetsub values (1, 'P02', 'E02', 'M01', 1, 500, 40)");
    InEditor([this](frmQCEdit& editor) {
        const auto figures = [](const controls::Form& form) { return form.Figures(); };
        editor.Grid1.MoveTo(1, 0);
        log.failing = "pm_budgetsub";
        EXPECT_EQ(figures(editor), "第 1 行，共 2 行   合计 350.00");
        EXPECT_EQ(editor.Notice(), "");
        log.failing.clear();
        // What could not be read is not asked for again with every key.
        log.statements.clear();
        EXPECT_EQ(figures(editor), "第 1 行，共 2 行   合计 350.00");
        EXPECT_THAT(log.Lines(), IsEmpty());
    });
    InEditor([](frmQCEdit& editor) {
        editor.Grid1.MoveTo(1, 0);
        const controls::Form& form = editor;
        EXPECT_EQ(form.Figures(), "预算余额 300.00，数量 20.00   第 1 行，共 2 行   合计 350.00");
    });
}

TEST_F(DetailEditorTest, KeptLinesComeBeforeTheAccounts) {
    Form().mWaiting.texts = {"M03\t砂\t中砂\t\t20.00\t1.00\t20.00"};
    log.statements.clear();
    InEditor([](frmQCEdit& editor) {
        ASSERT_EQ(editor.Grid1.Rows(), 2);
        EXPECT_EQ(editor.Grid1.RowText(1), "M03\t砂\t中砂\t\t20.00\t1.00\t20.00");
        EXPECT_TRUE(editor.Grid1.IsLocked(1, 6));
    });
    EXPECT_THAT(log.Lines(), IsEmpty());
}

}  // namespace
}  // namespace kelvane::ui
