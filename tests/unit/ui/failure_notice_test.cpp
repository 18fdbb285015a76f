#include "ui/entry_list/failure_notice.h"

#include <gtest/gtest.h>

#include "platform/database.h"

namespace kelvane::ui {
namespace {

class FailureNoticeTest : public testing::Test {
protected:
    std::string line;
    FailureNotice notice{[this](const std::string& text) { line = text; }};
};

TEST_F(FailureNoticeTest, NamesTheLastFailure) {
    notice.Failed("LoadEntryGrid");
    EXPECT_EQ(line, "读取期初列表时出错，列表可能不完整，请重新打开。");
    notice.Failed("CheckItemSettled");
    EXPECT_EQ(line, "检查项目是否已结算时出错。");
    notice.FailedSave("没有保存。");
    EXPECT_EQ(line, "没有保存。");
    EXPECT_EQ(notice.Failures(), 3);
}

TEST_F(FailureNoticeTest, ARoutineWithoutASentenceIsNotNamed) {
    notice.Failed("Form_Resize");
    EXPECT_EQ(line, "操作时出错，该操作没有完成。");
}

TEST_F(FailureNoticeTest, ALostConnectionIsSaidBesideWhatFailed) {
    try {
        throw platform::ConnectionLost("gone");
    } catch (...) {
        notice.Failed("SaveRow");
    }
    EXPECT_EQ(line,
              "保存当前行时出错，没有写入数据库，录入的内容仍保留在表格中。"
              "数据库连接已断开，恢复后会自动重新连接。");
    try {
        throw platform::DatabaseError("refused");
    } catch (...) {
        notice.Failed("SaveRow");
    }
    EXPECT_EQ(line, "保存当前行时出错，没有写入数据库，录入的内容仍保留在表格中。");
}

TEST_F(FailureNoticeTest, StaysUntilTheSameKindOfWorkSucceeds) {
    notice.Failed("LoadEntryGrid");
    notice.Succeeded(Work::Check);
    EXPECT_EQ(line, "读取期初列表时出错，列表可能不完整，请重新打开。");
    notice.Failed("SaveRow");
    notice.Succeeded(Work::Check);
    EXPECT_EQ(line, "保存当前行时出错，没有写入数据库，录入的内容仍保留在表格中。");
    notice.Failed("CheckBeforeEntry");
    notice.Succeeded(Work::Check);
    EXPECT_EQ(line, "");
}

TEST_F(FailureNoticeTest, ASuccessfulSaveEndsItInAnyCase) {
    for (const char* place : {"LoadEntryGrid", "SaveRow", "CheckItemSettled", "Form_Resize"}) {
        notice.Failed(place);
        notice.Succeeded(Work::Save);
        EXPECT_EQ(line, "") << place;
    }
}

TEST_F(FailureNoticeTest, ASuccessWithoutAFailureShowsNothing) {
    line = "unchanged";
    notice.Succeeded(Work::Save);
    EXPECT_EQ(line, "unchanged");
    notice.Clear();
    EXPECT_EQ(line, "");
}

}  // namespace
}  // namespace kelvane::ui
