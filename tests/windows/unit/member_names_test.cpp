#include "adapters/com/member_names.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/host.h"

namespace kelvane::com {
namespace {

std::string RefusalOf(std::string_view text) {
    try {
        MemberNames::Parse(text);
    } catch (const platform::HostError& error) {
        return error.what();
    }
    return "";
}

TEST(MemberNames, AreTheUsualOnesWithoutAFile) {
    const auto names = MemberNames::Load(L"C:\\no such folder\\Kelvane.ini");
    EXPECT_EQ(names.Of(Member::LoginConnectionString), "ConnectionString");
    EXPECT_EQ(names.Of(Member::LoginExempt), "ExemptFromCenterAuth");
    EXPECT_EQ(names.Of(Member::DataAccessQuery), "Query");
}

TEST(MemberNames, AreReplacedLineByLine) {
    const auto names = MemberNames::Parse(
        "; comment\r\n[login]\r\n connectionstring = Db.Text \r\n\r\n[Unit]\nName=全称\n");
    EXPECT_EQ(names.Of(Member::LoginConnectionString), "Db.Text");
    EXPECT_EQ(names.Of(Member::UnitName), "全称");
    EXPECT_EQ(names.Of(Member::OperatorName), "Name");
    EXPECT_EQ(names.Of(Member::LoginUserId), "UserId");
}

TEST(MemberNames, SayWhatTheyDoNotKnow) {
    EXPECT_EQ(RefusalOf("[Logins]\n"), "Kelvane.ini：不认识的对象：[Logins]");
    EXPECT_EQ(RefusalOf("[Login]\nUser = x\n"), "Kelvane.ini：不认识的名称：[Login] User");
    EXPECT_EQ(RefusalOf("[Login]\nUserId\n"), "Kelvane.ini：不能识别的行：UserId");
    EXPECT_EQ(RefusalOf("[Login]\nUserId =\n"), "Kelvane.ini：不能识别的行：UserId =");
    EXPECT_EQ(RefusalOf("UserId = x\n"), "Kelvane.ini：不能识别的行：UserId = x");
}

TEST(MemberNames, AreReadInBothEncodings) {
    const auto path = std::filesystem::temp_directory_path() / L"Kelvane 名称.ini";
    const std::u16string wide = u"\uFEFF[Unit]\r\nName=全称\r\n";
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(wide.data()),
               static_cast<std::streamsize>(wide.size() * sizeof(char16_t)));
    EXPECT_EQ(MemberNames::Load(path).Of(Member::UnitName), "全称");
    std::ofstream(path, std::ios::binary) << "\xEF\xBB\xBF[Unit]\nName=简称";
    EXPECT_EQ(MemberNames::Load(path).Of(Member::UnitName), "简称");
    std::filesystem::remove(path);
}

}  // namespace
}  // namespace kelvane::com
