// The tie-out over the summary: what a script cannot bring about.
#include "ui/summary/tie_out_window.h"

#include "tests/support/memory_table_import.h"
#include "tests/support/remembered_settings.h"
#include "tests/unit/entries/bulk/memory_table.h"
#include "tests/unit/ui/entry_list_fixture.h"
#include "ui/summary/summary_entries.h"
#include "ui/summary/summary_window.h"

namespace kelvane::ui {
namespace {

using entries_test::MemoryTable;
using testing::ElementsAre;
using testing::IsEmpty;

using Rows = std::vector<std::vector<std::string>>;

support::MemoryTableImport::MakeTable TableOf(const Rows& rows) {
    return [rows] {
        auto table = std::make_unique<MemoryTable>("表");
        for (const auto& row : rows) table->AddTexts(row);
        return table;
    };
}

class TieOutWindowTest : public EntryListTest {
protected:
    TieOutWindowTest() {
        services.tableImport = &tables;
        tables.chosen = "trial.xlsx";
        tables.map = "kept.xlsx";
        Trial({{"16040101", "人工费", "1234.5"}, {"16040102", "材料费", "0"}, {"1001", "", "5"}});
        Map({{"16040101", "*", "人工费", "*"}, {"16040102", "*", "材料费", "*"}});
    }

    void Trial(Rows rows) {
        rows.insert(rows.begin(), {"科目编码", "科目名称", "余额"});
        tables.files["trial.xlsx"] = TableOf(rows);
    }
    void Map(Rows rows) {
        rows.insert(rows.begin(), {"科目", "项目编号", "要素", "责任中心"});
        tables.files["kept.xlsx"] = TableOf(rows);
    }

    // Goes through the summary to the tie-out, where `act` does what the operator does.
    void Compare(const std::function<void(frmTieOut&)>& act) {
        windows.acts.emplace_back(
            [](controls::Form& form) { dynamic_cast<frmSummary&>(form).cmdTieOut.Press(); });
        windows.acts.emplace_back(
            [act](controls::Form& form) { act(dynamic_cast<frmTieOut&>(form)); });
        Form().OpenFrom(Form().SummarizeEntries);
        EXPECT_TRUE(windows.acts.empty()) << "no window was shown";
    }
    static std::vector<std::string> Shown(const frmTieOut& window) {
        std::vector<std::string> rows;
        for (int row = 1; row < window.GridTieOut.Rows(); ++row) {
            rows.push_back(window.GridTieOut.Text(row, 0) + window.GridTieOut.Text(row, 2));
        }
        return rows;
    }

    support::MemoryTableImport tables;
};

TEST_F(TieOutWindowTest, WithoutTheServiceNothingIsCompared) {
    services.tableImport = nullptr;
    Open();
    windows.acts.emplace_back([](controls::Form& form) {
        EXPECT_FALSE(dynamic_cast<frmSummary&>(form).cmdTieOut.Enabled());
    });
    Form().OpenFrom(Form().SummarizeEntries);
}

TEST_F(TieOutWindowTest, TheMappingThatIsKeptIsNotAskedFor) {
    Open();
    Compare([](frmTieOut& window) {
        EXPECT_EQ(window.lblFiles.Caption(), "余额表 trial.xlsx，对应表 kept.xlsx");
        EXPECT_THAT(Shown(window),
                    ElementsAre("16040101相符", "16040102不符", "未对应期初", "1001未对应科目"));
    });
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TieOutWindowTest, WhatDiffersAndWhatNobodyComparedStandOut) {
    Open();
    Compare([](frmTieOut& window) {
        const controls::Grid& grid = window.GridTieOut;
        EXPECT_EQ(grid.CellColor(1, 0), grid.BackColor());
        EXPECT_NE(grid.CellColor(2, 0), grid.BackColor());
        EXPECT_EQ(grid.CellColor(2, 7), grid.CellColor(2, 0));
        EXPECT_NE(grid.CellColor(3, 0), grid.BackColor());
        EXPECT_NE(grid.CellColor(3, 0), grid.CellColor(2, 0));
        EXPECT_EQ(grid.CellColor(4, 0), grid.CellColor(3, 0));
        EXPECT_EQ(grid.ColumnAlignment(3), controls::Alignment::Left);
        for (int col = 4; col < grid.Cols(); ++col) {
            EXPECT_EQ(grid.ColumnAlignment(col), controls::Alignment::Right) << col;
        }
    });
}

TEST_F(TieOutWindowTest, BothFilesAreReadAgain) {
    Open();
    Compare([this](frmTieOut& window) {
        window.GridTieOut.MoveTo(2, 0);
        Trial({{"16040102", "材料费", "350"}, {"16040101", "人工费", "0"}});
        Map({{"16040103", "*", "机械费", "*"}, {"16040102", "*", "材料费", "*"}});
        window.cmdAgain.Press();
        EXPECT_THAT(Shown(window),
                    ElementsAre("16040102相符", "16040103总账没有此科目", "未对应期初"));
        EXPECT_EQ(window.GridTieOut.Row(), 1) << "the same account";
        Map({{"", "*", "机械费", "*"}});
        window.cmdAgain.Press();
        EXPECT_EQ(window.GridTieOut.Cols(), 2);
        EXPECT_TRUE(window.GridTieOut.HasFault(1, 1));
        EXPECT_FALSE(window.cmdShow.Enabled());
        tables.files.erase("trial.xlsx");
        window.cmdAgain.Press();
        EXPECT_EQ(window.GridTieOut.Text(1, 1), "trial.xlsx：不存在");
        Trial({{"16040103", "机械费", "80"}});
        Map({{"16040103", "*", "机械费", "*"}});
        window.cmdAgain.Press();
        EXPECT_THAT(Shown(window), ElementsAre("16040103相符", "未对应期初", "未对应期初"));
    });
}

TEST_F(TieOutWindowTest, TheAccountIsNeverWrittenTo) {
    Open();
    Compare([this](frmTieOut& window) {
        log.statements.clear();
        window.cmdAgain.Press();
        window.cmdOpen.Press();
        EXPECT_FALSE(log.statements.empty());
        for (const std::string& statement : log.Lines()) {
            EXPECT_THAT(statement,
                        testing::Not(testing::ContainsRegex("([Ii]nsert|[Uu]pdate|[Dd]elete) ")));
        }
    });
}

TEST_F(TieOutWindowTest, ADoubleClickGoesAllTheWay) {
    Open();
    Compare([this](frmTieOut& window) {
        window.GridTieOut.MoveTo(2, 0);
        window.GridTieOut.CellDoubleClick(0, 0);
        windows.acts.emplace_back([](controls::Form& form) {
            auto& entries = dynamic_cast<frmSummaryEntries&>(form);
            EXPECT_EQ(entries.Caption(), "期初：科目 16040102 材料费，金额等于差额的");
            entries.GridEntries.CellDoubleClick(1, kDateColumn);
        });
        window.GridTieOut.CellDoubleClick(2, 0);
        EXPECT_FALSE(window.IsLoaded());
    });
    EXPECT_EQ(List().RowData(List().Row()), 2);
}

TEST_F(TieOutWindowTest, WithoutPrintServicesNothingIsPrinted) {
    Open();
    Compare([](frmTieOut& window) {
        EXPECT_FALSE(window.Printing.cmdPrint.Enabled());
        EXPECT_FALSE(window.Printing.cmdPreview.Enabled());
        EXPECT_FALSE(window.Printing.cmdExport.Enabled());
        EXPECT_TRUE(window.cmdShow.Enabled());
    });
}

TEST_F(TieOutWindowTest, WithoutItsServiceThereIsNoSheetToSign) {
    Open();
    Compare([](frmTieOut& window) {
        EXPECT_FALSE(window.cmdSign.Visible());
        EXPECT_FALSE(window.cmdSign.Enabled());
    });
}

TEST_F(TieOutWindowTest, WhatIsSignedIsComparedOnceMore) {
    std::vector<std::string> asked;
    services.writeSignOff = [&](const std::string& trial, const std::string& map) {
        asked.push_back(trial + " " + map);
        if (asked.size() == 2) throw std::runtime_error("full");
        return asked.size() == 1;
    };
    Open();
    Compare([&](frmTieOut& window) {
        Trial({{"16040101", "人工费", "1"}});
        window.cmdSign.Press();
        EXPECT_THAT(Shown(window),
                    ElementsAre("16040101不符", "16040102总账没有此科目", "未对应期初"));
        EXPECT_THAT(asked, ElementsAre("trial.xlsx kept.xlsx"));
        EXPECT_EQ(windows.messages.size(), 1U) << "it was written";
        window.cmdSign.Press();
        EXPECT_NE(window.Notice(), "") << "it was not written";
        window.cmdSign.Press();
        EXPECT_EQ(window.Notice(), "") << "given up";
        EXPECT_EQ(windows.messages.size(), 1U);
        // Nothing is signed that was not compared.
        Map({{"", "*", "机械费", "*"}});
        window.cmdSign.Press();
        EXPECT_EQ(asked.size(), 3U);
        EXPECT_FALSE(window.cmdSign.Enabled());
    });
    services.writeSignOff = nullptr;
}

TEST_F(TieOutWindowTest, WidthsAreNotThoseOfAnotherList) {
    support::RememberedSettings settings;
    services.userSettings = &settings;
    Open();
    Compare([](frmTieOut& window) { window.GridTieOut.ResizeColumn(1, 300); });
    Map({{"", "*", "机械费", "*"}});
    Compare([](frmTieOut& window) { EXPECT_FALSE(window.GridTieOut.IsColumnResized(1)); });
    services.userSettings = nullptr;
}

}  // namespace
}  // namespace kelvane::ui
