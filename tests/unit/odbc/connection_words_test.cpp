#include "adapters/odbc/connection_words.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelvane::odbc {
namespace {

using testing::ElementsAre;

std::vector<std::string> Read(std::string_view text) {
    std::vector<std::string> words;
    for (const ConnectionWord& word : ParseConnectionWords(text)) {
        words.push_back(word.name + '=' + word.value);
    }
    return words;
}

TEST(ConnectionWords, AreReadWithTheirBraces) {
    EXPECT_THAT(Read("Driver={Some Driver};Server=127.0.0.1;PWD={a;b}};c};UID = sa ;;"),
                ElementsAre("Driver=Some Driver", "Server=127.0.0.1", "PWD=a;b};c", "UID=sa"));
    EXPECT_THAT(Read("PWD={never closed;UID=x"), ElementsAre("PWD={never closed;UID=x"));
    EXPECT_THAT(Read("nothing"), ElementsAre());
}

TEST(ConnectionWords, TakeALogin) {
    EXPECT_EQ(WithLogin("Driver=A;Server=B", "", ""), "Driver=A;Server=B");
    EXPECT_EQ(WithLogin("Driver=A;Server=B", "sa", "x"), "Driver=A;Server=B;UID=sa;PWD=x");
    EXPECT_EQ(WithLogin("uid=old;Driver={A;B};Password={o;d};", "new", "a;b}"),
              "Driver={A;B};UID=new;PWD={a;b}}}");
    EXPECT_EQ(WithLogin("UID=kept;PWD=old", "", "new"), "UID=kept;PWD=new");
    EXPECT_EQ(WithWords("Driver=A;", "B=1;C=2"), "Driver=A;B=1;C=2");
}

TEST(ConnectionWords, ValuesGetBracesWhereTheyNeedThem) {
    EXPECT_EQ(ConnectionValue("plain"), "plain");
    EXPECT_EQ(ConnectionValue(" blank"), "{ blank}");
    EXPECT_EQ(ConnectionValue("{x}"), "{{x}}}");
}

TEST(ConnectionWords, NoFormOfAPasswordIsShown) {
    const std::string text = "Driver=A;PWD={a;b}}c};UID=sa";
    const auto secrets = SecretsOf(text);
    EXPECT_EQ(WithoutSecrets("in " + text + " failed", secrets), "in *** failed");
    EXPECT_EQ(WithoutSecrets("PWD={a;b}}c} and a;b}c and {a;", secrets),
              "PWD=*** and *** and ***;");
    EXPECT_EQ(WithoutSecrets("hunter22 and hunter2", SecretsOf("password=hunter2")),
              "***2 and ***");
    EXPECT_EQ(WithoutSecrets("x1 and 1x and _x, but x and 'x'", SecretsOf("PWD=x"), true),
              "x1 and 1x and _x, but *** and '***'");
    EXPECT_EQ(WithoutSecrets("nothing", SecretsOf("Driver=A")), "nothing");
}

}  // namespace
}  // namespace kelvane::odbc
