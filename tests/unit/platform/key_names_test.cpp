#include "platform/key_names.h"

#include <gtest/gtest.h>

namespace kelvane::platform {
namespace {

void ExpectStroke(const std::optional<KeyStroke>& stroke, Key key, int shift, char32_t character) {
    ASSERT_TRUE(stroke);
    EXPECT_EQ(stroke->key, key);
    EXPECT_EQ(stroke->shift, shift);
    EXPECT_EQ(stroke->character, character);
}

TEST(KeyNames, KeysAreKnownWithoutRegardToLetterCase) {
    ExpectStroke(FindKey("F2"), Key::F2, 0, 0);
    ExpectStroke(FindKey("f12"), Key::F12, 0, 0);
    ExpectStroke(FindKey("Delete"), Key::Delete, 0, 0);
    ExpectStroke(FindKey("PageDown"), Key::PageDown, 0, 0);
    ExpectStroke(FindKey("Escape"), Key::Escape, 0, 0);
    ExpectStroke(FindKey("Space"), Key::Space, 0, U' ');
    ExpectStroke(FindKey("a"), Key::A, 0, U'a');
    ExpectStroke(FindKey("7"), static_cast<Key>('7'), 0, U'7');
    ExpectStroke(FindKey("."), Key::Other, 0, U'.');
    ExpectStroke(FindKey("项"), Key::Other, 0, U'项');
}

TEST(KeyNames, BothNamesOfAKeyStandForIt) {
    ExpectStroke(FindKey("PgUp"), Key::PageUp, 0, 0);
    ExpectStroke(FindKey("PageUp"), Key::PageUp, 0, 0);
    ExpectStroke(FindKey("Ctrl+PgDn"), Key::PageDown, kCtrl, 0);
    ExpectStroke(FindKey("Del"), Key::Delete, 0, 0);
    ExpectStroke(FindKey("Esc"), Key::Escape, 0, 0);
    ExpectStroke(FindKey("BS"), Key::Backspace, 0, 0);
    ExpectStroke(FindKey("Backspace"), Key::Backspace, 0, 0);
}

TEST(KeyNames, ANameIsShownAsItIsFound) {
    for (const char* name : {"Ctrl+C", "Ctrl+Shift+G", "Esc", "F12", "PageDown", "Ctrl+Home",
                             "Menu", "Ctrl++", "Ctrl+-", "Ctrl+'", "Ctrl+0", "Alt+Down", "Space"}) {
        const auto stroke = FindKey(name);
        ASSERT_TRUE(stroke) << name;
        EXPECT_EQ(NameOfKey(*stroke), name);
    }
    EXPECT_EQ(NameOfKey({}), "");
    EXPECT_EQ(NameOfKey({.key = Key::Other}), "");
}

TEST(KeyNames, ShiftStatesStandBeforeTheKey) {
    ExpectStroke(FindKey("Ctrl+P"), Key::P, kCtrl, 0);
    ExpectStroke(FindKey("Ctrl+Shift+P"), Key::P, kCtrl | kShift, 0);
    ExpectStroke(FindKey("shift+ctrl+alt+f4"), Key::F4, kCtrl | kShift | kAlt, 0);
    ExpectStroke(FindKey("Ctrl++"), Key::Plus, kCtrl, 0);
}

TEST(KeyNames, WhatIsHeldDecidesWhetherTheKeyTypes) {
    ExpectStroke(FindKey("Shift+a"), Key::A, kShift, U'a');
    ExpectStroke(FindKey("Shift+Space"), Key::Space, kShift, U' ');
    ExpectStroke(FindKey("Ctrl+Space"), Key::Space, kCtrl, 0);
    ExpectStroke(FindKey("Alt+a"), Key::A, kAlt, 0);
}

TEST(KeyNames, AnUnknownNameIsNoKey) {
    for (const char* name : {"", "F13", "Ctrl+", "Enterr", "ab", "\xff"}) {
        EXPECT_FALSE(FindKey(name)) << name;
    }
}

TEST(KeyNames, ATextIsTypedCharacterByCharacter) {
    const auto strokes = StrokesOf("aB 1-€项𠀀");
    ASSERT_EQ(strokes.size(), 8U);
    ExpectStroke(strokes[0], Key::A, 0, U'a');
    ExpectStroke(strokes[1], static_cast<Key>('B'), kShift, U'B');
    ExpectStroke(strokes[2], Key::Space, 0, U' ');
    ExpectStroke(strokes[3], static_cast<Key>('1'), 0, U'1');
    ExpectStroke(strokes[4], Key::Minus, 0, U'-');
    ExpectStroke(strokes[5], Key::Other, 0, U'€');
    ExpectStroke(strokes[6], Key::Other, 0, U'项');
    ExpectStroke(strokes[7], Key::Other, 0, U'\U00020000');
}

TEST(KeyNames, BytesThatAreNoUtf8AreLeftOut) {
    const auto strokes = StrokesOf("a\xff\xe9\xa1z\xe9");
    ASSERT_EQ(strokes.size(), 2U);
    EXPECT_EQ(strokes[0].character, U'a');
    EXPECT_EQ(strokes[1].character, U'z');
    EXPECT_TRUE(StrokesOf("\xE0\x80\xAF\xED\xA0\x80\xF4\x90\x80\x80").empty());
}

TEST(KeyNames, ACaptionNamesTheKeyThatDoesTheSame) {
    EXPECT_EQ(CaptionWithKey("打印", {Key::P, kCtrl}), "打印 (Ctrl+P)");
    EXPECT_EQ(CaptionWithKey("", {Key::F2}), "F2");
    EXPECT_EQ(CaptionWithKey("打印", {}), "");
}

TEST(KeyNames, SentKeysHaveNamesInBraces) {
    const auto strokes = ParseSentKeys(" {f2}{nothing}x{");
    ASSERT_EQ(strokes.size(), 4U);
    ExpectStroke(strokes[0], Key::Space, 0, U' ');
    ExpectStroke(strokes[1], Key::F2, 0, 0);
    ExpectStroke(strokes[2], static_cast<Key>('X'), 0, U'x');
    ExpectStroke(strokes[3], Key::Other, 0, U'{');
}

TEST(KeyNames, SentNamesAreThoseOfScripts) {
    const auto strokes = ParseSentKeys("{pgup}{PageUp}{ctrl+p}项");
    ASSERT_EQ(strokes.size(), 4U);
    ExpectStroke(strokes[0], Key::PageUp, 0, 0);
    ExpectStroke(strokes[1], Key::PageUp, 0, 0);
    ExpectStroke(strokes[2], Key::P, kCtrl, 0);
    ExpectStroke(strokes[3], Key::Other, 0, U'项');
}

}  // namespace
}  // namespace kelvane::platform
