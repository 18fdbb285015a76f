#include "adapters/com/error_report.h"

#include <gtest/gtest.h>

#include <new>

#include "adapters/com/com_pointer.h"
#include "adapters/com/wide_text.h"
#include "platform/call_errors.h"
#include "platform/host.h"

namespace kelvane::com {
namespace {

template <typename Error>
ErrorReport ReportOf(const Error& thrown) {
    try {
        throw thrown;
    } catch (...) {
        return ReportOfCurrentException();
    }
}

TEST(ErrorReport, HasACodeForEachKindAndItsText) {
    const auto code = [](const auto& error) {
        return static_cast<unsigned long>(ReportOf(error).code);
    };
    EXPECT_EQ(code(ArgumentError("x")), 0x80070057UL);
    EXPECT_EQ(code(platform::HostError("x")), 0x80040201UL);
    EXPECT_EQ(code(platform::DatabaseError("x")), 0x80040202UL);
    EXPECT_EQ(code(platform::DatabaseBusy("x")), 0x80040203UL);
    EXPECT_EQ(code(platform::ConnectionLost("x")), 0x80040204UL);
    EXPECT_EQ(code(platform::CommitInDoubt("x")), 0x80040205UL);
    EXPECT_EQ(code(platform::CallOrderError("x")), 0x80040206UL);
    EXPECT_EQ(code(platform::WrongThread("x")), 0x80040207UL);
    EXPECT_EQ(code(std::bad_alloc()), 0x8007000EUL);
    EXPECT_EQ(code(std::runtime_error("x")), 0x80004005UL);
    EXPECT_EQ(code(42), 0x80004005UL);
}

TEST(ErrorReport, SaysTheKindInBothLanguagesAndTheErrorsOwnText) {
    EXPECT_EQ(ReportOf(platform::HostError("objEnv.Unit：没有")).description,
              "宿主对象没有给出所需的内容 / A host object did not give what it was asked for: "
              "objEnv.Unit：没有");
    EXPECT_EQ(ReportOf(std::runtime_error("x")).description, "组件出错 / The component failed: x");
    EXPECT_EQ(ReportOf(42).description, "");
}

TEST(ErrorReport, BecomesTheThreadsErrorObject) {
    Publish({E_FAIL, "不行"}, IID_IDispatch, L"Kelvane.PeriodItem");
    ComPointer<IErrorInfo> info;
    ASSERT_EQ(GetErrorInfo(0, info.Receive()), S_OK);
    BSTR description = nullptr;
    info->GetDescription(&description);
    EXPECT_EQ(TextOf(description), "不行");
    SysFreeString(description);
    BSTR source = nullptr;
    info->GetSource(&source);
    EXPECT_EQ(TextOf(source), "Kelvane.PeriodItem");
    SysFreeString(source);
}

}  // namespace
}  // namespace kelvane::com
