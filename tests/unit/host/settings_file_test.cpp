#include "host/surroundings/settings_file.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/unit/host/temporary_folder.h"

namespace kelvane::host_test {
namespace {

using host::SettingsFile;
using Outcome = platform::Registry::Outcome;

constexpr const char* kKey = "SOFTWARE\\Marrowind\\Kx\\V8.50\\Appearance";
constexpr const char* kName = "Toolbar Style";
constexpr std::size_t kBuffer = 128;

class SettingsFileTest : public ::testing::Test {
protected:
    platform::Registry::Answer Read(const std::string& content, std::size_t buffer = kBuffer) {
        const auto path = mFolder / "settings.ini";
        WriteText(path, content);
        return SettingsFile(path).ReadMachineText(kKey, kName, buffer);
    }

    TemporaryFolder mFolder;
};

std::string Section(const std::string& lines) {
    return "[" + std::string(kKey) + "]\n" + lines;
}

TEST_F(SettingsFileTest, FindsTheValue) {
    const auto answer = Read(Section("Toolbar Style = Text\n"));
    EXPECT_EQ(answer.outcome, Outcome::Found);
    EXPECT_EQ(answer.text, "Text");
}

TEST_F(SettingsFileTest, KeysAndNamesHaveNoLetterCaseAndValuesHave) {
    const auto answer = Read("[software\\marrowind\\KX\\v8.50\\APPEARANCE]\ntoolbar style=text\n");
    EXPECT_EQ(answer.outcome, Outcome::Found);
    EXPECT_EQ(answer.text, "text");
}

TEST_F(SettingsFileTest, QuotesKeepBlanksAndAreNoPartOfTheValue) {
    EXPECT_EQ(Read(Section("Toolbar Style = \" T \"\n")).text, " T ");
    EXPECT_EQ(Read(Section("Toolbar Style = \"\n")).text, "\"");
}

TEST_F(SettingsFileTest, AnEmptyValueIsFound) {
    for (const char* line : {"Toolbar Style =", "Toolbar Style = \"\""}) {
        const auto answer = Read(Section(line));
        EXPECT_EQ(answer.outcome, Outcome::Found) << line;
        EXPECT_EQ(answer.text, "") << line;
    }
}

TEST_F(SettingsFileTest, TheLastLineCounts) {
    const auto answer = Read(Section("Toolbar Style = A\nToolbar Style = B\n[other]\n") +
                             Section("Toolbar Style = C\n"));
    EXPECT_EQ(answer.text, "C");
}

TEST_F(SettingsFileTest, CommentsBlankLinesMarkAndLineEndsAreSkipped) {
    const auto answer = Read("\xEF\xBB\xBF; made by hand\r\n\r\n# more\r\n[" + std::string(kKey) +
                             "]\r\n; Toolbar Style = Other\r\nToolbar Style = Text\r\n");
    EXPECT_EQ(answer.outcome, Outcome::Found);
    EXPECT_EQ(answer.text, "Text");
}

TEST_F(SettingsFileTest, AValueOfAnotherKeyIsNotFound) {
    EXPECT_EQ(Read("[other]\nToolbar Style = Text\n").outcome, Outcome::NoKey);
    EXPECT_EQ(Read("Toolbar Style = Text\n").outcome, Outcome::NoKey);
    EXPECT_EQ(Read(Section("Toolbar Styles = Text\n[other]\nToolbar Style = Text\n")).outcome,
              Outcome::NoValue);
    EXPECT_EQ(Read(Section("Toolbar Style\n")).outcome, Outcome::NoValue);
}

TEST_F(SettingsFileTest, AValueMustFitTheBufferWithItsEnd) {
    const std::string line = "Toolbar Style = " + std::string(kBuffer - 1, 'T');
    EXPECT_EQ(Read(Section(line)).outcome, Outcome::Found);
    const auto answer = Read(Section(line + "T"));
    EXPECT_EQ(answer.outcome, Outcome::NoValue);
    EXPECT_EQ(answer.text, "");
}

TEST_F(SettingsFileTest, WhatIsNoReadableFileHasNoKeys) {
    EXPECT_EQ(SettingsFile(mFolder / "missing.ini").ReadMachineText(kKey, kName, kBuffer).outcome,
              Outcome::NoKey);
    EXPECT_EQ(SettingsFile(mFolder.Path()).ReadMachineText(kKey, kName, kBuffer).outcome,
              Outcome::NoKey);
    EXPECT_EQ(SettingsFile({}).ReadMachineText(kKey, kName, kBuffer).outcome, Outcome::NoKey);
    EXPECT_EQ(Read(std::string(2 << 20U, 'x')).outcome, Outcome::NoKey);
    EXPECT_EQ(Read(std::string("\0\xFF\xFE[\n=\n]", 9)).outcome, Outcome::NoKey);
}

class SettingsPathTest : public ::testing::Test {
protected:
    void SetUp() override {
        unsetenv("KELVANE_SETTINGS");
        unsetenv("XDG_CONFIG_HOME");
        setenv("HOME", "/home/operator", 1);
    }
};

TEST_F(SettingsPathTest, LiesInTheUsersFolderForSettings) {
    EXPECT_EQ(host::SettingsPath(), "/home/operator/.config/kelvane/settings.ini");
    setenv("XDG_CONFIG_HOME", "/settings", 1);
    EXPECT_EQ(host::SettingsPath(), "/settings/kelvane/settings.ini");
    setenv("XDG_CONFIG_HOME", "not/absolute", 1);
    EXPECT_EQ(host::SettingsPath(), "/home/operator/.config/kelvane/settings.ini");
}

TEST_F(SettingsPathTest, AVariableNamesAnotherFile) {
    setenv("KELVANE_SETTINGS", "/elsewhere/own.ini", 1);
    EXPECT_EQ(host::SettingsPath(), "/elsewhere/own.ini");
}

TEST_F(SettingsPathTest, IsEmptyWithoutAHomeFolder) {
    unsetenv("HOME");
    EXPECT_EQ(host::SettingsPath(), "");
}

}  // namespace
}  // namespace kelvane::host_test
