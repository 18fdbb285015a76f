#include "ui/entry_list/failure_notice.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>

#include "platform/database.h"
#include "platform/money.h"

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

// What an operator can act on is said beside what failed.

constexpr const char* kSaveFailed = "保存当前行时出错，没有写入数据库，录入的内容仍保留在表格中。";

TEST_F(FailureNoticeTest, SaysTheReasonBesideWhatFailed) {
    const auto noticeOf = [this](const auto& error) {
        try {
            throw error;
        } catch (...) {
            notice.Failed("SaveRow");
        }
        EXPECT_TRUE(line.starts_with(kSaveFailed)) << line;
        return line.substr(std::string(kSaveFailed).size());
    };
    const std::string tooLong = "有内容太长，超过了数据库允许的长度，请缩短。";
    const std::string thereAlready = "数据库中已有相同编号的记录，可以再试一次。";
    const std::string tooLarge = "数字超出了数据库能保存的范围。";
    EXPECT_EQ(noticeOf(platform::ConnectionLost("gone")),
              "数据库连接已断开，恢复后会自动重新连接。");
    EXPECT_EQ(noticeOf(platform::DatabaseBusy("locked")), "数据库正被他人占用，请稍后重试。");
    EXPECT_EQ(noticeOf(platform::MalformedStatement("'")),
              "内容中可能有单引号（'）等不能用的字符。");
    EXPECT_EQ(noticeOf(platform::MoneyOverflow("9")), tooLarge);
    for (const auto& [code, reason] : {std::pair{8152, tooLong},
                                       {2628, tooLong},
                                       {8115, tooLarge},
                                       {2627, thereAlready},
                                       {2601, thereAlready},
                                       {208, std::string()}}) {
        EXPECT_EQ(noticeOf(platform::DatabaseError("refused", code)), reason) << code;
    }
    EXPECT_EQ(noticeOf(std::runtime_error("other")), "");
    EXPECT_EQ(noticeOf(1), "");
}

TEST_F(FailureNoticeTest, WithoutAnExceptionThereIsNoReason) {
    notice.Failed("SaveRow");
    EXPECT_EQ(line, kSaveFailed);
}

TEST_F(FailureNoticeTest, AnExportThatFailedStaysUntilOneSucceeds) {
    notice.Failed("WriteToFile");
    notice.Succeeded(Work::Check);
    EXPECT_EQ(line, "输出到文件时出错，文件没有写成，原有的文件没有改变。");
    notice.Succeeded(Work::Export);
    EXPECT_EQ(line, "");
    notice.Failed("Print");
    notice.Succeeded(Work::Export);
    EXPECT_EQ(line, "打印时出错，没有打印完。");
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

TEST_F(FailureNoticeTest, WhatWasDoneIsToldUntilTheNextThing) {
    const int before = notice.Failures();
    notice.Tell("已导入");
    EXPECT_EQ(line, "已导入");
    EXPECT_EQ(notice.Failures(), before);
    notice.Succeeded(Work::Export);
    EXPECT_EQ(line, "已导入");
    notice.Succeeded(Work::Save);
    EXPECT_EQ(line, "");
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
