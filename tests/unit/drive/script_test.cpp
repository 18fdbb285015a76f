#include "adapters/drive/script.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelvane::drive {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string ErrorOf(std::string_view line) {
    try {
        ParseCommand(line);
    } catch (const ScriptError& error) {
        return error.what();
    }
    return "no error";
}

TEST(Script, BlankLinesAndCommentsAreNoCommands) {
    for (const char* line : {"", "   ", "\t", "; a remark", "# account: --sample", "  ;x"}) {
        EXPECT_FALSE(ParseCommand(line)) << line;
    }
}

TEST(Script, EveryCommandIsKnownByItsName) {
    const std::vector<std::pair<const char*, Verb>> lines{
        {"init", Verb::Init},
        {"show", Verb::Show},
        {"go 1 2", Verb::Go},
        {"edit x", Verb::Edit},
        {"type x", Verb::Type},
        {"key F2", Verb::Key},
        {"ref", Verb::Ref},
        {"drop", Verb::Drop},
        {"pick 1", Verb::Pick},
        {"answer yes", Verb::Answer},
        {"clipboard a", Verb::Clipboard},
        {"file /x", Verb::File},
        {"click Add", Verb::Click},
        {"press cmdRef", Verb::Press},
        {"set TxtCode p", Verb::Set},
        {"title 1", Verb::Title},
        {"close", Verb::Close},
        {"skip sql", Verb::Skip},
        {"print grid", Verb::Print},
    };
    for (const auto& [line, verb] : lines) {
        const auto command = ParseCommand(line);
        ASSERT_TRUE(command) << line;
        EXPECT_EQ(command->verb, verb) << line;
    }
}

TEST(Script, AQuotedTextKeepsItsBlanksAndDoubledQuotes) {
    EXPECT_THAT(ParseCommand("edit \"  a  b \"")->arguments, ElementsAre("  a  b "));
    EXPECT_THAT(ParseCommand("edit \"\"")->arguments, ElementsAre(""));
    EXPECT_THAT(ParseCommand("edit \"a \"\"b\"\" c\"")->arguments, ElementsAre("a \"b\" c"));
}

TEST(Script, ATextWithoutQuotesIsTheRestOfTheLine) {
    EXPECT_THAT(ParseCommand("edit  工程 一部  ")->arguments, ElementsAre("工程 一部"));
    EXPECT_THAT(ParseCommand("set TxtCode O'Brien \"x\"")->arguments,
                ElementsAre("TxtCode", "O'Brien \"x\""));
    EXPECT_THAT(ParseCommand("file /tmp/a b.csv")->arguments, ElementsAre("/tmp/a b.csv"));
}

TEST(Script, AWordMayBeQuotedInParts) {
    EXPECT_THAT(ParseCommand("init user=\"U V\" year=2004")->arguments,
                ElementsAre("user=U V", "year=2004"));
    EXPECT_THAT(ParseCommand("press \"My Button\"")->arguments, ElementsAre("My Button"));
    EXPECT_THAT(ParseCommand("drop")->arguments, IsEmpty());
    EXPECT_THAT(ParseCommand("drop ComKey1")->arguments, ElementsAre("ComKey1"));
}

TEST(Script, WhatCannotBeReadIsAnErrorThatSaysWhy) {
    EXPECT_EQ(ErrorOf("jump 1"), "unknown command \"jump\"");
    EXPECT_EQ(ErrorOf("Show"), "unknown command \"Show\"");
    EXPECT_EQ(ErrorOf("go 1"), "wrong arguments, write: go R|entry=ID C");
    EXPECT_EQ(ErrorOf("go 1 2 3"), "wrong arguments, write: go R|entry=ID C");
    EXPECT_EQ(ErrorOf("show now"), "wrong arguments, write: show");
    EXPECT_EQ(ErrorOf("edit"), "wrong arguments, write: edit TEXT");
    EXPECT_EQ(ErrorOf("set TxtCode"), "wrong arguments, write: set NAME TEXT");
    EXPECT_EQ(ErrorOf("edit \"a\" b"), "wrong arguments, write: edit TEXT");
    EXPECT_EQ(ErrorOf("edit \"a"), "a text in double quotes does not end");
}

TEST(Script, InitOptionsComeInAnyOrder) {
    const auto options =
        ParseInitOptions({"today=2004.07.15", "exempt=no", "user=zhang", "year=2004"});
    EXPECT_EQ(options.user, "zhang");
    EXPECT_EQ(options.exempt, false);
    EXPECT_EQ(options.year, 2004);
    EXPECT_EQ(options.today, (platform::DateTime{2004, 7, 15}));

    const auto none = ParseInitOptions({});
    EXPECT_FALSE(none.user || none.exempt || none.year || none.today);
}

TEST(Script, AnInitOptionThatMakesNoSenseIsAnError) {
    for (const char* argument : {"user", "user=", "exempt=maybe", "year=two", "year=-1",
                                 "today=2004.02.30", "colour=red"}) {
        EXPECT_THROW(ParseInitOptions({argument}), ScriptError) << argument;
    }
}

TEST(Script, NumbersAndAnswersAreReadWhole) {
    EXPECT_EQ(ParseNumber("0"), 0);
    EXPECT_EQ(ParseNumber("32768"), 32768);
    for (const char* text : {"", "1x", "-1", " 1", "99999999999"}) {
        EXPECT_THROW(ParseNumber(text), ScriptError) << text;
    }
    EXPECT_TRUE(ParseYesNo("yes"));
    EXPECT_FALSE(ParseYesNo("no"));
    EXPECT_THROW(ParseYesNo("Yes"), ScriptError);
}

}  // namespace
}  // namespace kelvane::drive
