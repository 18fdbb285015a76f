// What opening the list announces to the host's data access, and that it is what it then asks.
#include "adapters/sqlite/database.h"
#include "tests/unit/ui/entry_list_fixture.h"

namespace kelvane::ui {
namespace {

using testing::ElementsAre;

using Queries = std::vector<std::string>;

std::string Sum(int identity) {
    return "Select sum(mQc) from pm_itemqcsub where iEleVid = '" + std::to_string(identity) + "'";
}

std::string Element(const std::string& code) {
    return "select cElementName,iElementDetail from PM_ItemElement where cElementCode = '" + code +
           "'";
}

std::string Settlement(const std::string& item, const std::string& key) {
    return "select iclose,denddate from fitemss97sub where citemcode = '" + item +
           "' and isnull(标段,'') = '" + key + "'";
}

class EntryLoadingTest : public EntryListTest {
protected:
    // Writes into the file what no column of the account takes.
    void Tamper(const char* statement) { sqlite::Database(account.Path(), 5000).Run(statement); }

    // The statements behind the list of identities, to the last row's check.
    Queries Asked() const {
        Queries texts;
        for (const support::RecordedStatement& statement : log.statements) {
            if (statement.text == "Select distinct iEleVid from PM_ItemQC") {
                texts.clear();
                continue;
            }
            if (statement.text.starts_with("select bflag_PM")) break;
            texts.push_back(statement.text);
        }
        return texts;
    }
};

TEST_F(EntryLoadingTest, AnnouncesOneQueryOfEachKindForEveryEntry) {
    Form().Load();
    EXPECT_THAT(log.announcements,
                ElementsAre(Queries{Sum(1), Sum(2), Sum(3)}, Queries{},
                            Queries{Element("E01"), Element("E02"), Element("E03")}, Queries{},
                            Queries{Settlement("P01", "一标段"), Settlement("P02", "二标段"),
                                    Settlement("P03", "一标段")},
                            Queries{}));
}

TEST_F(EntryLoadingTest, AsksAsIfNothingWereAnnounced) {
    Form().Load();
    EXPECT_THAT(
        Asked(),
        ElementsAre(
            Sum(1), Sum(2), "Update PM_ItemQC set mQC = 350 where iEleVid = '2'", Sum(3),
            "select PM_ItemQC.iEleVid,PM_ItemQC.dDate,PM_ItemQC.cItemCode,fitemss97.citemname,"
            "cKeyCode1,cKeyCode2,cCenterCode,cDigest,cElementCode,mQC from PM_ItemQC inner join "
            "fitemss97 on fitemss97.citemcode = PM_ItemQC.cItemCode order by PM_ItemQC.cItemCode "
            "asc",
            Element("E01"), Element("E02"), Element("E03"), Settlement("P01", "一标段"),
            Settlement("P02", "二标段"), Settlement("P03", "一标段")));
}

TEST_F(EntryLoadingTest, AnnouncesALongListInPieces) {
    for (int i = 4; i <= 300; ++i) {
        platform::StatementText insert("insert into PM_ItemQC values(");
        insert.Number(i) << ",'2004-06-01','D01','P01','一标段','','E01','',1)";
        other->Execute(insert);
    }
    Form().Load();
    std::vector<std::size_t> sizes;
    for (const Queries& announcement : log.announcements) sizes.push_back(announcement.size());
    EXPECT_THAT(sizes, ElementsAre(64, 64, 64, 64, 44, 0, 300, 0, 300, 0));
    EXPECT_EQ(List().Rows(), 301);
}

// The error comes when the entry's turn does; nothing stays announced.
TEST_F(EntryLoadingTest, EndsTheAnnouncementWhenLoadingFails) {
    log.failing = Sum(2);
    Form().Load();
    EXPECT_THAT(log.announcements, ElementsAre(Queries{Sum(1), Sum(2), Sum(3)}, Queries{}));
    EXPECT_EQ(log.statements.back().text.substr(0, 15), "select count(*)");
    EXPECT_EQ(Form().Notice(), "读取期初列表时出错，列表可能不完整，请重新打开。");
}

TEST_F(EntryLoadingTest, ACodeThatIsNoLiteralFailsAtItsRowAlone) {
    Run("update PM_ItemQC set cElementCode = 'E''1' where iEleVid = 3");
    Form().Load();
    EXPECT_EQ(List().Rows(), 3);
}

TEST_F(EntryLoadingTest, TellsHowManyEntriesCannotBeReadAndTheFirst) {
    Tamper("update PM_ItemQC set mQC = 'nan' where iEleVid = 1");
    Tamper("update PM_ItemQC set dDate = '某日' where iEleVid = 3");
    Form().Load();
    EXPECT_EQ(List().Rows(), 1);
    EXPECT_EQ(Form().Notice(),
              "读取期初列表时出错，列表可能不完整，请重新打开。有 2 "
              "行期初的日期或金额无法识别，第一行是期初编号 1。");
}

TEST_F(EntryLoadingTest, TellsHowManyLinesCannotBeReadAndWhoseTheFirstIs) {
    Tamper("update PM_ItemQCsub set mQC = 'nan'");
    Form().Load();
    EXPECT_EQ(Form().Notice(),
              "读取期初列表时出错，列表可能不完整，请重新打开。有 2 "
              "行明细的金额无法识别，第一行属于期初编号 2。");
}

// Opening writes the amounts that are kept in lines.
TEST_F(EntryLoadingTest, AnAccountThatIsHeldBreaksOffAndSaysSo) {
    other->Begin();
    Run("update PM_ItemQC set cDigest = '他人' where iEleVid = 1");
    Form().Load();
    other->RollBack();
    EXPECT_EQ(Form().Notice(),
              "读取期初列表时出错，列表可能不完整，请重新打开。数据库正被他人占用，请稍后重试。");
    Form().Unload();
    Form().Load();
    EXPECT_EQ(List().Rows(), 4);
    EXPECT_EQ(Form().Notice(), "");
}

// The tab separates the cells of a row.
TEST_F(EntryLoadingTest, ATabInATextMovesNoOtherCell) {
    Run("update PM_ItemQC set cDigest = '人\t工', cKeyCode1 = '一\t标段' where iEleVid = 1");
    Run("update fitemss97 set citemname = '一号\t楼' where citemcode = 'P01'");
    Form().Load();
    EXPECT_EQ(List().RowText(1),
              "\t2004-06-01\tD01\tP01\t一号 楼\t一 标段\t\t人工费\t人 工\t1,234.50");
}

}  // namespace
}  // namespace kelvane::ui
