#include "entries/ledger/ledger_tables.h"

#include <gtest/gtest.h>

#include "tests/unit/entries/bulk/memory_table.h"

namespace kelvane::entries_test {
namespace {

using entries::CodeProposal;
using entries::ReadLedgerMap;
using entries::ReadTrialBalance;

using Texts = std::vector<std::string>;

// What was not read as it stands: findings, then notes.
template <typename Reading>
std::string Told(const Reading& reading) {
    std::string told;
    for (const auto& found : reading.findings) {
        told += found.place + " " + std::string(found.finding.id) + " " + found.finding.text + "\n";
    }
    for (const auto& note : reading.notes) told += note.place + " " + note.text + "\n";
    return told;
}

std::string ShownMap(platform::TableReader& reader, const CodeProposal& propose = {}) {
    const auto reading = ReadLedgerMap(reader, propose);
    std::string shown;
    for (const auto& each : reading.map) {
        shown += each.account + "|" + each.item + "|" + each.element + "|" + each.center + "\n";
    }
    return shown + Told(reading);
}

std::string ShownTrial(platform::TableReader& reader, const Texts& known = {}) {
    const auto reading = ReadTrialBalance(reader, known);
    std::string shown;
    for (const auto& each : reading.trial) {
        shown += each.account + "|" + each.name + "|" + each.amount.FixedText() + "\n";
    }
    return shown + Told(reading);
}

struct Map : MemoryTable {
    Map() : MemoryTable("科目对照") { AddTexts({"科目", "项目编号", "要素", "责任中心"}); }
};

struct Trial : MemoryTable {
    explicit Trial(const Texts& titles) : MemoryTable("科目余额表") { AddTexts(titles); }
};

TEST(LedgerMap, ReadsItsLinesInTheirOrder) {
    Map table;
    table.AddTexts({"1604", "P01", "人工费", "01"});
    table.AddTexts({"1605", " 12* ", "", "＊"});
    EXPECT_EQ(ShownMap(table), "1604|P01|人工费|01\n1605|12*|*|*\n");
}

TEST(LedgerMap, TitlesStandInAnyOrderBelowOtherRows) {
    MemoryTable table("a");
    table.AddTexts({"对照表"});
    table.AddTexts({"备注", "要 素", "科目编码", "项目编号"});
    table.AddTexts({"x", "人工费", "1604", "P01"});
    EXPECT_EQ(ShownMap(table),
              "1604|P01|人工费|*\n"
              "a!1:0: 没有读入标题以上的 1 行\n"
              "a!2:1:备注 没有读入列“备注”\n"
              "a!2:0: 没有列“责任中心”，各行都不限这一项\n");
}

TEST(LedgerMap, RefusesWhatIsNoLine) {
    Map table;
    table.AddTexts({"", "P01", "", ""});
    table.AddTexts({"1604", "P*1", "*费", ""});
    EXPECT_EQ(ShownMap(table),
              "|P01|*|*\n1604|P*1|*费|*\n"
              "科目对照!2:1:科目 file.column 没有科目\n"
              "科目对照!3:2:项目编号 file.column “*”只能单独写，或写在编码的末尾，此处是“P*1”\n"
              "科目对照!3:3:要素 file.column “*”只能单独写，或写在编码的末尾，此处是“*费”\n");
    MemoryTable other("b");
    other.AddTexts({"科目", "金额"});
    EXPECT_EQ(ShownMap(other),
              "b!0:0: file.column 前 20 行中没有标题行（须有“科目”和“项目编号”）\n");
}

TEST(LedgerMap, RefusesANumberInPlaceOfACode) {
    Map table;
    table.Add({Number("1604"), Number("7"), Text(""), Text("")});
    const auto propose = [](int column, std::string_view number) -> std::optional<std::string> {
        if (column == entries::kItemColumn && number == "7") return "0007";
        return std::nullopt;
    };
    EXPECT_EQ(ShownMap(table, propose),
              "|*|*|*\n"
              "科目对照!2:1:科目 cell.code.number 编码应为文本，此处是数字 1604，可能缺少前面的 0\n"
              "科目对照!2:2:项目编号 cell.code.number 编码应为文本，此处是数字，可能是编码 0007\n");
}

TEST(LedgerMap, TellsLinesThatAreNeverReached) {
    Map table;
    table.AddTexts({"1604", "P*", "", ""});
    table.AddTexts({"1605", "P*", "*", "*"});
    table.AddTexts({"1606", "P01", "人工费", ""});
    table.AddTexts({"1607", "", "人工费", ""});
    table.AddTexts({"1608*", "", "机械费", ""});
    EXPECT_EQ(ShownMap(table),
              "1604|P*|*|*\n1605|P*|*|*\n1606|P01|人工费|*\n1607|*|人工费|*\n1608*|*|机械费|*\n"
              "科目对照!3:0: 与第 2 行的条件相同，以在前的一行（科目1604）为准\n"
              "科目对照!4:0: 用不到：第 2 行（科目1604）已经包括了这一行的所有期初\n"
              "科目对照!6:1:科目 科目“1608*”中的“*”不代表任何编码，科目须逐个写明\n");
}

TEST(TrialBalance, HasItsAmountsInOneColumn) {
    for (const char* title : {"余额", "期初余额", "金额"}) {
        Trial table({"科目编码", "科目名称", title});
        table.Add({Text("1604"), Text("在建工程"), Number("1234.5")});
        table.AddTexts({"1605", "", "-1,234.5678"});
        table.AddTexts({"1606", "", ""});
        EXPECT_EQ(ShownTrial(table), "1604|在建工程|1234.5000\n1605||-1234.5678\n1606||0.0000\n")
            << title;
    }
}

TEST(TrialBalance, HasItsAmountsInDebitAndCredit) {
    for (const auto& [debit, credit] :
         {std::pair("借方", "贷方"), std::pair("期初借方", "期初贷方"),
          std::pair("借方余额", "贷方余额")}) {
        Trial table({credit, "科目代码", debit});
        table.Add({Text(""), Text("1604"), Number("10.01")});
        table.Add({Number("3"), Text("1605"), Text("")});
        table.Add({Number("3"), Text("1606"), Number("5")});
        EXPECT_EQ(ShownTrial(table), "1604||10.0100\n1605||-3.0000\n1606||2.0000\n") << debit;
    }
}

TEST(TrialBalance, HasTheSideOfAnAmountInAColumn) {
    Trial table({"科目", "方向", "余额"});
    table.AddTexts({"1", "借", "5"});
    table.AddTexts({"2", "贷", "5"});
    table.AddTexts({"3", "平", "0"});
    table.AddTexts({"4", "", ""});
    table.AddTexts({"5", "贷方", "-5"});
    EXPECT_EQ(ShownTrial(table), "1||5.0000\n2||-5.0000\n3||0.0000\n4||0.0000\n5||5.0000\n");
    Trial wrong({"科目", "方向", "余额"});
    wrong.AddTexts({"1", "平", "5"});
    wrong.AddTexts({"2", "", "5"});
    EXPECT_EQ(ShownTrial(wrong),
              "1||5.0000\n2||5.0000\n"
              "科目余额表!2:2:方向 file.column “方向”只能是“借”、“贷”或“平”（余额为零），"
              "此处是“平”\n"
              "科目余额表!3:2:方向 file.column “方向”只能是“借”、“贷”或“平”（余额为零），"
              "此处是“”\n");
}

TEST(TrialBalance, ABalanceGoesBeforeATurnoverAndAnOpeningBalanceBeforeBoth) {
    Trial table({"科目", "期初余额", "借方", "贷方", "余额"});
    table.AddTexts({"1", "5", "1", "2", "4"});
    EXPECT_EQ(ShownTrial(table),
              "1||5.0000\n"
              "科目余额表!1:3:借方 没有读入列“借方”\n"
              "科目余额表!1:4:贷方 没有读入列“贷方”\n"
              "科目余额表!1:5:余额 没有读入列“余额”\n");
    Trial turnover({"科目", "借方", "贷方", "余额"});
    turnover.AddTexts({"1", "1", "2", "4"});
    EXPECT_EQ(ShownTrial(turnover).substr(0, 10), "1||4.0000\n");
}

TEST(TrialBalance, TheSideBelongsToTheAmountThatIsRead) {
    Trial before({"科目", "方向", "期初余额", "方向", "期末余额"});
    before.AddTexts({"1", "贷", "5", "借", "7"});
    EXPECT_EQ(ShownTrial(before),
              "1||-5.0000\n"
              "科目余额表!1:4:方向 没有读入列“方向”\n"
              "科目余额表!1:5:期末余额 没有读入列“期末余额”\n");
    Trial last({"科目", "方向", "年初数", "方向", "期初余额"});
    last.AddTexts({"1", "借", "7", "贷", "5"});
    EXPECT_EQ(ShownTrial(last),
              "1||-5.0000\n"
              "科目余额表!1:3:年初数 没有读入列“年初数”\n"
              "科目余额表!1:2:方向 没有读入列“方向”\n");
    Trial behind({"科目", "余额", "方向", "期末余额", "方向"});
    behind.AddTexts({"1", "5", "贷", "7", "借"});
    EXPECT_EQ(ShownTrial(behind).substr(0, 11), "1||-5.0000\n");
    Trial twice({"科目", "余额", "余额"});
    EXPECT_EQ(ShownTrial(twice), "科目余额表!1:3:余额 file.column 列“余额”不止一个\n");
}

TEST(TrialBalance, BesideItsCodeAnAccountIsItsName) {
    Trial table({"科目", "科目代码", "余额"});
    table.AddTexts({"在建工程", "1604", "5"});
    EXPECT_EQ(ShownTrial(table), "1604|在建工程|5.0000\n");
}

TEST(TrialBalance, TwoAmountsThatMayBeMeantAreRefused) {
    Trial table({"科目", "金额", "借方", "贷方"});
    table.AddTexts({"1", "5", "1", "2"});
    EXPECT_EQ(ShownTrial(table),
              "科目余额表!1:0: file.column 不知道余额是“金额”还是“借方”，只能留一个\n"
              "科目余额表!1:3:借方 没有读入列“借方”\n"
              "科目余额表!1:4:贷方 没有读入列“贷方”\n");
    Trial half({"科目", "借方"});
    half.AddTexts({"1", "5"});
    EXPECT_EQ(ShownTrial(half), "科目余额表!1:0:贷方 file.column 缺少列“贷方”\n");
    Trial none({"科目", "期末余额"});
    none.AddTexts({"1", "5"});
    EXPECT_EQ(ShownTrial(none),
              "科目余额表!0:0: file.column 前 20 行中没有标题行（须有“科目编码”和“余额”）\n");
}

TEST(TrialBalance, SumsUpAnAccountThatStandsTwiceAndLeavesOutTotals) {
    Trial table({"科目", "科目名称", "余额"});
    table.AddTexts({"1604", "", "1"});
    table.AddTexts({"\u30001604", "在建", "2.5"});
    table.AddTexts({"合 计", "", "3.5"});
    table.AddTexts({"", "本页小计", "3.5"});
    table.AddTexts({"资产合计：", "", "3.5"});
    EXPECT_EQ(ShownTrial(table),
              "1604|在建|3.5000\n"
              "科目余额表!3:0: 科目“1604”不止一行，余额相加\n"
              "科目余额表!4:0: 没有读入合计或没有科目的 3 行\n");
}

TEST(TrialBalance, TakesHiddenRowsAndTellsIt) {
    Trial table({"科目", "余额"});
    table.Add({Text("1"), Number("1")}, 0, true);
    EXPECT_EQ(ShownTrial(table), "1||1.0000\n科目余额表!2:0: 读入了隐藏的 1 行\n");
}

TEST(TrialBalance, RefusesAmountsThatMayBeAnotherOne) {
    Trial table({"科目", "余额"});
    table.AddTexts({"1", "12,34"});
    table.AddTexts({"2", "1.00001"});
    table.AddTexts({"3", "1000000000000000"});
    table.Add({Text("4"), Number("0.30000000000000004")});
    table.Add({Text("5"), Number("33.333333333333336")});
    table.Add({Text("6"), Number("922337203685477.58")});
    table.Add({Text("7"), {0, CellKind::NoResult, {}, {}}});
    EXPECT_EQ(ShownTrial(table),
              "1||0.0000\n2||0.0000\n3||0.0000\n4||0.3000\n5||0.0000\n6||922337203685477.5800\n"
              "7||0.0000\n"
              "科目余额表!2:2:余额 amount.number 请输入数字\n"
              "科目余额表!3:2:余额 amount.number 金额 1.00001 多于四位小数\n"
              "科目余额表!4:2:余额 amount.range "
              "金额超出范围（-922,337,203,685,477.58 至 922,337,203,685,477.58）\n"
              "科目余额表!6:2:余额 amount.number 金额 33.333333333333336 多于四位小数\n"
              "科目余额表!8:2:余额 cell.formula 公式没有保存计算结果，须重新计算后保存\n");
}

TEST(TrialBalance, ProposesAKnownAccountForANumber) {
    Trial table({"科目", "余额"});
    table.Add({Number("1604"), Number("1")});
    EXPECT_EQ(ShownTrial(table, {"1604", "1605"}),
              "科目余额表!2:1:科目 cell.code.number 编码应为文本，此处是数字，可能是编码 1604\n");
}

TEST(TrialBalance, RefusesMergedTitles) {
    Trial table({"科目", "期初余额"});
    table.AddTexts({"", "借方", "贷方"});
    table.AddTexts({"1", "5", ""});
    table.Merge({1, 2, 1, 3});
    EXPECT_EQ(ShownTrial(table).substr(0, 9), "1||5.0000");
    EXPECT_NE(ShownTrial(table).find("cell.merged"), std::string::npos);
    EXPECT_NE(ShownTrial(table).find("科目余额表!2:2:期初余额 amount.number"), std::string::npos);
}

}  // namespace
}  // namespace kelvane::entries_test
