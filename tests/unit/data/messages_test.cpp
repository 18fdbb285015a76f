#include "data/messages.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "data/login_context.h"
#include "tests/support/login_context_reset.h"
#include "tests/support/recording_diagnostics.h"
#include "tests/support/recording_windows.h"

namespace kelvane::data {
namespace {

class Messages : public testing::Test {
protected:
    void SetUp() override {
        mServices.windows = &mWindows;
        mServices.diagnostics = &mDiagnostics;
        gServices = &mServices;
    }
    void TearDown() override { support::ResetLoginContext(); }

    support::RecordingWindows mWindows;
    support::RecordingDiagnostics mDiagnostics;
    platform::Services mServices;
};

TEST_F(Messages, InformationHasItsIconAndOneButton) {
    ShowInformation("日期非法");
    ShowInformation("请先填充要素", kModuleCaption);
    EXPECT_EQ(support::MessageLines(mWindows),
              (std::vector<std::string>{"[提示信息|information] 日期非法",
                                        "[项目管理|information] 请先填充要素"}));
}

TEST_F(Messages, QuestionsAnswerYesOrNo) {
    mWindows.answers = {platform::MessageAnswer::Yes, platform::MessageAnswer::No};
    EXPECT_TRUE(AskQuestion("确实要删除当前行吗?"));
    EXPECT_FALSE(AskQuestion("是否删除当前行？", "删除确认", platform::MessageIcon::None,
                             platform::MessageAnswer::No));
    EXPECT_EQ(support::MessageLines(mWindows),
              (std::vector<std::string>{"[项目管理|question] 确实要删除当前行吗? (YES/no)",
                                        "[删除确认|none] 是否删除当前行？ (yes/NO)"}));
}

TEST_F(Messages, TrappedErrorsAreReportedWithTheirPlace) {
    try {
        throw platform::DatabaseError("锁定超时");
    } catch (...) {
        ReportTrapped("SaveRow");
    }
    try {
        throw 1;
    } catch (...) {
        ReportTrapped("Form_Load");
    }
    EXPECT_EQ(mDiagnostics.places, (std::vector<std::string>{"SaveRow", "Form_Load"}));
    EXPECT_EQ(mDiagnostics.details, (std::vector<std::string>{"锁定超时", "unknown error"}));
}

TEST_F(Messages, WithoutDiagnosticsATrapIsSilent) {
    gServices = nullptr;
    try {
        throw std::runtime_error("x");
    } catch (...) {
        EXPECT_NO_THROW(ReportTrapped("SaveRow"));
    }
    EXPECT_TRUE(mDiagnostics.places.empty());
}

}  // namespace
}  // namespace kelvane::data
