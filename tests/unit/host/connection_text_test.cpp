#include "host/account/connection_text.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "host/account/account_place.h"
#include "host/surroundings/password.h"

namespace kelvane::host_test {
namespace {

using namespace host;

TEST(ConnectionText, AnOperatorWithoutAPasswordLacksIt) {
    EXPECT_TRUE(LacksPassword("Driver=X;Server=s;UID=kelvane"));
    EXPECT_TRUE(LacksPassword("uid = kelvane ;Database={a;PWD=b}"));
    EXPECT_FALSE(LacksPassword("Driver=X;UID=kelvane;pwd=secret"));
    EXPECT_FALSE(LacksPassword("Driver=X;UID=kelvane;Password={}"));
    EXPECT_FALSE(LacksPassword("DSN=books"));
    EXPECT_FALSE(LacksPassword(""));
}

TEST(ConnectionText, APasswordMayHaveAnyCharacters) {
    EXPECT_EQ(WithPassword("UID=k", "a;b}c{d"), "UID=k;PWD={a;b}}c{d}");
    EXPECT_EQ(WithPassword("UID=k;", ""), "UID=k;PWD={}");
    EXPECT_FALSE(LacksPassword(WithPassword("UID=k", "}")));
}

TEST(ConnectionText, NamesWhatItConnectsTo) {
    EXPECT_EQ(ServerNameOf("Driver=X;Server=db.local;Database=books;UID=a;PWD=b"),
              "books on db.local");
    EXPECT_EQ(ServerNameOf("server=db.local"), "db.local");
    EXPECT_EQ(ServerNameOf("DATABASE={my books}"), "{my books}");
    EXPECT_EQ(ServerNameOf("DSN=books;PWD=secret"), "books");
    EXPECT_EQ(ServerNameOf("PWD=secret"), "database");
}

TEST(ConnectionText, HidesPasswordsWhereverTheyStand) {
    EXPECT_EQ(WithoutPasswords("not expected: Server=s;PWD=geheim;UID=k more"),
              "not expected: Server=s;PWD=***;UID=k more");
    EXPECT_EQ(WithoutPasswords("pwd = {a;}}b};x, Password=c"), "pwd =***;x, Password=***");
    EXPECT_EQ(WithoutPasswords("PWD={never closed; UID=k"), "PWD=***");
    EXPECT_EQ(WithoutPasswords("nothing to hide; a=b"), "nothing to hide; a=b");
    EXPECT_TRUE(HoldsPassword("a PWD=b"));
    EXPECT_FALSE(HoldsPassword("UID=b;PWDX=c"));
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

TEST(Password, ComesFromTheEnvironmentAndStaysInTheProgram) {
    setenv("KELVANE_DATABASE_PASSWORD", "a}b", 1);
    EXPECT_EQ(WithKnownPassword("Server=s;UID=k"), "Server=s;UID=k;PWD={a}}b}");
    EXPECT_EQ(std::getenv("KELVANE_DATABASE_PASSWORD"), nullptr);
    setenv("KELVANE_DATABASE_PASSWORD", "other", 1);
    EXPECT_EQ(WithKnownPassword("Server=s;UID=k;PWD=own"), "Server=s;UID=k;PWD=own");
    EXPECT_EQ(std::getenv("KELVANE_DATABASE_PASSWORD"), nullptr);
}

}  // namespace
}  // namespace kelvane::host_test
