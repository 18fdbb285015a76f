#include <gtest/gtest.h>

#include <cstdlib>

#include "host/account/account_place.h"
#include "host/surroundings/password.h"
#include "host/surroundings/server_name.h"

namespace kelvane::host_test {
namespace {

using namespace host;

TEST(ServerName, SaysWhatIsConnectedTo) {
    EXPECT_EQ(ServerNameOf("Driver=X;Server=db.local;Database=books;UID=a;PWD=b"),
              "books on db.local");
    EXPECT_EQ(ServerNameOf("server=db.local"), "db.local");
    EXPECT_EQ(ServerNameOf("DATABASE={my books}"), "my books");
    EXPECT_EQ(ServerNameOf("DSN=books;PWD=secret"), "books");
    EXPECT_EQ(ServerNameOf("PWD=secret"), "database");
}

TEST(AccountPlace, NeverNamesAPassword) {
    const auto place = AccountPlace::Database("Driver=X;Server=s;Database=d;UID=k;PWD=secret");
    EXPECT_TRUE(place.IsOnServer());
    EXPECT_EQ(place.Name(), "d on s");
    EXPECT_EQ(AccountPlace::File("/a/b").Name(), "/a/b");
    EXPECT_FALSE(AccountPlace::File("/a/b").IsOnServer());
}

TEST(Password, IsOverwrittenInTheArguments) {
    char program[] = "kelvane";
    char command[] = "init";
    char secret[] = "--database=Server=s;PWD=secret";
    char* argv[] = {program, command, secret, nullptr};
    EXPECT_EQ(TakeArguments(3, argv),
              (std::vector<std::string>{"init", "--database=Server=s;PWD=secret"}));
    EXPECT_STREQ(argv[1], "init");
    EXPECT_STREQ(argv[2], "***");
    for (const char left : std::string_view(secret + 3, sizeof secret - 3)) EXPECT_EQ(left, '\0');
}

// With the variable set to "a}b".
std::string WithGivenPassword(const std::string& connectionString) {
    setenv("KELVANE_DATABASE_PASSWORD", "a}b", 1);
    const std::string result = WithKnownPassword(connectionString);
    EXPECT_EQ(std::getenv("KELVANE_DATABASE_PASSWORD"), nullptr);
    return result;
}

TEST(Password, ComesFromTheEnvironmentAndStaysInTheProgram) {
    EXPECT_EQ(WithGivenPassword("Server=s;UID=k"), "Server=s;UID=k;PWD={a}}b};");
    EXPECT_EQ(WithGivenPassword("uid = k ;Database={a;PWD=b};"),
              "uid = k ;Database={a;PWD=b};PWD={a}}b};");
}

TEST(Password, StandsPlainUnlessItNeedsBraces) {
    for (const char* password : {"secret", "geheim 1", ""}) {
        setenv("KELVANE_DATABASE_PASSWORD", password, 1);
        EXPECT_EQ(WithKnownPassword("UID=k"), "UID=k;PWD=" + std::string(password) + ";");
    }
}

TEST(Password, IsNotAskedForWhereNoneIsLacking) {
    for (const std::string text : {"Server=s;UID=k;PWD=own", "Driver=X;UID=kelvane;pwd = secret",
                                   "Driver=X;UID=kelvane;Password={}", "DSN=books", ""}) {
        EXPECT_EQ(WithGivenPassword(text), text);
    }
}

}  // namespace
}  // namespace kelvane::host_test
